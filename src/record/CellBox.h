// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace record {

/// Most cells that a square may have, and most that a box keeps in store.
constexpr std::int64_t maximalCells = 16'000'000;

/// One value for each cell of a rectangle, addressed (column, row) from 1.
///
/// The box is at least as large as the square that it serves and does not shrink with it, so the
/// cells that a smaller square hides come back when it grows again. Cells behind the last one that
/// was ever set take no memory before reserve().
template <typename T>
class CellBox {
public:
    CellBox() = default;
    CellBox(int columns, int rows)
        : m_columns(columns)
        , m_rows(rows)
    {
    }

    /// T{} outside the box and where nothing was set.
    T at(int column, int row) const
    {
        return contains(column, row) && place(column, row) < m_cells.size()
                   ? m_cells[place(column, row)]
                   : T{};
    }

    /// Ignored outside the box. @throws std::bad_alloc, but not after reserve()
    void set(int column, int row, T value)
    {
        if (!contains(column, row))
            return;
        if (place(column, row) >= m_cells.size())
            m_cells.resize(place(column, row) + 1);
        m_cells[place(column, row)] = value;
    }

    /// Whether columns x rows cells fit in it.
    bool holds(int columns, int rows) const { return columns <= m_columns && rows <= m_rows; }

    /// Takes the memory for all cells, having grown where columns x rows cells do not fit.
    /// @throws std::bad_alloc, with everything as it was
    void reserve(int columns, int rows)
    {
        if (holds(columns, rows))
            m_cells.resize(size());
        else
            *this = grownTo(columns, rows);
    }

    /// A copy with the memory for columns x rows cells and, where maximalCells allows it, for all
    /// cells of this box as well; otherwise it has those of them that lie within columns x rows.
    /// @throws std::bad_alloc
    CellBox grownTo(int columns, int rows) const
    {
        const int allColumns = std::max(columns, m_columns);
        const int allRows = std::max(rows, m_rows);
        const bool keepAll = std::int64_t{allColumns} * allRows <= maximalCells;
        CellBox grown(keepAll ? allColumns : columns, keepAll ? allRows : rows);
        grown.m_cells.resize(grown.size());
        for (int line = 1; line <= std::min(grown.m_rows, m_rows); ++line) {
            const std::size_t first = std::min(place(1, line), m_cells.size());
            const std::size_t last =
                std::min(place(std::min(grown.m_columns, m_columns) + 1, line), m_cells.size());
            std::copy(m_cells.data() + first, m_cells.data() + last,
                      grown.m_cells.data() + grown.place(1, line));
        }
        return grown;
    }

private:
    bool contains(int column, int row) const
    {
        return column >= 1 && column <= m_columns && row >= 1 && row <= m_rows;
    }
    std::size_t size() const { return place(1, m_rows + 1); }
    std::size_t place(int column, int row) const
    {
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column - 1);
    }

    int m_columns = 0;
    int m_rows = 0;
    std::vector<T> m_cells; ///< Row by row, up to the last one that was set or reserved.
};

} // namespace record
