// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/EditHistory.h"

#include "grid/model/EditCommand.h"

#include <utility>

namespace grid {

EditHistory::EditHistory(TableModel& model, QObject* parent)
    : QObject(parent)
    , m_model(model)
{
}

void EditHistory::setValue(int column, int row, double value)
{
    setValues({column, row, 1, 1}, {value});
}

void EditHistory::clear(const CellRange& range)
{
    setValues(range, std::vector<double>(range.cells(), 0.0));
}

void EditHistory::paste(const NumberBlock& block, int column, int row)
{
    setValues({column, row, block.columns, block.rows}, block.values);
}

void EditHistory::setValues(const CellRange& range, std::vector<double> values)
{
    auto command = std::make_unique<ValuesCommand>(m_model, range, std::move(values));
    if (command->changesSomething())
        run(std::move(command));
}

void EditHistory::mark(const CellRange& range, std::uint8_t set, std::uint8_t unset)
{
    auto command = std::make_unique<MarksCommand>(m_model, range, set, unset);
    if (command->changesSomething())
        run(std::move(command));
}

void EditHistory::setPrecision(int column, int decimals)
{
    if (decimals != m_model.table().precision(column))
        run(std::make_unique<PrecisionCommand>(m_model, column, decimals));
}

void EditHistory::setIdentifier(const QByteArray& identifier)
{
    if (identifier != m_model.table().identifier)
        run(std::make_unique<IdentifierCommand>(m_model, identifier));
}

void EditHistory::replaceTable(TableData table)
{
    run(std::make_unique<TableCommand>(m_model, std::move(table)));
}

bool EditHistory::undoChangesContents() const
{
    const EditCommand* command = commandAt(m_stack.index() - 1);
    return command != nullptr && command->changesContents();
}

bool EditHistory::redoChangesContents() const
{
    const EditCommand* command = commandAt(m_stack.index());
    return command != nullptr && command->changesContents();
}

std::optional<CellRange> EditHistory::undo()
{
    const EditCommand* command = commandAt(m_stack.index() - 1);
    if (command == nullptr)
        return std::nullopt;
    const CellRange place = command->place();
    take(command->changesContents(), [this] { m_stack.undo(); });
    if (place.cells() > 0)
        emit stepped(place);
    return place;
}

std::optional<CellRange> EditHistory::redo()
{
    const EditCommand* command = commandAt(m_stack.index());
    if (command == nullptr)
        return std::nullopt;
    const CellRange place = command->place();
    take(command->changesContents(), [this] { m_stack.redo(); });
    if (place.cells() > 0)
        emit stepped(place);
    return place;
}

void EditHistory::forget()
{
    m_stack.clear();
}

void EditHistory::run(std::unique_ptr<EditCommand> command)
{
    const bool changesContents = command->changesContents();
    take(changesContents, [&] { m_stack.push(command.release()); });
}

const EditCommand* EditHistory::commandAt(int index) const
{
    return static_cast<const EditCommand*>(m_stack.command(index));
}

template <typename Step>
void EditHistory::take(bool changesContents, Step step)
{
    const int columns = m_model.table().columns();
    const int rows = m_model.table().rows();
    step();
    if (columns != m_model.table().columns() || rows != m_model.table().rows())
        emit resized(m_model.table().columns(), m_model.table().rows());
    if (changesContents)
        emit contentsChanged();
}

} // namespace grid
