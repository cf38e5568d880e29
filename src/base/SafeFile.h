// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Whole files in, whole files out.
namespace base {

/// A file that was written.
struct WrittenFile {
    /// What the one before it had and it has not: whole sentences in Spanish, mostly none.
    QString notKept;
};

/// Replaces the contents of a file, whole or not at all: the program's one writer.
///
/// The bytes go to a temporary file in the target's folder and take its place once the system has
/// confirmed that they are all on the disk, so on any failure the target is byte for byte what it
/// was and nothing is left that can be removed. Owner, group, permissions, access list and
/// extended attributes stay as they were as far as the user may set them. A symbolic link stays and
/// its target is written; of hard links the others keep the old contents.
/// @return the reason in Spanish where the file was not written, or where it was and the disk did
///         not confirm its place in the folder: whole sentences that do not name the file
[[nodiscard]] Outcome<WrittenFile> replaceFile(const QString& fileName, const QByteArray& bytes);

/// The problem of replaceFile() alone, for a file that nobody else has made something of. For tests
/// and other programs; windows tell what was not kept.
[[nodiscard]] std::optional<QString> writeFile(const QString& fileName, const QByteArray& bytes);

/// Reads a whole ordinary file, up to 1 GiB; one that does not tell its size, as the system's own
/// files under /proc, up to 1 MiB, and never waiting for more to come.
/// @return the bytes, or a sentence that names the limit that the file exceeds; neither for what
///         cannot be read, and for folders, devices and pipes
[[nodiscard]] Outcome<QByteArray> readLimited(const QString& fileName);

/// The bytes of readLimited().
[[nodiscard]] std::optional<QByteArray> readFile(const QString& fileName);

/// A fingerprint of bytes (SHA-256), to tell later whether they are still the same.
QByteArray fingerprint(const QByteArray& bytes);

/// The fingerprint of a file's bytes; empty for one that cannot be read.
QByteArray fingerprint(const QString& fileName);

} // namespace base
