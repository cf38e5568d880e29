// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/TableData.h"

#include "grid/model/GridError.h"

#include <algorithm>
#include <new>

namespace grid {

namespace {

void checkDimensions(int columns, int rows)
{
    if (columns <= 0 || rows <= 0)
        throw GridError("array dimensions zero or negative");
    if (static_cast<std::int64_t>(columns) * rows > maximalCells)
        throw GridError("NTABED: not enough memory on heap");
}

/// The first 50 characters, one fewer where the cut would split a surrogate pair.
QString cutName(const QString& name)
{
    QString cut = name.left(maximalNameLength);
    if (cut.size() < name.size() && cut.back().isHighSurrogate())
        cut.chop(1);
    return cut;
}

QString defaultName(QLatin1Char letter, int index)
{
    return QStringLiteral("%1-%2").arg(letter).arg(index);
}

template <typename T>
void store(QHash<int, T>& changed, int index, const T& value, const T& usual)
{
    if (value == usual)
        changed.remove(index);
    else
        changed.insert(index, value);
}

constexpr QLatin1Char columnLetter('C');
constexpr QLatin1Char rowLetter('R');

} // namespace

TableData::TableData(int columns, int rows)
{
    resize(columns, rows);
}

void TableData::reserve(int columns, int rows)
{
    checkDimensions(columns, rows);
    if (columns <= m_values.columns() && rows <= m_values.rows())
        return;
    try {
        CellBox<double> values = m_values.grownTo(columns, rows);
        m_marks = m_marks.grownTo(columns, rows);
        m_values = std::move(values);
    } catch (const std::bad_alloc&) {
        throw GridError("NTABED: not enough memory on heap");
    }
}

void TableData::resize(int columns, int rows)
{
    reserve(columns, rows);
    m_columns = columns;
    m_rows = rows;
}

double TableData::value(int column, int row) const
{
    return hasColumn(column) && hasRow(row) ? m_values.at(column, row) : 0.0;
}

void TableData::setValue(int column, int row, double value)
{
    if (hasColumn(column) && hasRow(row))
        m_values.set(column, row, value);
}

std::uint8_t TableData::marks(int column, int row) const
{
    return hasColumn(column) && hasRow(row) ? m_marks.at(column, row) : std::uint8_t{NoMark};
}

void TableData::clearMarks()
{
    m_marks.clear();
}

int TableData::precision(int column) const
{
    return hasColumn(column) ? m_precisions.value(column, defaultPrecision) : 0;
}

void TableData::setPrecision(int column, int decimals)
{
    if (hasColumn(column))
        store(m_precisions, column, std::clamp(decimals, -1, 8), defaultPrecision);
}

QString TableData::columnName(int column) const
{
    if (!hasColumn(column))
        return {};
    const auto named = m_columnNames.constFind(column);
    return named != m_columnNames.constEnd() ? *named : defaultName(columnLetter, column);
}

QString TableData::rowName(int row) const
{
    if (!hasRow(row))
        return {};
    const auto named = m_rowNames.constFind(row);
    return named != m_rowNames.constEnd() ? *named : defaultName(rowLetter, row);
}

void TableData::setColumnName(int column, const QString& name)
{
    if (hasColumn(column))
        store(m_columnNames, column, cutName(name), defaultName(columnLetter, column));
}

void TableData::setRowName(int row, const QString& name)
{
    if (hasRow(row))
        store(m_rowNames, row, cutName(name), defaultName(rowLetter, row));
}

std::uint8_t TableData::rowAttribute(int row) const
{
    return hasRow(row) ? m_attributes.value(row, 0) : std::uint8_t{0};
}

void TableData::setRowAttribute(int row, std::uint8_t attribute)
{
    if (hasRow(row))
        store(m_attributes, row, attribute, std::uint8_t{0});
}

} // namespace grid
