// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SystemCall.h"

#include <QByteArray>

#include <sys/types.h>

namespace base {

/// A file in the making: written apart, beside the one whose place it takes.
///
/// It has no name until it is whole, where the file system can do that, and so goes with a program
/// that is killed. Otherwise its name tells whose it is, ".cuadrado-latino-", a fingerprint of the
/// name it will take, the process and a number, always of the same moderate length, and it is
/// locked for as long as its program lives.
///
/// Calls that can fail return the system's error number, or 0.
class TemporaryFile {
public:
    enum class Kind { Unnamed, Named };

    /// @param folder an open folder, which outlives the object
    /// @param target the name in it that the file is to take
    TemporaryFile(int folder, QByteArray target);
    /// Leaves nothing behind that can be removed.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int create(Kind kind, mode_t mode);
    int descriptor() const { return m_file.number(); }
    int write(const QByteArray& bytes);
    /// What was written comes to rest on the disk.
    int settle();
    /// A name of its own for an unnamed file; nothing to do for the other kind.
    int takeName();
    enum class Place { New, OfAnOldFile };
    /// Takes the target's name. A new one may have been taken by somebody else in the meantime:
    /// EEXIST, wherever the file system can tell.
    int takePlace(Place place);

private:
    int createNamed(mode_t mode);
    int rename(unsigned flags) const;
    bool isAt(const QByteArray& name) const;
    bool lock();
    void removeName();

    const int m_folder;
    const QByteArray m_target;
    Descriptor m_file;
    QByteArray m_name; ///< Empty while it has none.
};

/// Removes the temporary files for this target that programs left behind which are no more.
void removeStrays(int folder, const QByteArray& target);

} // namespace base
