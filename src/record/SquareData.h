// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace square {

/// The longest name of a column or row, in UTF-16 code units.
inline constexpr int longestName = 50;

/// The name, cut to the longest one; a surrogate pair is never cut in two.
QString cutName(const QString& name);

QString defaultColumnName(int column); ///< "C-1", "C-2", ...
QString defaultRowName(int row);       ///< "R-1", "R-2", ...

/// One experiment as the file and the grids carry it: names, row marks and observations.
///
/// Columns, rows and cells are counted from 1; an index outside the square is a fault of the
/// caller. The treatments are not stored: the cell in column c and row r always has treatment
/// ((c + r - 2) mod n) + 1.
///
/// What was never set is a default name, attribute 0 or observation 0.0 and takes no memory, so a
/// file that promises millions of cells and holds ten costs ten.
class SquareData {
public:
    /// Both counts at least 1 and sizeProblem() empty for them.
    SquareData(int columns, int rows);

    int NrOfColumns() const { return m_columns; }
    int NrOfRows() const { return m_rows; }

    /// Line 1 of the file, byte for byte and without its end; empty for a square that has none.
    const QByteArray& Identifier() const { return m_identifier; }
    void setIdentifier(const QByteArray& line) { m_identifier = line; }

    QString columnName(int column) const;
    QString rowName(int row) const;
    void setColumnName(int column, const QString& name); ///< Cut to longestName.
    void setRowName(int row, const QString& name);       ///< Cut to longestName.

    /// 0 for a plain row; other values are the grid's row marks.
    quint8 rowAttribute(int row) const;
    void setRowAttribute(int row, quint8 attribute);

    /// An observation; always finite.
    double observation(int column, int row) const;
    void setObservation(int column, int row, double value);

private:
    std::size_t indexOf(int column, int row) const;

    int m_columns;
    int m_rows;
    QByteArray m_identifier;
    // Each as long as the last entry that was set.
    std::vector<QString> m_columnNames;
    std::vector<QString> m_rowNames;
    std::vector<quint8> m_rowAttributes;
    std::vector<double> m_observations; ///< Row by row.
};

/// Why a square of these counts cannot be had, worded as the matrix and the grid word it; empty
/// when it can. Zero or negative counts and more than 16 million cells are refused.
QString sizeProblem(int columns, int rows);

/// What the grid says when its memory does not suffice.
QString outOfMemoryMessage();

} // namespace square
