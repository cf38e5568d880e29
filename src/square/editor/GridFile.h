// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "square/file/SquareFile.h"

#include <QString>

#include <optional>

namespace grid {
class TNTabEd;
}

/// The square file of a grid. The codes are those of ReadCode.
namespace square {

/// Writes the grid to a file, `precision` significant digits in each observation, and gives the
/// grid the names back as they stand there, without blanks at their ends.
/// @return nothing when the file was written, otherwise the reason in Spanish; the old file and the
///         grid are then as they were
[[nodiscard]] std::optional<QString> Export(grid::TNTabEd& table, const QString& fileName,
                                            int precision = fileDigits);

/// Reads and checks the first four lines; NoColumnCount for a file that cannot be opened.
SquareHeader ReadHeader(const QString& fileName);

/// Reads a file into the grid: the whole square where the code is Usable, and with NoAttribute or
/// NoObservation what came before the failure, in a grid of the file's size. With every other code
/// the grid is as it was. 0 is the only mode.
int Import(grid::TNTabEd& table, const QString& fileName, int mode = 0);

} // namespace square
