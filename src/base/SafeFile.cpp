// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "base/FileProperties.h"
#include "base/FileTarget.h"
#include "base/SystemCall.h"
#include "base/TemporaryFile.h"
#include "base/WriteError.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace base {

namespace {

constexpr qint64 largestFile = qint64(1) << 30;
constexpr qint64 largestUnsizedFile = qint64(1) << 20;

/// What came of writing a file apart and putting it into the place of the old one.
struct Attempt {
    int error = 0;
    bool canBeNamed = true; ///< An unnamed file may turn out to have no way to a name.
    bool isInPlace = false;
    QStringList lost; ///< Of the old file.
};

Attempt replaceBy(TemporaryFile::Kind kind, const FileTarget& target, int folder,
                  const QByteArray& bytes)
{
    constexpr mode_t forEverybody = 0666; // less what the user's mask forbids
    constexpr mode_t forTheUser = 0600;   // until it has the permissions of the old one
    Attempt attempt;
    TemporaryFile file(folder, target.name);
    attempt.error = file.create(kind, target.old ? forTheUser : forEverybody);
    attempt.canBeNamed = attempt.error == 0;
    if (attempt.error == 0 && target.old)
        attempt.lost = keepProperties(target.path(), *target.old, file.descriptor());
    if (attempt.error == 0)
        attempt.error = file.write(bytes);
    if (attempt.error == 0)
        attempt.error = file.settle();
    if (attempt.error == 0) {
        attempt.error = file.takeName();
        attempt.canBeNamed = attempt.error == 0;
    }
    if (attempt.error == 0) {
        attempt.error = file.takePlace(target.old ? TemporaryFile::Place::OfAnOldFile
                                                  : TemporaryFile::Place::New);
        attempt.isInPlace = attempt.error == 0;
    }
    return attempt;
}

/// A folder that may be written to but not read can be used, but not synchronised.
int openFolder(const QByteArray& folder)
{
    constexpr int flags = O_DIRECTORY | O_CLOEXEC;
    const int readable = uninterrupted([&] { return open(folder.constData(), O_RDONLY | flags); });
    return readable >= 0 || errno != EACCES
               ? readable
               : uninterrupted([&] { return open(folder.constData(), O_PATH | flags); });
}

/// Whether the entries of a folder have come to rest on the disk. @return 0, or the error
int settleFolder(int folder)
{
    const bool settled = uninterrupted([=] { return fsync(folder); }) == 0;
    const bool impossible = errno == EBADF || errno == EINVAL || errno == ENOSYS || errno == EROFS;
    return settled || impossible ? 0 : errno;
}

QString notSettled(int error)
{
    return QStringLiteral("El archivo está escrito, pero el disco no confirmó que quede en su "
                          "carpeta (%1): un corte de luz puede devolverla a como estaba.")
        .arg(qt_error_string(error));
}

QString notKept(const FileTarget& target, const QStringList& lost)
{
    QStringList sentences;
    if (target.old && target.old->st_nlink > 1)
        sentences << QStringLiteral("Los otros nombres del archivo conservan lo anterior.");
    if (!lost.isEmpty())
        sentences << QStringLiteral("Del archivo anterior no se conservó: %1.")
                         .arg(lost.join(QStringLiteral(", ")));
    return sentences.join(QLatin1Char(' '));
}

/// Reads up to the end; a file that says that it is empty may still have something to say.
Outcome<QByteArray> readDescriptor(int descriptor, qint64 size)
{
    const qint64 limit = size > 0 ? largestFile : largestUnsizedFile;
    const QString exceeded =
        size > 0 ? QStringLiteral("El archivo tiene más de 1 GiB, lo más que se lee.")
                 : QStringLiteral("El archivo no indica su tamaño y tiene más de 1 MiB, lo más que "
                                  "se lee de un archivo así.");
    if (size > limit)
        return Outcome<QByteArray>::refused(exceeded);
    QByteArray bytes;
    bytes.reserve(size);
    std::vector<char> block(1U << 16U);
    while (true) {
        const ssize_t count =
            uninterrupted([&] { return read(descriptor, block.data(), block.size()); });
        if (count == 0)
            return Outcome<QByteArray>::of(bytes);
        if (count < 0)
            return {};
        if (bytes.size() + count > limit)
            return Outcome<QByteArray>::refused(exceeded);
        bytes.append(block.data(), count);
    }
}

} // namespace

Outcome<WrittenFile> replaceFile(const QString& fileName, const QByteArray& bytes)
{
    using Written = Outcome<WrittenFile>;
    const Outcome<FileTarget> found = findTarget(fileName);
    if (!found.value)
        return Written::refused(found.reason);
    const FileTarget& target = *found.value;
    const Descriptor folder(openFolder(target.folder));
    if (!folder.isOpen())
        return Written::refused(writeError(errno));

    Attempt attempt = replaceBy(TemporaryFile::Kind::Unnamed, target, folder.number(), bytes);
    if (!attempt.canBeNamed)
        attempt = replaceBy(TemporaryFile::Kind::Named, target, folder.number(), bytes);
    if (!attempt.isInPlace)
        return Written::refused(writeError(attempt.error));
    removeStrays(folder.number(), target.name);
    if (const int error = settleFolder(folder.number()))
        return Written::refused(notSettled(error));
    return Written::of({notKept(target, attempt.lost)});
}

std::optional<QString> writeFile(const QString& fileName, const QByteArray& bytes)
{
    return replaceFile(fileName, bytes).problem();
}

Outcome<QByteArray> readLimited(const QString& fileName)
{
    if (!QFileInfo(fileName).isFile()) // asked first: to open a device may do something to it
        return {};
    const QByteArray name = QFile::encodeName(fileName);
    const Descriptor file(
        uninterrupted([&] { return open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return readDescriptor(file.number(), status.st_size);
}

std::optional<QByteArray> readFile(const QString& fileName)
{
    return readLimited(fileName).value;
}

QByteArray fingerprint(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray fingerprint(const QString& fileName)
{
    const std::optional<QByteArray> bytes = readFile(fileName);
    return bytes ? fingerprint(*bytes) : QByteArray();
}

} // namespace base
