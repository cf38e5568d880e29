// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

#include <sys/stat.h>

namespace base {

/// Gives a new file what another one has beside its bytes: owner, group, permissions, access list,
/// extended attributes.
///
/// Nobody gains access by it: where the group cannot be kept, the one that the new file has and all
/// others are granted what both were, and no access list, which would speak of the other group.
/// @return what could not be kept and makes a difference, each in Spanish with its article
QStringList keepProperties(const QByteArray& oldPath, const struct stat& old, int newFile);

} // namespace base
