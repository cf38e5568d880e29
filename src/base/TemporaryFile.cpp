// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TemporaryFile.h"

#include <QCryptographicHash>
#include <QString>

#include <atomic>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace base {

namespace {

constexpr int mostNames = 100; // a name may be taken by what a program of the same number left

QByteArray nameBegin(const QByteArray& target)
{
    const QByteArray fingerprint =
        QCryptographicHash::hash(target, QCryptographicHash::Sha256).toHex().left(16);
    return ".cuadrado-latino-" + fingerprint + '-';
}

/// A name that this process has not used before.
QByteArray newName(const QByteArray& target)
{
    static std::atomic<int> number = 0;
    return nameBegin(target) + QByteArray::number(getpid()) + '-' + QByteArray::number(++number);
}

int removeEntry(int folder, const QByteArray& name)
{
    return uninterrupted([&] { return unlinkat(folder, name.constData(), 0); });
}

/// Removes a temporary file that no program has locked, and keeps it locked meanwhile: one that is
/// just being created finds out that it is taken away.
void removeStray(int folder, const QByteArray& name)
{
    const Descriptor file(
        openat(folder, name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (file.isOpen() && fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) &&
        flock(file.number(), LOCK_EX | LOCK_NB) == 0)
        removeEntry(folder, name);
}

} // namespace

TemporaryFile::TemporaryFile(int folder, QByteArray target)
    : m_folder(folder)
    , m_target(std::move(target))
{
}

TemporaryFile::~TemporaryFile()
{
    removeName();
}

int TemporaryFile::create(Kind kind, mode_t mode)
{
    if (kind == Kind::Named)
        return createNamed(mode);
    m_file.reset(uninterrupted(
        [&] { return openat(m_folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode); }));
    if (!m_file.isOpen())
        return errno;
    lock();
    return 0;
}

int TemporaryFile::createNamed(mode_t mode)
{
    int error = EEXIST;
    for (int tries = 0; error == EEXIST && tries < mostNames; ++tries) {
        m_name = newName(m_target);
        m_file.reset(uninterrupted([&] {
            return openat(m_folder, m_name.constData(),
                          O_CREAT | O_EXCL | O_NOFOLLOW | O_WRONLY | O_CLOEXEC, mode);
        }));
        error = m_file.isOpen() ? 0 : errno;
        // Before it was locked it may have been taken for a stray.
        if (error == 0 && !(lock() && isAt(m_name))) {
            removeName();
            error = EEXIST;
        }
    }
    if (error != 0)
        m_name.clear();
    return error;
}

/// @return whether the file is this program's; where files cannot be locked nobody takes it away
bool TemporaryFile::lock()
{
    return flock(descriptor(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

int TemporaryFile::write(const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const auto rest = static_cast<std::size_t>(bytes.size() - written);
        const ssize_t count =
            uninterrupted([&] { return ::write(descriptor(), bytes.constData() + written, rest); });
        if (count <= 0)
            return count < 0 ? errno : EIO;
        written += count;
    }
    return 0;
}

/// A file system may tell of an error only when a descriptor is closed: a copy is closed here. A
/// file that has no disk below it, and cannot be synchronised therefore, is as safe as it can be.
int TemporaryFile::settle()
{
    if (uninterrupted([this] { return fsync(descriptor()); }) != 0 && errno != EINVAL &&
        errno != ENOSYS && errno != EROFS)
        return errno;
    const int copy = uninterrupted([this] { return dup(descriptor()); });
    if (copy < 0)
        return errno;
    // Interrupted, it is closed all the same, and all is on the disk already.
    return close(copy) == 0 || errno == EINTR ? 0 : errno;
}

int TemporaryFile::takeName()
{
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(descriptor());
    int error = m_name.isEmpty() ? EEXIST : 0;
    for (int tries = 0; error == EEXIST && tries < mostNames; ++tries) {
        const QByteArray name = newName(m_target);
        const int linked = uninterrupted([&] {
            return linkat(AT_FDCWD, self.constData(), m_folder, name.constData(),
                          AT_SYMLINK_FOLLOW);
        });
        error = linked == 0 ? 0 : errno;
        // Over a network it may have been done and yet reported as failed.
        if (error == 0 || isAt(name)) {
            m_name = name;
            error = 0;
        }
    }
    return error;
}

int TemporaryFile::takePlace(Place place)
{
    int error = rename(place == Place::New ? RENAME_NOREPLACE : 0);
    if (place == Place::New && (error == EINVAL || error == ENOSYS)) // not on this file system
        error = rename(0);
    if (error != 0 && !isAt(m_target)) // as above
        return error;
    m_name.clear();
    return 0;
}

int TemporaryFile::rename(unsigned flags) const
{
    const int renamed = uninterrupted([=, this] {
        return renameat2(m_folder, m_name.constData(), m_folder, m_target.constData(), flags);
    });
    return renamed == 0 ? 0 : errno;
}

/// Whether the file has this name.
bool TemporaryFile::isAt(const QByteArray& name) const
{
    struct stat own {};
    struct stat named {};
    return fstat(descriptor(), &own) == 0 &&
           fstatat(m_folder, name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

void TemporaryFile::removeName()
{
    if (!m_name.isEmpty())
        removeEntry(m_folder, m_name);
    m_name.clear();
}

void removeStrays(int folder, const QByteArray& target)
{
    DIR* entries = fdopendir(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (entries == nullptr)
        return;
    const QByteArray begin = nameBegin(target);
    while (const dirent* entry = readdir(entries)) {
        const QByteArray name(entry->d_name);
        if (name.startsWith(begin))
            removeStray(folder, name);
    }
    closedir(entries);
}

} // namespace base
