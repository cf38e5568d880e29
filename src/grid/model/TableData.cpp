// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/TableData.h"

#include "grid/model/GridError.h"

#include <algorithm>
#include <new>
#include <utility>

namespace grid {

TableData::TableData(record::SquareData numbers)
    : square(std::move(numbers))
    , m_marks(square.NrOfColumns(), square.NrOfRows())
{
    reserve(square.NrOfColumns(), square.NrOfRows());
}

void TableData::resize(int columns, int rows)
{
    reserve(columns, rows);
    square.resize(columns, rows);
}

void TableData::reserve(int columns, int rows)
{
    if (const QString problem = record::sizeProblem(columns, rows); !problem.isEmpty())
        throw GridError(problem.toLatin1().constData());
    try {
        if (square.store().holds(columns, rows) && m_marks.holds(columns, rows)) {
            square.store().reserve(columns, rows);
            m_marks.reserve(columns, rows);
        } else {
            auto values = square.store().grownTo(columns, rows);
            m_marks = m_marks.grownTo(columns, rows);
            square.store() = std::move(values);
        }
    } catch (const std::bad_alloc&) {
        throw GridError(record::outOfMemoryMessage().toLatin1().constData());
    }
}

std::uint8_t TableData::marks(int column, int row) const
{
    return hasColumn(column) && row <= square.NrOfRows() ? m_marks.at(column, row)
                                                         : std::uint8_t{NoMark};
}

int TableData::precision(int column) const
{
    return hasColumn(column) ? m_precisions.value(column, defaultPrecision) : 0;
}

void TableData::setPrecision(int column, int decimals)
{
    const int stored = std::clamp(decimals, -1, 8);
    if (stored == defaultPrecision)
        m_precisions.remove(column);
    else if (hasColumn(column))
        m_precisions.insert(column, stored);
}

TableShape TableData::shape() const
{
    return {square.NrOfColumns(), square.NrOfRows(), square.names(), m_precisions};
}

void TableData::setShape(const TableShape& shape)
{
    resize(shape.columns, shape.rows);
    square.setNames(shape.names);
    m_precisions = shape.precisions;
}

} // namespace grid
