// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Whole files in, whole files out.
namespace base {

/// Replaces the contents of a file, whole or not at all: the program's one writer.
///
/// The bytes go to a temporary file beside the target and take its place once they are all on the
/// disk, so on any failure the target is byte for byte what it was and no stray file is left.
/// @return nothing when the file was written, otherwise the reason in Spanish: a whole sentence
/// that
///         does not name the file.
[[nodiscard]] std::optional<QString> writeFile(const QString& fileName, const QByteArray& bytes);

/// Reads a whole ordinary file; nothing for what cannot be opened, for folders, devices and pipes,
/// and for files of more than 1 GiB.
[[nodiscard]] std::optional<QByteArray> readFile(const QString& fileName);

} // namespace base
