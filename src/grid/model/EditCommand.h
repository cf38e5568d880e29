// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellRange.h"
#include "grid/model/TableData.h"

#include <QUndoCommand>

#include <cstdint>
#include <vector>

namespace grid {

class TableModel;

/// One step of the undo history of a grid.
class EditCommand : public QUndoCommand {
public:
    /// Whether it changes what the table holds rather than how it is shown.
    virtual bool changesContents() const { return true; }
    /// The cells to be shown to the user once it was undone or redone; none for what is no cell's.
    virtual CellRange place() const { return {}; }
};

/// New values in a rectangle.
class ValuesCommand : public EditCommand {
public:
    ValuesCommand(TableModel& model, const CellRange& range, std::vector<double> after);
    bool changesSomething() const { return m_after != m_before; }
    void undo() override;
    void redo() override;
    CellRange place() const override { return m_range; }

private:
    TableModel& m_model;
    CellRange m_range;
    std::vector<double> m_before;
    std::vector<double> m_after;
};

/// Marks set and taken away in a rectangle.
class MarksCommand : public EditCommand {
public:
    MarksCommand(TableModel& model, const CellRange& range, std::uint8_t set, std::uint8_t unset);
    bool changesSomething() const { return m_after != m_before; }
    void undo() override;
    void redo() override;
    bool changesContents() const override { return false; }
    CellRange place() const override { return m_range; }

private:
    TableModel& m_model;
    CellRange m_range;
    std::vector<std::uint8_t> m_before;
    std::vector<std::uint8_t> m_after;
};

/// Another precision of one column.
class PrecisionCommand : public EditCommand {
public:
    PrecisionCommand(TableModel& model, int column, int decimals);
    void undo() override;
    void redo() override;
    bool changesContents() const override { return false; }
    CellRange place() const override { return {m_column, 1, 1, 1}; }

private:
    TableModel& m_model;
    int m_column;
    int m_before;
    int m_after;
};

/// Another identifier.
class IdentifierCommand : public EditCommand {
public:
    IdentifierCommand(TableModel& model, QByteArray after);
    void undo() override;
    void redo() override;

private:
    TableModel& m_model;
    QByteArray m_before;
    QByteArray m_after;
};

/// Another table in the place of the whole old one.
class TableCommand : public EditCommand {
public:
    TableCommand(TableModel& model, TableData after);
    void undo() override;
    void redo() override;

private:
    TableModel& m_model;
    TableData m_other; ///< The table that is not in the model now.
};

} // namespace grid
