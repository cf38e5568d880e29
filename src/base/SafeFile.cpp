// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace base {

namespace {

constexpr qint64 largestFile = qint64(1) << 30;
constexpr qint64 largestUnsizedFile = qint64(1) << 20;

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

QString reasonOf(int error)
{
    switch (error) {
    case ENOSPC:
        return QStringLiteral("No queda espacio en el disco.");
    case EDQUOT:
        return QStringLiteral("Se agotó el espacio que tiene asignado en el disco.");
    case EIO:
        return QStringLiteral("El disco dio un error al escribir: puede que nada haya quedado "
                              "guardado en él.");
    default:
        return QStringLiteral("El sistema no pudo escribirlo (%1).").arg(qt_error_string(error));
    }
}

/// Whether what was written to an open file has come to rest on the disk.
///
/// A file system may tell of an error only when a descriptor is closed; QSaveFile closes its own
/// without looking, so a copy is closed here. A file that has no disk below it, and cannot be
/// synchronised therefore, is as safe as it can be.
/// @return 0, or the system's error number
int errorOnTheDisk(int descriptor)
{
    if (fsync(descriptor) != 0 && errno != EINVAL && errno != ENOSYS && errno != EROFS)
        return errno;
    const int copy = dup(descriptor);
    if (copy < 0 || close(copy) != 0)
        return errno;
    return 0;
}

/// Closes a file at the end, be that for want of memory.
class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }

private:
    int m_number;
};

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
        const ssize_t count = read(descriptor, block.data(), block.size());
        if (count == 0)
            return Outcome<QByteArray>::of(bytes);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return {};
        if (bytes.size() + count > limit)
            return Outcome<QByteArray>::refused(exceeded);
        bytes.append(block.data(), count);
    }
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
    if (const int error = errorOnTheDisk(file.handle())) {
        file.cancelWriting();
        return reasonOf(error);
    }
    if (!file.commit())
        return failure(file, target, bytes.size());
    return std::nullopt;
}

Outcome<QByteArray> readLimited(const QString& fileName)
{
    if (!QFileInfo(fileName).isFile()) // asked first: to open a device may do something to it
        return {};
    const Descriptor file(
        open(QFile::encodeName(fileName).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (file.number() < 0 || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
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
