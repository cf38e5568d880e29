// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace grid {

/// A rectangle of cells by its first column and row, counted from 1, and its size.
struct CellRange {
    int column = 1;
    int row = 1;
    int columns = 0;
    int rows = 0;

    int lastColumn() const { return column + columns - 1; }
    int lastRow() const { return row + rows - 1; }
    std::size_t cells() const
    {
        return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    }
    /// Calls visit(column, row) for each cell, row by row.
    template <typename Visit>
    void forEachCell(Visit visit) const
    {
        for (int r = row; r <= lastRow(); ++r) {
            for (int c = column; c <= lastColumn(); ++c)
                visit(c, r);
        }
    }
    bool operator==(const CellRange&) const = default;
};

} // namespace grid
