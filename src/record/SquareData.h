// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CellBox.h"

#include <QByteArray>
#include <QHash>
#include <QString>

namespace record {

/// The longest name of a column or row, in UTF-16 code units.
inline constexpr int longestName = 50;

QString defaultColumnName(int column); ///< "C-1", "C-2", ...
QString defaultRowName(int row);       ///< "R-1", "R-2", ...

/// The names of columns and rows by their number, those that a smaller size hides included; default
/// ones are not kept.
struct Names {
    QHash<int, QString> columns;
    QHash<int, QString> rows;

    bool operator==(const Names&) const = default;
};

/// One experiment as the file, the grids and the analysis carry it: names, row marks and values.
///
/// Columns, rows and cells are counted from 1. Outside the square a read gives 0 or an empty name
/// and a write is ignored. The treatments are not stored: the cell in column c and row r always has
/// treatment ((c + r - 2) mod n) + 1.
///
/// What was never set is a default name, attribute 0 or value 0.0 and takes no memory, so a file
/// that promises millions of cells and holds ten costs ten. What a smaller size hides stays in
/// store and comes back with the next growth.
class SquareData {
public:
    /// Counts for which sizeProblem() is empty.
    SquareData(int columns, int rows);

    int NrOfColumns() const { return m_columns; }
    int NrOfRows() const { return m_rows; }
    /// Another size, for which sizeProblem() is empty; takes the memory of all its cells.
    /// @throws std::bad_alloc, with everything as it was; not where store() has the cells reserved
    void resize(int columns, int rows);

    /// Line 1 of the file, byte for byte and without its end; empty for a square that has none.
    const QByteArray& Identifier() const { return m_identifier; }
    void setIdentifier(const QByteArray& line) { m_identifier = line; }

    /// Names are cut to longestName, but never inside a surrogate pair.
    QString columnName(int column) const;
    QString rowName(int row) const;
    void setColumnName(int column, const QString& name);
    void setRowName(int row, const QString& name);
    /// All names at once, for who keeps them to put them back.
    const Names& names() const { return m_names; }
    void setNames(const Names& names) { m_names = names; }

    /// 0 for a plain row; other values are the marks that its file gives it.
    quint8 rowAttribute(int row) const;
    void setRowAttribute(int row, quint8 attribute);

    /// An observation; always finite.
    double value(int column, int row) const;
    void setValue(int column, int row, double value);
    /// The values with those that a smaller size hides: a box that holds the whole square.
    const CellBox<double>& store() const { return m_values; }
    CellBox<double>& store() { return m_values; }

private:
    bool hasColumn(int column) const { return column >= 1 && column <= m_columns; }
    bool hasRow(int row) const { return row >= 1 && row <= m_rows; }

    int m_columns;
    int m_rows;
    QByteArray m_identifier;
    // Only what differs from the default.
    Names m_names;
    QHash<int, quint8> m_rowAttributes;
    CellBox<double> m_values;
};

/// Why a square of these counts cannot be had; empty when it can. Zero or negative counts and more
/// than maximalCells (CellBox.h) are refused.
QString sizeProblem(int columns, int rows);

/// What the user is told where memory does not suffice.
QString outOfMemoryMessage();

} // namespace record
