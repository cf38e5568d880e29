// SPDX-License-Identifier: GPL-3.0-or-later
// A disk with faults, to be loaded before the C library (LD_PRELOAD). The file that CL_FAULTS names
// says which of the calls fail now, one in a line, and with which of the system's errors:
//
//   fsync 5        what was written is not synchronised
//   close 28       an error comes to light only as a file is closed that was written to
//   write-open 13  no file can be opened for writing
//   read-open 13   none whose name ends in ".asc" can be opened for reading
//   memory 12      there is none left as a file is opened for writing, which C++ tells by throwing

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// The error with which a call fails now, 0 for none. Reads by system calls: the C library's own
/// are the ones that are replaced here.
int errorOf(std::string_view call)
{
    const char* name = std::getenv("CL_FAULTS");
    if (name == nullptr)
        return 0;
    const auto file = static_cast<int>(syscall(SYS_openat, AT_FDCWD, name, O_RDONLY, 0));
    if (file < 0)
        return 0;
    char buffer[256];
    const long size = syscall(SYS_read, file, buffer, sizeof buffer);
    syscall(SYS_close, file);
    std::string_view text(buffer, size > 0 ? static_cast<std::size_t>(size) : 0);
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (line.size() > call.size() && line.substr(0, call.size()) == call &&
            line[call.size()] == ' ')
            return std::atoi(line.substr(call.size() + 1).data());
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return 0;
}

/// A file on the disk that is being written; neither a socket nor the display's memory.
bool isWrittenFile(int descriptor)
{
    struct stat status {};
    char link[64];
    char name[256];
    std::strcpy(link, "/proc/self/fd/");
    int digits = 1;
    for (int rest = descriptor; rest >= 10; rest /= 10)
        ++digits;
    link[14 + digits] = '\0';
    for (int rest = descriptor; digits > 0; rest /= 10)
        link[14 + --digits] = static_cast<char>('0' + rest % 10);
    const long length = syscall(SYS_readlink, link, name, sizeof name);
    const std::string_view target(name, length > 0 ? static_cast<std::size_t>(length) : 0);
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
           (fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_RDONLY &&
           target.substr(0, 7) != "/memfd:" && target.substr(0, 5) != "/dev/";
}

int failed(int error)
{
    errno = error;
    return -1;
}

bool isSquare(std::string_view name)
{
    return name.size() > 4 && name.substr(name.size() - 4) == ".asc";
}

int openAt(int folder, const char* name, int flags, mode_t mode)
{
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    if (writes && std::string_view(name).substr(0, 5) != "/dev/") {
        if (errorOf("memory") != 0)
            throw std::bad_alloc();
        if (const int error = errorOf("write-open"))
            return failed(error);
    } else if (!writes && isSquare(name)) {
        if (const int error = errorOf("read-open"))
            return failed(error);
    }
    return static_cast<int>(syscall(SYS_openat, folder, name, flags, mode));
}

mode_t modeIn(int flags, va_list arguments)
{
    const bool creates = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return creates ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" int open(const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt(AT_FDCWD, name, flags, mode);
}

extern "C" int openat(int folder, const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt(folder, name, flags, mode);
}

// On a machine of 64 bits both are one.
extern "C" int open64(const char* name, int flags, ...) __attribute__((alias("open")));
extern "C" int openat64(int folder, const char* name, int flags, ...)
    __attribute__((alias("openat")));

extern "C" int fsync(int descriptor)
{
    const int error = errorOf("fsync");
    return error != 0 ? failed(error) : static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int close(int descriptor)
{
    const int error = isWrittenFile(descriptor) ? errorOf("close") : 0;
    const int result =
        static_cast<int>(syscall(SYS_close, descriptor)); // it is closed all the same
    return error != 0 ? failed(error) : result;
}
