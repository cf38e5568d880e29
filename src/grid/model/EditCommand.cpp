// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/EditCommand.h"

#include "grid/model/TableModel.h"

#include <utility>

namespace grid {

ValuesCommand::ValuesCommand(TableModel& model, const CellRange& range, std::vector<double> after)
    : m_model(model)
    , m_range(range)
    , m_after(std::move(after))
{
    m_before.reserve(range.cells());
    for (int row = range.row; row <= range.lastRow(); ++row) {
        for (int column = range.column; column <= range.lastColumn(); ++column)
            m_before.push_back(model.table().value(column, row));
    }
}

void ValuesCommand::undo()
{
    m_model.setStoredValues(m_range, m_before);
}

void ValuesCommand::redo()
{
    m_model.setStoredValues(m_range, m_after);
}

MarksCommand::MarksCommand(TableModel& model, const CellRange& range, std::uint8_t set,
                           std::uint8_t unset)
    : m_model(model)
    , m_range(range)
{
    m_before.reserve(range.cells());
    m_after.reserve(range.cells());
    for (int row = range.row; row <= range.lastRow(); ++row) {
        for (int column = range.column; column <= range.lastColumn(); ++column) {
            const unsigned marks = model.table().marks(column, row);
            m_before.push_back(static_cast<std::uint8_t>(marks));
            m_after.push_back(static_cast<std::uint8_t>((marks | set) & ~unsigned{unset}));
        }
    }
}

void MarksCommand::undo()
{
    m_model.setStoredMarks(m_range, m_before);
}

void MarksCommand::redo()
{
    m_model.setStoredMarks(m_range, m_after);
}

PrecisionCommand::PrecisionCommand(TableModel& model, int column, int decimals)
    : m_model(model)
    , m_column(column)
    , m_before(model.table().precision(column))
    , m_after(decimals)
{
}

void PrecisionCommand::undo()
{
    m_model.setPrecision(m_column, m_before);
}

void PrecisionCommand::redo()
{
    m_model.setPrecision(m_column, m_after);
}

IdentifierCommand::IdentifierCommand(TableModel& model, QByteArray after)
    : m_model(model)
    , m_before(model.table().identifier)
    , m_after(std::move(after))
{
}

void IdentifierCommand::undo()
{
    m_model.setIdentifier(m_before);
}

void IdentifierCommand::redo()
{
    m_model.setIdentifier(m_after);
}

TableCommand::TableCommand(TableModel& model, TableData after)
    : m_model(model)
    , m_other(std::move(after))
{
}

void TableCommand::undo()
{
    m_model.exchange(m_other);
}

void TableCommand::redo()
{
    m_model.exchange(m_other);
}

} // namespace grid
