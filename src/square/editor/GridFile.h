// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "square/file/SquareFile.h"

#include <QByteArray>
#include <QString>

namespace grid {
class TNTabEd;
}

/// The square file of a grid. The codes are those of ReadCode.
namespace square {

/// What came of a square on its way into a file.
struct ExportedSquare {
    bool rounded = false; ///< The file holds another value than the grid in some cell.
    QString notKept;      ///< As of base::WrittenFile.
    /// Of the bytes that were written: the file may hold another's by the time that it is looked
    /// at.
    QByteArray fingerprint;
};

/// Writes the grid to a file, `precision` significant digits in each observation, and gives the
/// grid the names back as they stand there, without blanks at their ends.
/// @return as base::replaceFile(); the grid is as it was where there is a reason
[[nodiscard]] base::Outcome<ExportedSquare> Export(grid::TNTabEd& table, const QString& fileName,
                                                   int precision = fileDigits);

// Windows read their files by loadSquare(); these two are for tests and for other users of the
// grid.

/// Reads and checks the first four lines; NoColumnCount for a file that cannot be opened.
SquareHeader ReadHeader(const QString& fileName);

/// Reads a file into the grid: the whole square where the code is Usable, and with NoAttribute or
/// NoObservation what came before the failure, in a grid of the file's size. With every other code
/// the grid is as it was. 0 is the only mode.
int Import(grid::TNTabEd& table, const QString& fileName, int mode = 0);

} // namespace square
