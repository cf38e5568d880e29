// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellRange.h"
#include "record/SquareData.h"

#include <QHash>
#include <QStringList>

#include <cstdint>

namespace grid {

/// The marks of a cell, bit by bit.
enum Mark : std::uint8_t { NoMark = 0, MarkA = 1, MarkB = 2, MarkBoth = MarkA | MarkB };

constexpr int defaultPrecision = 3; ///< Decimals.

/// What a table is but for what its cells hold: its size, its names and the decimals of its
/// columns.
struct TableShape {
    int columns;
    int rows;
    record::Names names;
    QHash<int, int> precisions; ///< By column, where they are not the default.

    bool operator==(const TableShape&) const = default;
};

/// What a grid holds, without a window: a square, the marks of its cells and the precisions of its
/// columns.
///
/// Cells are addressed (column, row) from 1. A read outside the table gives 0 or no mark, a write
/// there is ignored. Marks and precisions that a resize hides come back with the next growth.
class TableData {
public:
    /// A square with neither marks nor precisions of its own. @throws GridError as resize()
    explicit TableData(record::SquareData numbers);

    /// All or nothing: the counts and their memory are checked before anything changes.
    /// @throws GridError with record::sizeProblem() of the counts, or record::outOfMemoryMessage()
    void resize(int columns, int rows);
    /// What resize() may throw, ahead of it: after this the same resize() cannot fail.
    void reserve(int columns, int rows);
    /// The whole table as a range.
    CellRange range() const { return {1, 1, square.NrOfColumns(), square.NrOfRows()}; }

    std::uint8_t marks(int column, int row) const;
    /// Reaches the cells that a resize has hidden as well.
    void setStoredMarks(int column, int row, std::uint8_t marks)
    {
        m_marks.set(column, row, marks);
    }

    /// Decimals shown in a column, -1 for as many as it takes. Stored within -1..8.
    int precision(int column) const;
    void setPrecision(int column, int decimals);

    TableShape shape() const;
    /// @throws GridError as resize()
    void setShape(const TableShape& shape);

    record::SquareData square; ///< Its size changes through resize() above.
    QStringList treatments;    ///< Names of 1, 2, ... where an extraction has told them.

private:
    bool hasColumn(int column) const { return column >= 1 && column <= square.NrOfColumns(); }

    record::CellBox<std::uint8_t> m_marks;
    QHash<int, int> m_precisions; ///< Only what differs from the default.
};

} // namespace grid
