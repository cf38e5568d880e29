// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/Chapters.h"

#include <QFile>
#include <QRegularExpression>

namespace manual {

namespace {

const QLatin1String extension(".md");

QString fileOf(const QString& chapter)
{
    return QStringLiteral(":/manual/%1.md").arg(chapter);
}

} // namespace

QString indexChapter()
{
    return QStringLiteral("indice");
}

QStringList chapters()
{
    QStringList found{indexChapter()};
    static const QRegularExpression link(QStringLiteral("\\]\\(([\\w-]+)\\.md\\)"));
    auto links = link.globalMatch(chapterText(indexChapter()));
    while (links.hasNext())
        found << links.next().captured(1);
    found.removeDuplicates();
    return found;
}

QString chapterText(const QString& chapter)
{
    QFile file(fileOf(chapter));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QUrl chapterUrl(const QString& chapter)
{
    return QUrl(QLatin1String("qrc") + fileOf(chapter));
}

QString chapterOf(const QUrl& url)
{
    const QString name = url.fileName();
    return name.endsWith(extension) ? name.chopped(extension.size()) : QString();
}

QString anchorOf(const QString& heading)
{
    static const QRegularExpression punctuation(QStringLiteral("[^\\w\\s-]"),
                                                QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower()
        .remove(punctuation)
        .simplified()
        .replace(QLatin1Char(' '), QLatin1Char('-'));
}

} // namespace manual
