// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/EditHistory.h"

#include <QUndoCommand>

#include <exception>
#include <memory>
#include <new>
#include <utility>

namespace grid {

namespace {

/// A table outside the model, which takes the place of the one inside.
struct OtherTable {
    TableData table;
    bool isIn = false; ///< It is in the model, and the model's is here.
};

} // namespace

/// One step: how it is taken and how it is taken back. Both may be called where they have nothing
/// to do any more, and where one throws, the other has put everything back.
class EditHistory::Command : public QUndoCommand {
public:
    Command(const Change& change, std::function<void()> forth, std::function<void()> back)
        : m_change(change)
        , m_forth(std::move(forth))
        , m_back(std::move(back))
    {
    }
    const Change& change() const { return m_change; }
    void redo() override { take(m_forth, m_back); }
    void undo() override { take(m_back, m_forth); }
    bool isTaken() const { return m_isTaken; }
    int id() const override { return m_change.kind > 0 ? m_change.kind : -1; }
    bool mergeWith(const QUndoCommand* next) override
    {
        m_forth = static_cast<const Command*>(next)->m_forth;
        return true;
    }

private:
    void take(const std::function<void()>& step, const std::function<void()>& otherWay)
    {
        try {
            step();
        } catch (const std::exception&) {
            try {
                otherWay();
            } catch (const std::bad_alloc&) {
                // The table is as it was; its views look at it when there is memory again.
            }
            throw;
        }
        m_isTaken = !m_isTaken;
    }

    Change m_change;
    std::function<void()> m_forth;
    std::function<void()> m_back;
    bool m_isTaken = false;
};

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
    std::vector<double> before;
    before.reserve(range.cells());
    range.forEachCell(
        [&](int column, int row) { before.push_back(m_model.square().value(column, row)); });
    replace({range}, std::move(before), std::move(values),
            [this, range](const auto& put) { m_model.setStoredValues(range, put); });
}

void EditHistory::mark(const CellRange& range, std::uint8_t set, std::uint8_t unset)
{
    std::vector<std::uint8_t> before;
    std::vector<std::uint8_t> after;
    before.reserve(range.cells());
    after.reserve(range.cells());
    range.forEachCell([&](int column, int row) {
        const unsigned marks = m_model.table().marks(column, row);
        before.push_back(static_cast<std::uint8_t>(marks));
        after.push_back(static_cast<std::uint8_t>((marks | set) & ~unsigned{unset}));
    });
    replace({range, false}, std::move(before), std::move(after),
            [this, range](const auto& put) { m_model.setStoredMarks(range, put); });
}

void EditHistory::setPrecision(int column, int decimals)
{
    replace({{column, 1, 1, 1}, false}, m_model.table().precision(column), decimals,
            [this, column](int put) { m_model.setPrecision(column, put); });
}

void EditHistory::setIdentifier(const QByteArray& identifier)
{
    replace({}, m_model.square().Identifier(), identifier,
            [this](const QByteArray& put) { m_model.setIdentifier(put); });
}

void EditHistory::replaceTable(TableData table)
{
    const Alongside exchange = exchangeWith(std::move(table));
    run({}, exchange.forth, exchange.back);
}

void EditHistory::replaceTable(TableData table, const Alongside& alongside)
{
    const Alongside exchange = exchangeWith(std::move(table));
    runWith(alongside, 0, exchange.forth, exchange.back);
}

Alongside EditHistory::exchangeWith(TableData table)
{
    const auto other = std::make_shared<OtherTable>(OtherTable{std::move(table)});
    const auto exchangeUnless = [this, other](bool isThere) {
        return [this, other, isThere] {
            if (other->isIn != isThere)
                m_model.exchange(other->table, other->isIn);
        };
    };
    return {exchangeUnless(true), exchangeUnless(false)};
}

void EditHistory::keepShape(const TableShape& before, const Alongside& alongside, int kind)
{
    const auto put = [this](const TableShape& shape) {
        return [this, shape] { m_model.setShape(shape); };
    };
    runWith(alongside, kind, put(m_model.table().shape()), put(before));
}

void EditHistory::runWith(const Alongside& alongside, int kind, const std::function<void()>& forth,
                          const std::function<void()>& back)
{
    const auto both = [](const std::function<void()>& table, const std::function<void()>& window) {
        return [table, window] {
            try {
                table();
            } catch (const std::bad_alloc&) {
                window(); // the table has changed, but not all views know
                throw;
            }
            window();
        };
    };
    run({{}, true, true, kind}, both(forth, alongside.forth), both(back, alongside.back));
}

template <typename T, typename Put>
void EditHistory::replace(const Change& change, T before, T after, Put put)
{
    if (before == after)
        return;
    run(
        change, [put, after = std::move(after)] { put(after); },
        [put, before = std::move(before)] { put(before); });
}

void EditHistory::run(const Change& change, std::function<void()> forth, std::function<void()> back)
{
    auto command = std::make_unique<Command>(change, std::move(forth), std::move(back));
    tell(change, [&] {
        try {
            m_stack.push(command.get());
        } catch (const std::bad_alloc&) {
            if (command->isTaken())
                command->undo();
            throw;
        }
        static_cast<void>(command.release()); // the stack's from now on
    });
}

std::optional<EditHistory::Change> EditHistory::changeAt(int index) const
{
    const auto* command = static_cast<const Command*>(m_stack.command(index));
    return command != nullptr ? std::optional(command->change()) : std::nullopt;
}

bool EditHistory::changesContents(int index) const
{
    const std::optional<Change> change = changeAt(index);
    return change && change->ofContents;
}

std::optional<CellRange> EditHistory::take(int index, void (QUndoStack::*step)())
{
    const std::optional<Change> change = changeAt(index);
    if (!change)
        return std::nullopt;
    tell(*change, [this, step] { (m_stack.*step)(); });
    if (change->place.cells() > 0)
        emit stepped(change->place);
    return change->place;
}

template <typename Step>
void EditHistory::tell(const Change& change, Step step)
{
    const int columns = m_model.square().NrOfColumns();
    const int rows = m_model.square().NrOfRows();
    step();
    emit changed();
    if (change.ofWindow)
        return;
    if (columns != m_model.square().NrOfColumns() || rows != m_model.square().NrOfRows())
        emit resized(m_model.square().NrOfColumns(), m_model.square().NrOfRows());
    if (change.ofContents)
        emit contentsChanged();
}

} // namespace grid
