// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileTarget.h"

#include "base/WriteError.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace base {

namespace {

constexpr int mostLinks = 40; // as many as the system itself follows

FileTarget split(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return {".", path, std::nullopt};
    return {slash == 0 ? QByteArray("/.") : path.left(slash), path.mid(slash + 1), std::nullopt};
}

/// The path that a symbolic link leads to; empty, with errno set, where it cannot be read.
QByteArray followed(const FileTarget& link)
{
    QByteArray text(PATH_MAX, '\0');
    const ssize_t length =
        readlink(link.path().constData(), text.data(), static_cast<std::size_t>(text.size()));
    if (length < 0)
        return {};
    text.truncate(length);
    return text.startsWith('/') ? text : link.folder + '/' + text;
}

/// Whether the system refuses to follow a link, as one that a stranger has left in a folder where
/// everybody may: the file dialog, which is refused too, has not asked about what it leads to.
bool isBarred(const QByteArray& link)
{
    return faccessat(AT_FDCWD, link.constData(), F_OK, AT_EACCESS) != 0 && errno == EACCES;
}

bool isFolder(const QByteArray& path)
{
    struct stat status {};
    return stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

QString notAFile(const struct stat& status)
{
    return S_ISDIR(status.st_mode) ? QStringLiteral("El nombre es el de una carpeta.")
                                   : QStringLiteral("El nombre no es el de un archivo corriente.");
}

Outcome<FileTarget> refused(int error)
{
    return Outcome<FileTarget>::refused(writeError(error));
}

/// A name with nothing behind it yet.
Outcome<FileTarget> newFile(FileTarget target, int error)
{
    if (target.name.isEmpty() && isFolder(target.folder))
        return Outcome<FileTarget>::refused(QStringLiteral("El nombre es el de una carpeta."));
    if (error == ENOTDIR || (error == ENOENT && !isFolder(target.folder)))
        return Outcome<FileTarget>::refused(QStringLiteral("La carpeta no existe."));
    if (error != ENOENT)
        return refused(error);
    return Outcome<FileTarget>::of(std::move(target));
}

/// A name that stands for something already.
Outcome<FileTarget> existingFile(FileTarget target, const struct stat& status)
{
    if (!S_ISREG(status.st_mode))
        return Outcome<FileTarget>::refused(notAFile(status));
    if (faccessat(AT_FDCWD, target.path().constData(), W_OK, AT_EACCESS) != 0)
        return errno == EROFS ? refused(errno)
                              : Outcome<FileTarget>::refused(
                                    QStringLiteral("El archivo está protegido contra escritura."));
    target.old = status;
    return Outcome<FileTarget>::of(std::move(target));
}

} // namespace

Outcome<FileTarget> findTarget(const QString& fileName)
{
    if (QFileInfo(fileName).fileName().isEmpty())
        return Outcome<FileTarget>::refused(QStringLiteral("El nombre es el de una carpeta."));
    QByteArray path = QFile::encodeName(fileName);
    if (path.contains('\0'))
        return refused(EINVAL);
    for (int links = 0; links < mostLinks; ++links) {
        FileTarget target = split(path);
        struct stat status {};
        if (lstat(path.constData(), &status) != 0)
            return newFile(std::move(target), errno);
        if (!S_ISLNK(status.st_mode))
            return existingFile(std::move(target), status);
        if (isBarred(path))
            return Outcome<FileTarget>::refused(
                QStringLiteral("El nombre es el de un enlace que el sistema no deja seguir."));
        path = followed(target);
        if (path.isEmpty())
            return refused(errno);
    }
    return refused(ELOOP);
}

} // namespace base
