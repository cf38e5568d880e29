// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/SquareData.h"

namespace record {

namespace {

QString cutName(const QString& name)
{
    QString cut = name.left(longestName);
    if (cut.size() < name.size() && cut.back().isHighSurrogate())
        cut.chop(1);
    return cut;
}

template <typename T>
void keep(QHash<int, T>& changed, int index, const T& value, const T& usual)
{
    if (value == usual)
        changed.remove(index);
    else
        changed.insert(index, value);
}

} // namespace

QString defaultColumnName(int column)
{
    return QStringLiteral("C-%1").arg(column);
}

QString defaultRowName(int row)
{
    return QStringLiteral("R-%1").arg(row);
}

SquareData::SquareData(int columns, int rows)
    : m_columns(columns)
    , m_rows(rows)
    , m_values(columns, rows)
{
    Q_ASSERT(sizeProblem(columns, rows).isEmpty());
}

void SquareData::resize(int columns, int rows)
{
    m_values.reserve(columns, rows);
    m_columns = columns;
    m_rows = rows;
}

QString SquareData::columnName(int column) const
{
    return hasColumn(column) ? m_names.columns.value(column, defaultColumnName(column)) : QString();
}

QString SquareData::rowName(int row) const
{
    return hasRow(row) ? m_names.rows.value(row, defaultRowName(row)) : QString();
}

void SquareData::setColumnName(int column, const QString& name)
{
    if (hasColumn(column))
        keep(m_names.columns, column, cutName(name), defaultColumnName(column));
}

void SquareData::setRowName(int row, const QString& name)
{
    if (hasRow(row))
        keep(m_names.rows, row, cutName(name), defaultRowName(row));
}

quint8 SquareData::rowAttribute(int row) const
{
    return hasRow(row) ? m_rowAttributes.value(row) : quint8(0);
}

void SquareData::setRowAttribute(int row, quint8 attribute)
{
    if (hasRow(row))
        keep(m_rowAttributes, row, attribute, quint8(0));
}

double SquareData::value(int column, int row) const
{
    return hasColumn(column) && hasRow(row) ? m_values.at(column, row) : 0.0;
}

void SquareData::setValue(int column, int row, double value)
{
    if (hasColumn(column) && hasRow(row))
        m_values.set(column, row, value);
}

QString sizeProblem(int columns, int rows)
{
    if (columns <= 0 || rows <= 0)
        return QStringLiteral("array dimensions zero or negative");
    return qint64(columns) * rows > maximalCells ? outOfMemoryMessage() : QString();
}

QString outOfMemoryMessage()
{
    return QStringLiteral("NTABED: not enough memory on heap");
}

} // namespace record
