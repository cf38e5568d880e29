// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellBox.h"
#include "grid/model/CellRange.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstdint>

namespace grid {

/// The marks of a cell, bit by bit.
enum Mark : std::uint8_t { NoMark = 0, MarkA = 1, MarkB = 2, MarkBoth = MarkA | MarkB };

constexpr int defaultPrecision = 3; ///< Decimals.
constexpr int maximalNameLength = 50;

/// What a grid holds, without a window: observations, marks, names, precisions, attributes.
///
/// Cells are addressed (column, row) from 1. A read outside the table gives 0, no mark or an empty
/// name, a write there is ignored. What a resize hides (values, marks, names) stays in store and
/// comes back with the next growth; the routines whose name says "stored" reach it as well.
class TableData {
public:
    /// A table of zeros with default names, precisions and attributes. @throws GridError
    TableData(int columns, int rows);

    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    /// All or nothing: the counts and their memory are checked before anything changes.
    /// @throws GridError "array dimensions zero or negative", or, beyond maximalCells and where
    ///         memory is short, "NTABED: not enough memory on heap"
    void resize(int columns, int rows);
    /// What resize() may throw, ahead of it: after this the same resize() cannot fail.
    void reserve(int columns, int rows);
    /// The whole table as a range.
    CellRange range() const { return {1, 1, m_columns, m_rows}; }

    double value(int column, int row) const;
    void setValue(int column, int row, double value);
    double storedValue(int column, int row) const { return m_values.at(column, row); }
    void setStoredValue(int column, int row, double value) { m_values.set(column, row, value); }

    std::uint8_t marks(int column, int row) const;
    std::uint8_t storedMarks(int column, int row) const { return m_marks.at(column, row); }
    void setStoredMarks(int column, int row, std::uint8_t marks)
    {
        m_marks.set(column, row, marks);
    }
    void clearMarks();

    /// Decimals shown in a column, -1 for as many as it takes. Stored within -1..8.
    int precision(int column) const;
    void setPrecision(int column, int decimals);

    /// At most maximalNameLength characters; "C-" or "R-" and the number unless named otherwise.
    QString columnName(int column) const;
    QString rowName(int row) const;
    void setColumnName(int column, const QString& name);
    void setRowName(int row, const QString& name);

    std::uint8_t rowAttribute(int row) const;
    void setRowAttribute(int row, std::uint8_t attribute);

    /// The comment of the table, the bytes of its file's first line.
    QByteArray identifier;

private:
    bool hasColumn(int column) const { return column >= 1 && column <= m_columns; }
    bool hasRow(int row) const { return row >= 1 && row <= m_rows; }

    int m_columns = 0;
    int m_rows = 0;
    CellBox<double> m_values;
    CellBox<std::uint8_t> m_marks;
    // Only what differs from the default: a table of millions of rows costs nothing here.
    QHash<int, QString> m_columnNames;
    QHash<int, QString> m_rowNames;
    QHash<int, int> m_precisions;
    QHash<int, std::uint8_t> m_attributes;
};

} // namespace grid
