// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FailingCalls.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace failing {

namespace {

struct State {
    std::string folder;
    Fault fault;
    int count = 0;
    bool hasBegun = false;
    std::vector<std::string> failed;
};
State* state = nullptr;
bool hasUnnamedFiles = true;

/// What a descriptor is open for, by system calls alone: the C library's are replaced here.
std::string pathOf(int descriptor)
{
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    char path[PATH_MAX];
    const long length = syscall(SYS_readlink, link.c_str(), path, sizeof path);
    return {path, length > 0 ? static_cast<std::size_t>(length) : 0};
}

bool isInFolder(std::string_view path)
{
    return path.substr(0, state->folder.size()) == state->folder;
}

bool concerns(int folder, const char* name)
{
    return isInFolder(name) || (name[0] != '/' && folder >= 0 && isInFolder(pathOf(folder)));
}

/// Whether this call, which concerns the folder, is to fail.
bool fails(std::string_view call)
{
    Fault& fault = state->fault;
    if (!fault.call.empty() && fault.call != call)
        return false;
    if (++state->count == fault.first) {
        state->hasBegun = true;
        fault.call = fault.lasting == Fault::ThatCall ? call : "";
    } else if (!state->hasBegun || fault.lasting == Fault::Once) {
        return false;
    }
    if (fault.error == Fault::shortWrite && call != "write")
        return false;
    state->failed.emplace_back(call);
    return true;
}

/// The result of a call: what it comes to where it does not fail.
template <typename Real>
auto result(bool isConcerned, std::string_view call, Real real) -> decltype(real())
{
    if (state == nullptr || !isConcerned || !fails(call))
        return real();
    const int error = state->fault.error;
    if (state->fault.isDone || call == "close") // a descriptor is closed all the same
        real();
    errno = error;
    return -1;
}

template <typename Real>
auto ofName(int folder, const char* name, std::string_view call, Real real)
{
    return result(state != nullptr && concerns(folder, name), call, real);
}

template <typename Real>
auto ofDescriptor(int descriptor, std::string_view call, Real real)
{
    return result(state != nullptr && isInFolder(pathOf(descriptor)), call, real);
}

int systemCall(long number, auto... arguments)
{
    return static_cast<int>(syscall(number, arguments...));
}

int openAt(int folder, const char* name, int flags, mode_t mode, std::string_view call)
{
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    return ofName(folder, name, call, [=] {
        if (!isUnnamed || hasUnnamedFiles)
            return systemCall(SYS_openat, folder, name, flags, mode);
        errno = EOPNOTSUPP;
        return -1;
    });
}

mode_t modeIn(int flags, va_list arguments)
{
    const bool creates = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return creates ? va_arg(arguments, mode_t) : 0;
}

} // namespace

Disk::Disk(std::string folder, Fault fault)
{
    static State only;
    only = {std::move(folder), std::move(fault), 0, false, {}};
    state = &only;
}

Disk::~Disk()
{
    state = nullptr;
}

int Disk::count() const
{
    return state->count;
}

const std::vector<std::string>& Disk::failed() const
{
    return state->failed;
}

NoUnnamedFiles::NoUnnamedFiles()
{
    hasUnnamedFiles = false;
}

NoUnnamedFiles::~NoUnnamedFiles()
{
    hasUnnamedFiles = true;
}

} // namespace failing

using failing::ofDescriptor;
using failing::ofName;
using failing::systemCall;

extern "C" {

int open(const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = failing::modeIn(flags, arguments);
    va_end(arguments);
    return failing::openAt(AT_FDCWD, name, flags, mode, "open");
}

int openat(int folder, const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = failing::modeIn(flags, arguments);
    va_end(arguments);
    return failing::openAt(folder, name, flags, mode, "openat");
}

// On a machine of 64 bits both are one.
int open64(const char* name, int flags, ...) __attribute__((alias("open")));
int openat64(int folder, const char* name, int flags, ...) __attribute__((alias("openat")));

int lstat(const char* name, struct stat* status) noexcept
{
    return ofName(AT_FDCWD, name, "lstat", [=] {
        return systemCall(SYS_newfstatat, AT_FDCWD, name, status, AT_SYMLINK_NOFOLLOW);
    });
}

int fstatat(int folder, const char* name, struct stat* status, int flags) noexcept
{
    return ofName(folder, name, "fstatat",
                  [=] { return systemCall(SYS_newfstatat, folder, name, status, flags); });
}

ssize_t readlink(const char* name, char* target, size_t size) noexcept
{
    return ofName(AT_FDCWD, name, "readlink",
                  [=] { return syscall(SYS_readlink, name, target, size); });
}

int faccessat(int folder, const char* name, int mode, int flags) noexcept
{
    return ofName(folder, name, "faccessat",
                  [=] { return systemCall(SYS_faccessat2, folder, name, mode, flags); });
}

ssize_t llistxattr(const char* name, char* list, size_t size) noexcept
{
    return ofName(AT_FDCWD, name, "llistxattr",
                  [=] { return syscall(SYS_llistxattr, name, list, size); });
}

ssize_t lgetxattr(const char* name, const char* attribute, void* value, size_t size) noexcept
{
    return ofName(AT_FDCWD, name, "lgetxattr",
                  [=] { return syscall(SYS_lgetxattr, name, attribute, value, size); });
}

ssize_t fgetxattr(int file, const char* attribute, void* value, size_t size) noexcept
{
    return ofDescriptor(file, "fgetxattr",
                        [=] { return syscall(SYS_fgetxattr, file, attribute, value, size); });
}

int fsetxattr(int file, const char* attribute, const void* value, size_t size, int flags) noexcept
{
    return ofDescriptor(file, "fsetxattr", [=] {
        return systemCall(SYS_fsetxattr, file, attribute, value, size, flags);
    });
}

int fremovexattr(int file, const char* attribute) noexcept
{
    return ofDescriptor(file, "fremovexattr",
                        [=] { return systemCall(SYS_fremovexattr, file, attribute); });
}

int flock(int file, int operation) noexcept
{
    return ofDescriptor(file, "flock", [=] { return systemCall(SYS_flock, file, operation); });
}

int fchown(int file, uid_t owner, gid_t group) noexcept
{
    return ofDescriptor(file, "fchown", [=] { return systemCall(SYS_fchown, file, owner, group); });
}

int fchmod(int file, mode_t mode) noexcept
{
    return ofDescriptor(file, "fchmod", [=] { return systemCall(SYS_fchmod, file, mode); });
}

ssize_t write(int file, const void* bytes, size_t size)
{
    const ssize_t written =
        ofDescriptor(file, "write", [=] { return syscall(SYS_write, file, bytes, size); });
    if (written >= 0 || errno > failing::Fault::shortWrite)
        return written;
    if (errno == failing::Fault::emptyWrite)
        return 0;
    return syscall(SYS_write, file, bytes, std::max<size_t>(size / 2, 1));
}

off_t lseek(int file, off_t offset, int from) noexcept
{
    return ofDescriptor(file, "lseek", [=] { return syscall(SYS_lseek, file, offset, from); });
}

int fsync(int file)
{
    return ofDescriptor(file, "fsync", [=] { return systemCall(SYS_fsync, file); });
}

int dup(int file) noexcept
{
    return ofDescriptor(file, "dup", [=] { return systemCall(SYS_dup, file); });
}

int close(int file)
{
    return ofDescriptor(file, "close", [=] { return systemCall(SYS_close, file); });
}

int linkat(int oldFolder, const char* oldName, int newFolder, const char* newName,
           int flags) noexcept
{
    return ofName(newFolder, newName, "linkat", [=] {
        return systemCall(SYS_linkat, oldFolder, oldName, newFolder, newName, flags);
    });
}

int renameat2(int oldFolder, const char* oldName, int newFolder, const char* newName,
              unsigned flags) noexcept
{
    return ofName(newFolder, newName, "renameat2", [=] {
        return systemCall(SYS_renameat2, oldFolder, oldName, newFolder, newName, flags);
    });
}

int unlinkat(int folder, const char* name, int flags) noexcept
{
    return ofName(folder, name, "unlinkat",
                  [=] { return systemCall(SYS_unlinkat, folder, name, flags); });
}

} // extern "C"
