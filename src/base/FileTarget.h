// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <sys/stat.h>

namespace base {

/// Where a file is written to: an entry of a folder, as the system names them.
struct FileTarget {
    QByteArray folder;
    QByteArray name;
    std::optional<struct stat> old; ///< The file that is there already.

    QByteArray path() const { return folder + '/' + name; }
};

/// Finds where a name leads, past symbolic links, which stay what they are; the last one may lead
/// to a file that is not there yet.
/// @return the target, or what stands in the way of writing to it, which includes that it is no
///         ordinary file: to replace a device or a pipe by one would be damage
Outcome<FileTarget> findTarget(const QString& fileName);

} // namespace base
