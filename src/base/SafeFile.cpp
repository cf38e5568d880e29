// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <unistd.h>

namespace base {

namespace {

constexpr qint64 largestFile = qint64(1) << 30;

/// What stands in the way before anything is written; devices and pipes are kept out here, since
/// replacing them by an ordinary file would be damage.
std::optional<QString> obstacle(const QFileInfo& target)
{
    const QFileInfo folder(target.absolutePath());
    if (target.fileName().isEmpty() || target.isDir())
        return QStringLiteral("El nombre es el de una carpeta.");
    if (QFile::encodeName(target.fileName()).size() >
        pathconf(QFile::encodeName(folder.filePath()).constData(), _PC_NAME_MAX)) {
        if (folder.isDir())
            return QStringLiteral("El nombre del archivo es demasiado largo.");
    }
    if (!folder.isDir())
        return QStringLiteral("La carpeta no existe.");
    if (target.exists() && !target.isFile())
        return QStringLiteral("El nombre no es el de un archivo corriente.");
    if (target.exists() && !target.isWritable())
        return QStringLiteral("El archivo está protegido contra escritura.");
    return std::nullopt;
}

QString failure(const QSaveFile& file, const QFileInfo& target, qsizetype size)
{
    const QFileInfo folder(target.absolutePath());
    if (!folder.isWritable())
        return QStringLiteral("No tiene permiso para escribir en la carpeta.");
    const QStorageInfo disk(folder.filePath());
    if (disk.bytesTotal() > 0 && disk.bytesAvailable() < size) // /proc is no disk, and never full
        return QStringLiteral("No queda espacio en el disco.");
    return QStringLiteral("El sistema no pudo escribirlo (%1).").arg(file.errorString());
}

} // namespace

std::optional<QString> writeFile(const QString& fileName, const QByteArray& bytes)
{
    const QFileInfo target(fileName);
    if (const auto reason = obstacle(target))
        return reason;

    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return failure(file, target, bytes.size());
    // commit() alone reports success on a full disk for files that fit its buffer: flush and look
    // at the error first.
    const bool written =
        file.write(bytes) == bytes.size() && file.flush() && file.error() == QFileDevice::NoError;
    if (!written) {
        const QString reason = failure(file, target, bytes.size());
        file.cancelWriting();
        return reason;
    }
    if (!file.commit())
        return failure(file, target, bytes.size());
    return std::nullopt;
}

std::optional<QByteArray> readFile(const QString& fileName)
{
    if (!QFileInfo(fileName).isFile())
        return std::nullopt;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes;
}

} // namespace base
