// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ForeignMarks.h"
#include "base/Outcome.h"
#include "grid/model/CellRange.h"
#include "record/SquareData.h"

#include <QStringView>

#include <functional>
#include <vector>

namespace grid {

/// A rectangle of numbers, row by row.
struct NumberBlock {
    int columns = 0;
    int rows = 0;
    std::vector<double> values;
    base::ForeignMarks foreignMarks; ///< Of the texts that were read.
};

/// Cells as text for the clipboard: the columns of a row separated by tabs, the rows by line feeds.
///
/// Each number has all its digits and the user's decimal separator, so that what is pasted back is
/// what was copied.
QString copiedText(const record::SquareData& square, const CellRange& range);

/// What the user can do for a table of at least this size, such as "suba el orden a 4"; empty where
/// nothing helps.
using SizeAdvice = std::function<QString(int columns, int rows)>;

/// Where a rectangle of numbers is to go: a table, and the cell for its first number.
struct Room {
    const record::SquareData& square;
    int column = 1;
    int row = 1;
    SizeAdvice advice = {}; ///< None where it is empty.

    int columns() const { return square.NrOfColumns() - column + 1; }
    int rows() const { return square.NrOfRows() - row + 1; }
};

/// Reads a rectangle of numbers out of the table in a text, decimals after a point or a comma.
/// Anything else is refused: an empty text or line, lines of different length, a field that is no
/// number, commas with two meanings, a rectangle that is larger than the room for it.
/// Of a text beyond that room only the first lines are read. The reason says what to do instead.
base::Outcome<NumberBlock> readNumberBlock(QStringView text, const Room& room);

} // namespace grid
