// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/monkey/Folder.h"

#include <QDirIterator>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

namespace monkey {

namespace {

constexpr uid_t nobody = 65534;

} // namespace

/// The administrator may write anywhere, so his files are looked after as nobody's.
Folder::Folder()
{
    QDir(m_folder.path()).mkdir(QStringLiteral("cerrada"));
    QDir(m_folder.path()).mkdir(QStringLiteral("carpeta.asc"));
    const QByteArray closed = m_folder.filePath(QStringLiteral("cerrada")).toLocal8Bit();
    for (const char* example : {"orden3", "orden6", "propelente", "montaje"}) {
        const QString file = QString::fromLatin1(example) + QStringLiteral(".asc");
        for (const QString& copy :
             {m_folder.filePath(file), m_folder.filePath(QStringLiteral("cerrada/") + file)}) {
            QFile::copy(QStringLiteral(CL_SOURCE_DIR "/ejemplos/") + file, copy);
            accept(copy);
        }
    }
    const QString text = m_folder.filePath(QStringLiteral("carta.asc"));
    QFile letter(text);
    if (letter.open(QFile::WriteOnly))
        letter.write("Estimado colega:\r\nno hay aquí ningún cuadrado.\r\n");
    letter.close();
    accept(text);
    chmod(closed.constData(), 0555);
    if (geteuid() != 0)
        return;
    for (const QString& file : files())
        static_cast<void>(chown(file.toLocal8Bit().constData(), nobody, nobody));
    static_cast<void>(chown(m_folder.path().toLocal8Bit().constData(), nobody, nobody));
    m_wasRoot = seteuid(nobody) == 0;
}

Folder::~Folder()
{
    if (m_wasRoot)
        static_cast<void>(seteuid(0));
    chmod(m_folder.filePath(QStringLiteral("cerrada")).toLocal8Bit().constData(), 0755);
}

QString Folder::nameToSave(Random& random, const QString& suffix)
{
    switch (below(random, 10)) {
    case 0:
        return m_folder.filePath(QStringLiteral("cerrada/%1%2").arg(++m_names).arg(suffix));
    case 1:
        return m_folder.filePath(QStringLiteral("cerrada/orden3.asc"));
    case 2:
        return m_folder.filePath(QStringLiteral("ninguna/%1%2").arg(++m_names).arg(suffix));
    case 3:
        return m_folder.filePath(QStringLiteral("carpeta.asc"));
    case 4:
    case 5:
        if (const QString taken = anyFile(random); !taken.isEmpty())
            return taken;
        [[fallthrough]];
    default:
        return m_folder.filePath(QString::number(++m_names) + suffix);
    }
}

QString Folder::nameToOpen(Random& random)
{
    if (oneIn(random, 12))
        return m_folder.filePath(QStringLiteral("no existe.asc"));
    const QStringList names = m_wanted.keys();
    return names.at(below(random, static_cast<int>(names.size())));
}

QString Folder::anyFile(Random& random) const
{
    QStringList names;
    for (const QString& name : m_wanted.keys()) {
        if (!name.contains(QStringLiteral("/cerrada/")))
            names << name;
    }
    return names.isEmpty() ? QString() : names.at(below(random, static_cast<int>(names.size())));
}

QByteArray Folder::read(const QString& name) const
{
    QFile file(name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void Folder::writeFromOutside(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    if (file.open(QFile::WriteOnly))
        file.write(bytes);
    file.close();
    accept(name);
}

void Folder::removeFromOutside(const QString& name)
{
    QFile::remove(name);
    m_wanted.remove(name);
}

QStringList Folder::changed() const
{
    const QStringList present = files();
    QStringList names;
    for (const QString& name : present) {
        if (!m_wanted.contains(name) || read(name) != m_wanted.value(name))
            names << name;
    }
    for (const QString& name : m_wanted.keys()) {
        if (!present.contains(name))
            names << name;
    }
    return names;
}

QStringList Folder::files() const
{
    QStringList names;
    QDirIterator all(m_folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        names << all.next();
    return names;
}

} // namespace monkey
