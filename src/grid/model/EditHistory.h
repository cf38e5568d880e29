// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellRange.h"
#include "grid/model/ClipboardNumbers.h"
#include "grid/model/TableModel.h"

#include <QObject>
#include <QUndoStack>

#include <cstdint>
#include <memory>
#include <optional>

namespace grid {

class EditCommand;

/// The user's edits of a table and the way back from them. An edit that would change nothing is
/// none. Steps survive a resize of the table: they reach the cells that it has hidden.
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

    /// Whether the step that undo() or redo() would take changes what the table holds.
    bool undoChangesContents() const;
    bool redoChangesContents() const;
    /// @return the cells that the step changed, none where it was something else; nothing where
    ///         there was no step to take
    std::optional<CellRange> undo();
    std::optional<CellRange> redo();
    void forget();

signals:
    /// The table holds something else.
    void contentsChanged();
    /// The table has another size; comes before contentsChanged().
    void resized(int columns, int rows);
    /// A step back or forth changed these cells.
    void stepped(const grid::CellRange& place);

private:
    void setValues(const CellRange& range, std::vector<double> values);
    void run(std::unique_ptr<EditCommand> command);
    /// The command at an index of the history, null beyond its ends.
    const EditCommand* commandAt(int index) const;
    /// Takes a step and tells what it changed. A listener may clear the history.
    template <typename Step>
    void take(bool changesContents, Step step);

    TableModel& m_model;
    QUndoStack m_stack;
};

} // namespace grid
