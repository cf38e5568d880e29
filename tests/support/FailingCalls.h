// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

/// Calls of the operating system that fail, for programs that are linked with FailingCalls.cpp: its
/// functions stand before the C library's.
///
/// Counted, and made to fail, are the calls that concern files of one folder: open, openat, lstat,
/// readlink, fstatat, faccessat, llistxattr, lgetxattr, fgetxattr, flock, fchown, fchmod,
/// fremovexattr, fsetxattr, write, lseek, fsync, dup, close, linkat, renameat2, unlinkat.
namespace failing {

struct Fault {
    enum Lasting {
        Once,
        ThatCall,   ///< From then on all calls of that name fail.
        Everything, ///< From then on all calls fail.
    };
    static constexpr int shortWrite = 0;  ///< As an error: half of the bytes are written.
    static constexpr int emptyWrite = -1; ///< As an error: none of the bytes, without an error.

    int first = 1; ///< Which call fails, or begins to: 1 is the first.
    int error = 0;
    Lasting lasting = Once;
    std::string call = {}; ///< Counted alone; empty for all.
    bool isDone = false;   ///< The call does its work and is reported as failed.
};

/// For as long as it lives the files of a folder are on a faulty disk; there is one at a time.
class Disk {
public:
    Disk(std::string folder, Fault fault);
    ~Disk();
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    /// How many calls there were that could have failed.
    int count() const;
    /// The names of those that failed.
    const std::vector<std::string>& failed() const;
};

/// For as long as it lives there are no files without a name, as on many file systems.
class NoUnnamedFiles {
public:
    NoUnnamedFiles();
    ~NoUnnamedFiles();
    NoUnnamedFiles(const NoUnnamedFiles&) = delete;
    NoUnnamedFiles& operator=(const NoUnnamedFiles&) = delete;
};

} // namespace failing
