// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/Browser.h"

#include "manual/ChapterLook.h"
#include "manual/Chapters.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QImage>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace manual {

namespace {

QString fileOf(const QUrl& url)
{
    return QLatin1Char(':') + url.path();
}

} // namespace

Browser::Browser(QWidget* parent)
    : QTextBrowser(parent)
{
    setObjectName(QStringLiteral("Texto"));
    setOpenExternalLinks(false);
    connect(this, &QTextBrowser::sourceChanged, this, &Browser::arrive);
}

QString Browser::chapter() const
{
    return chapterOf(source());
}

void Browser::showChapter(const QString& chapter)
{
    setSource(chapterUrl(chapter), QTextDocument::MarkdownResource);
}

QVariant Browser::loadResource(int type, const QUrl& name)
{
    if (type == QTextDocument::ImageResource)
        return fittedPicture(source().resolved(name));
    return QByteArrayLiteral(" "); // any text: arrive() has the chapter's
}

/// By a link, by the way back, or anew.
void Browser::arrive(const QUrl& place)
{
    showText(chapterOf(place));
    if (place.hasFragment())
        scrollToHeading(place.fragment(QUrl::FullyDecoded));
    emit chapterShown(document()->firstBlock().text());
}

void Browser::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    fitPictures();
}

void Browser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    const bool looksDifferent =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (looksDifferent && !source().isEmpty()) {
        const int place = verticalScrollBar()->value();
        reload();
        verticalScrollBar()->setValue(place);
    }
}

/// Beside the one on the screen, which is laid out again after each piece that Markdown, and then
/// its look, adds to it.
void Browser::showText(const QString& chapter)
{
    auto text = std::make_unique<QTextDocument>(this); // whose pictures it asks for
    text->setUndoRedoEnabled(false);
    text->setBaseUrl(document()->baseUrl());
    text->setDefaultFont(document()->defaultFont());
    text->setMarkdown(chapterText(chapter));
    formatChapter(*text, palette(), fontMetrics().height() * 0.5);
    text->documentLayout()->setPaintDevice(viewport()); // for the dots per inch of its screen
    setDocument(text.get());
    m_text = std::move(text);
    m_text->size(); // lays it out to its end, and not only to what is to be seen
    QResizeEvent toTheEnd(viewport()->size(), viewport()->size());
    QTextBrowser::resizeEvent(&toTheEnd); // has the scroll bar lead there
    QAccessibleTextInsertEvent told(this, 0, m_text->toPlainText());
    QAccessible::updateAccessibility(&told);
}

/// Gives the document each of its pictures in the size that there is room for now.
void Browser::fitPictures()
{
    bool changed = false;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextImageFormat image = piece.fragment().charFormat().toImageFormat();
            if (!image.isValid())
                continue;
            const QUrl url = source().resolved(QUrl(image.name()));
            document()->addResource(QTextDocument::ImageResource, url, fittedPicture(url));
            changed = true;
        }
    }
    if (changed)
        document()->markContentsDirty(0, document()->characterCount());
}

void Browser::scrollToHeading(const QString& anchor)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (!isHeading(block) || anchorOf(block.text()) != anchor)
            continue;
        QTextCursor cursor(block);
        setTextCursor(cursor);
        const int place = verticalScrollBar()->value() + cursorRect(cursor).top();
        verticalScrollBar()->setValue(place - static_cast<int>(document()->documentMargin()));
        return;
    }
}

QImage Browser::fittedPicture(const QUrl& name) const
{
    QImage picture(fileOf(name));
    if (picture.isNull())
        return picture;
    const qreal ratio = devicePixelRatioF();
    const qreal room = viewport()->width() - 2 * document()->documentMargin();
    const qreal width = std::clamp<qreal>(room, 100, picture.width());
    const int pixels = qRound(width * ratio);
    if (pixels != picture.width())
        picture = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace manual
