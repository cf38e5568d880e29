// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/SquareData.h"

namespace square {

namespace {

constexpr qint64 mostCells = 16'000'000;

/// Sets entry `index` (from 0), first filling the entries before it with their defaults.
template <typename Entry, typename Default>
void setEntry(std::vector<Entry>& entries, std::size_t index, const Entry& entry,
              Default defaultEntry)
{
    while (entries.size() <= index)
        entries.push_back(defaultEntry(entries.size()));
    entries[index] = entry;
}

std::size_t fromZero(int index)
{
    return static_cast<std::size_t>(index - 1);
}

} // namespace

QString cutName(const QString& name)
{
    if (name.size() <= longestName)
        return name;
    const bool cutsPair = name.at(longestName - 1).isHighSurrogate();
    return name.left(cutsPair ? longestName - 1 : longestName);
}

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
{
    Q_ASSERT(sizeProblem(columns, rows).isEmpty());
}

QString SquareData::columnName(int column) const
{
    const std::size_t index = fromZero(column);
    return index < m_columnNames.size() ? m_columnNames[index] : defaultColumnName(column);
}

QString SquareData::rowName(int row) const
{
    const std::size_t index = fromZero(row);
    return index < m_rowNames.size() ? m_rowNames[index] : defaultRowName(row);
}

void SquareData::setColumnName(int column, const QString& name)
{
    Q_ASSERT(column >= 1 && column <= m_columns);
    setEntry(m_columnNames, fromZero(column), cutName(name),
             [](std::size_t index) { return defaultColumnName(static_cast<int>(index) + 1); });
}

void SquareData::setRowName(int row, const QString& name)
{
    Q_ASSERT(row >= 1 && row <= m_rows);
    setEntry(m_rowNames, fromZero(row), cutName(name),
             [](std::size_t index) { return defaultRowName(static_cast<int>(index) + 1); });
}

quint8 SquareData::rowAttribute(int row) const
{
    const std::size_t index = fromZero(row);
    return index < m_rowAttributes.size() ? m_rowAttributes[index] : quint8(0);
}

void SquareData::setRowAttribute(int row, quint8 attribute)
{
    Q_ASSERT(row >= 1 && row <= m_rows);
    setEntry(m_rowAttributes, fromZero(row), attribute, [](std::size_t) { return quint8(0); });
}

double SquareData::observation(int column, int row) const
{
    const std::size_t index = indexOf(column, row);
    return index < m_observations.size() ? m_observations[index] : 0.0;
}

void SquareData::setObservation(int column, int row, double value)
{
    setEntry(m_observations, indexOf(column, row), value, [](std::size_t) { return 0.0; });
}

std::size_t SquareData::indexOf(int column, int row) const
{
    Q_ASSERT(column >= 1 && column <= m_columns && row >= 1 && row <= m_rows);
    return fromZero(row) * static_cast<std::size_t>(m_columns) + fromZero(column);
}

QString sizeProblem(int columns, int rows)
{
    if (columns <= 0 || rows <= 0)
        return QStringLiteral("array dimensions zero or negative");
    if (qint64(columns) * rows > mostCells)
        return outOfMemoryMessage();
    return {};
}

QString outOfMemoryMessage()
{
    return QStringLiteral("NTABED: not enough memory on heap");
}

} // namespace square
