// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Whole files in, whole files out.
namespace base {

/// Replaces the contents of a file, whole or not at all: the program's one writer.
///
/// The bytes go to a temporary file beside the target and take its place once the system has
/// confirmed that they are all on the disk, so on any failure the target is byte for byte what it
/// was and no stray file is left.
/// @return nothing when the file was written, otherwise the reason in Spanish: a whole sentence
///         that does not name the file
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
