// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace grid {

/// Most cells that a table may have, and most that it keeps in store.
constexpr std::int64_t maximalCells = 16'000'000;

/// One value for each cell of a rectangle, addressed (column, row) from 1.
///
/// The box is at least as large as the table that it serves and does not shrink with it, so the
/// cells that a smaller table hides come back when it grows again.
template <typename T>
class CellBox {
public:
    int columns() const { return m_columns; }
    int rows() const { return m_rows; }

    /// T{} outside the box.
    T at(int column, int row) const
    {
        return contains(column, row) ? m_cells[place(column, row)] : T{};
    }

    /// Ignored outside the box.
    void set(int column, int row, T value)
    {
        if (contains(column, row))
            m_cells[place(column, row)] = value;
    }

    void clear() { std::fill(m_cells.begin(), m_cells.end(), T{}); }

    /// A copy that holds columns x rows cells and, where maximalCells allows it, all cells of this
    /// box as well; otherwise those of them that lie within columns x rows.
    /// @throws std::bad_alloc
    CellBox grownTo(int columns, int rows) const
    {
        const std::int64_t allColumns = std::max(columns, m_columns);
        const std::int64_t allRows = std::max(rows, m_rows);
        const bool keepAll = allColumns * allRows <= maximalCells;
        CellBox grown;
        grown.m_columns = keepAll ? static_cast<int>(allColumns) : columns;
        grown.m_rows = keepAll ? static_cast<int>(allRows) : rows;
        grown.m_cells.resize(static_cast<std::size_t>(grown.m_columns) *
                             static_cast<std::size_t>(grown.m_rows));
        const int copiedColumns = std::min(grown.m_columns, m_columns);
        for (int row = 1; row <= std::min(grown.m_rows, m_rows) && copiedColumns > 0; ++row) {
            const auto from = m_cells.begin() + static_cast<std::ptrdiff_t>(place(1, row));
            std::copy(from, from + copiedColumns,
                      grown.m_cells.begin() + static_cast<std::ptrdiff_t>(grown.place(1, row)));
        }
        return grown;
    }

private:
    bool contains(int column, int row) const
    {
        return column >= 1 && column <= m_columns && row >= 1 && row <= m_rows;
    }
    std::size_t place(int column, int row) const
    {
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column - 1);
    }

    int m_columns = 0;
    int m_rows = 0;
    std::vector<T> m_cells; ///< Row by row.
};

} // namespace grid
