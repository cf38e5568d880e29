// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellRange.h"
#include "grid/model/ClipboardNumbers.h"
#include "grid/model/TableModel.h"

#include <QObject>
#include <QUndoStack>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace grid {

/// What a window changes beside its table as a step is taken forth and back. It is told of the step
/// by these and by no signal but changed().
struct Alongside {
    std::function<void()> forth;
    std::function<void()> back;
};

/// The user's edits of a table and the way back from them. An edit that would change nothing is
/// none, and every one can be taken back. Steps survive a resize of the table: they reach the cells
/// that it has hidden.
///
/// All edits throw std::bad_alloc or GridError where memory is short, with everything as it was.
class EditHistory : public QObject {
    Q_OBJECT

public:
    explicit EditHistory(TableModel& model, QObject* parent = nullptr);

    void setValue(int column, int row, double value);
    /// Sets a rectangle to 0.
    void clear(const CellRange& range);
    /// Writes a block that fits with its first number at a cell.
    void paste(const NumberBlock& block, int column, int row);
    void mark(const CellRange& range, std::uint8_t set, std::uint8_t unset);
    void setPrecision(int column, int decimals);
    void setIdentifier(const QByteArray& identifier);
    void replaceTable(TableData table);
    void replaceTable(TableData table, const Alongside& alongside);
    /// Takes in what the window has done: the table had another shape before, or something beside
    /// it has changed.
    /// @param kind consecutive steps of one kind, 1 and up, become one; 0 stays alone
    void keepShape(const TableShape& before, const Alongside& alongside, int kind);

    bool canUndo() const { return m_stack.canUndo(); }
    bool canRedo() const { return m_stack.canRedo(); }
    /// Whether the step that undo() or redo() would take changes what the table holds.
    bool undoChangesContents() const { return changesContents(m_stack.index() - 1); }
    bool redoChangesContents() const { return changesContents(m_stack.index()); }
    /// @return the cells that the step changed, none where it was something else; nothing where
    ///         there was no step to take
    std::optional<CellRange> undo() { return take(m_stack.index() - 1, &QUndoStack::undo); }
    std::optional<CellRange> redo() { return take(m_stack.index(), &QUndoStack::redo); }
    void forget() { m_stack.clear(); }

signals:
    /// The table was changed, be it only in how it shows what it holds; comes before all others.
    void changed();
    /// The table holds something else.
    void contentsChanged();
    /// The table has another size; comes before contentsChanged().
    void resized(int columns, int rows);
    /// A step back or forth changed these cells.
    void stepped(const grid::CellRange& place);

private:
    /// What a step changes: cells (none where it is something else), and whether what the table
    /// holds rather than how it is shown. Of a row of steps of one kind, 1 and up, one is made.
    struct Change {
        CellRange place;
        bool ofContents = true;
        bool ofWindow = false; ///< Made by the window, which knows what it changes.
        int kind = 0;
    };
    class Command;

    void setValues(const CellRange& range, std::vector<double> values);
    /// Puts `after` in the place of `before`, through put(), where the two differ.
    template <typename T, typename Put>
    void replace(const Change& change, T before, T after, Put put);
    Alongside exchangeWith(TableData table);
    void runWith(const Alongside& alongside, int kind, const std::function<void()>& forth,
                 const std::function<void()>& back);
    void run(const Change& change, std::function<void()> forth, std::function<void()> back);
    /// The change of the command at an index of the history; nothing beyond its ends.
    std::optional<Change> changeAt(int index) const;
    bool changesContents(int index) const;
    std::optional<CellRange> take(int index, void (QUndoStack::*step)());
    /// Takes a step and tells what it changed. A listener may clear the history.
    template <typename Step>
    void tell(const Change& change, Step step);

    TableModel& m_model;
    QUndoStack m_stack;
};

} // namespace grid
