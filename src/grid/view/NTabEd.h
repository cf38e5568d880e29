// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/EditHistory.h"
#include "grid/model/GridError.h"
#include "grid/model/TableModel.h"
#include "grid/view/ColumnWidths.h"
#include "grid/view/GridCommands.h"
#include "record/SquareData.h"
#include "window/Dialogs.h"

#include <QByteArray>
#include <QColor>
#include <QHeaderView>
#include <QString>
#include <QTableView>

#include <cstdint>
#include <utility>

namespace grid {

class CellDelegate;
class ContextMenus;
class NameHeader;

/// The colour of a blue-green-red integer, red in its low byte: 255 is red.
QColor colorFromInteger(std::uint32_t blueGreenRed);

/// The numeric table grid: a header row of column names, a header column of row names, and doubles
/// in cells addressed (column, row) from 1.
///
/// Programs set cells and names through the routines below, which leave no trace in the undo
/// history and raise no OnChange; what the user does goes through the history. What a form may set
/// starts as this program has it, so that some of the setters, those of the colours among them, are
/// called by tests alone: they are for whoever else builds a form with a grid.
class TNTabEd : public QTableView {
    Q_OBJECT

public:
    /// A table of 3 x 3 zeros. `dialogs` outlives the grid.
    /// @throws GridError "NTABED: failed to initialize table editor (out of memory)"
    explicit TNTabEd(window::Dialogs& dialogs, QWidget* parent = nullptr);
    ~TNTabEd() override;

    /// Data columns and rows, headers not counted.
    int NrOfColumns() const { return square().NrOfColumns(); }
    int NrOfRows() const { return square().NrOfRows(); }
    /// A new size. What a smaller table hides comes back when it grows again. All or nothing.
    /// @throws GridError "array dimensions zero or negative"; with more than 16 million cells, or
    ///         without the memory for them, "NTABED: not enough memory on heap"
    void setNrOfColumns(int columns) { resizeTable(columns, NrOfRows()); }
    void setNrOfRows(int rows) { resizeTable(NrOfColumns(), rows); }
    void resizeTable(int columns, int rows) { m_model->resize(columns, rows); }
    /// The square in the table: its size, names, attributes, identifier and values.
    const record::SquareData& square() const { return m_model->square(); }
    /// Another square in the place of the whole table: with 3 decimals, without marks or history.
    /// This and the next throw GridError where the memory does not suffice, with everything as it
    /// was.
    void setSquare(record::SquareData square);

    /// The same as a step that the user can take back, with what else it changes in the window.
    void exchangeSquare(record::SquareData square, const Alongside& alongside);

    /// Size, names and precisions together.
    TableShape shape() const { return m_model->table().shape(); }
    void setShape(const TableShape& shape) { m_model->setShape(shape); }
    /// Makes a step that the user can take back of a change of the shape, as
    /// EditHistory::keepShape().
    void keepShape(const TableShape& before, const Alongside& alongside, int kind);

    /// Decimals shown in a column, stored within -1..8; -1 shows as many as the number has.
    /// An index outside the table is ignored, and 0 when asked for.
    int precision(int column) const { return m_model->table().precision(column); }
    void setPrecision(int column, int decimals) { m_model->setPrecision(column, decimals); }

    /// Names, cut to record::longestName; empty, and ignored, outside the table.
    QString columnName(int column) const { return square().columnName(column); }
    void setColumnName(int column, const QString& name) { m_model->setColumnName(column, name); }
    QString rowName(int row) const { return square().rowName(row); }
    void setRowName(int row, const QString& name) { m_model->setRowName(row, name); }

    /// 0.0, and ignored, outside the table.
    double value(int column, int row) const { return square().value(column, row); }
    void setValue(int column, int row, double value) { m_model->setValue(column, row, value); }

    /// 0, and ignored, outside the table.
    std::uint8_t rowAttribute(int row) const { return square().rowAttribute(row); }
    void setRowAttribute(int row, std::uint8_t attribute)
    {
        m_model->setRowAttribute(row, attribute);
    }

    /// The comment of the table: the first line of its file, the bytes as they are there.
    QByteArray Identifier() const { return square().Identifier(); }
    void setIdentifier(const QByteArray& identifier) { m_model->setIdentifier(identifier); }

    /// Forgets what could be undone and redone.
    void clearHistory();

    /// Between the two nothing is repainted, and release() repaints once. Not nested: freezing
    /// twice is as once.
    void freeze();
    void release();

    /// Takes over the text of a cell that is being edited, for a command that is about to act.
    /// @return false when the text was refused: the user has been told, and the cell stays open
    bool commitEdit();

    /// What "Edit on/Off" switches: typing, "Clear", "Paste" and the like.
    bool editingAllowed() const { return m_commands->rights().editingAllowed; }
    void setEditingAllowed(bool allowed) { m_commands->setRights({allowed, readOnly()}); }
    /// A table to look at: nothing that the user does changes its numbers.
    bool readOnly() const { return m_commands->rights().readOnly; }
    void setReadOnly(bool readOnly) { m_commands->setRights({editingAllowed(), readOnly}); }

    /// Whether the cursor moves on after Enter: row by row, to the last cell and not beyond.
    bool AutoAdvance() const { return m_autoAdvance; }
    void setAutoAdvance(bool advance) { m_autoAdvance = advance; }

    /// What "Extract from Clpbrd" reads with; without it the entry does nothing.
    void setExtractor(Extractor extractor) { m_commands->setExtractor(std::move(extractor)); }

    /// What "Paste" tells the user of numbers that are too many for the table.
    void setSizeAdvice(SizeAdvice advice) { m_commands->setSizeAdvice(std::move(advice)); }

    /// Names of the treatments 1, 2, ... where "Extract from Clpbrd" has told them.
    const QStringList& treatments() const { return m_model->table().treatments; }
    /// Tool tips for the cells.
    void setCellTip(CellTip tip) { m_model->setCellTip(std::move(tip)); }
    /// Gives one cell a background of its own; none outside the table.
    void pointAt(int column, int row) { m_model->pointAt(column, row); }

    /// Pixels, 64 and 80 at first. A column is wider than its default where its numbers or its name
    /// need it.
    void setDefaultColWidth(int width) { m_widths->setUsual(width); }
    void setHeaderColumnWidth(int width) { verticalHeader()->setFixedWidth(width); }

    /// The size in which every cell shows without scrolling.
    QSize wholeSize() const;

    QColor ColorNormal() const { return m_model->colors().normal; }
    QColor ColorMarkedA() const { return m_model->colors().markedA; }
    QColor ColorMarkedB() const { return m_model->colors().markedB; }
    QColor ColorMarkedBoth() const { return m_model->colors().markedBoth; }
    void setColorNormal(const QColor& color) { setColor(&MarkColors::normal, color); }
    void setColorMarkedA(const QColor& color) { setColor(&MarkColors::markedA, color); }
    void setColorMarkedB(const QColor& color) { setColor(&MarkColors::markedB, color); }
    void setColorMarkedBoth(const QColor& color) { setColor(&MarkColors::markedBoth, color); }

signals:
    /// The user changed what the table holds: typing, "Paste", "Clear", "Extract from Clpbrd",
    /// "Edit Identifier", undo and redo of these; not where the window was told of it alongside.
    void OnChange();
    /// The user changed the size of the table: "Extract from Clpbrd", its undo and redo. Comes
    /// before OnChange.
    void TableResized(int columns, int rows);
    /// The user changed the table, be it only its marks and precisions. Comes before all others.
    void Edited();
    /// wholeSize() may have another width.
    void WidthChanged();
    /// A short message for a status line.
    void Notice(const QString& text);

public slots:
    /// Takes the last of the user's changes back, and forth again, as the keys do.
    void undo();
    void redo();

    /// Reached by typing where no cell opens: there is no search, the table may be huge, but the
    /// user is told why.
    void keyboardSearch(const QString& search) override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void setUpView();
    void setUpNames();
    void connectParts();
    void applyRowHeight();
    void setColor(QColor MarkColors::*which, const QColor& color);
    void leaveCell(CursorStep step);

    TableModel* m_model;
    EditHistory* m_history;
    CellDelegate* m_delegate;
    GridCommands* m_commands;
    NameHeader* m_columnNames = nullptr;
    ColumnWidths* m_widths = nullptr;
    ContextMenus* m_menus = nullptr;
    bool m_autoAdvance = true;
};

/// Keeps a grid from repainting while it lives, and repaints it once at the end of its life.
class Freeze {
public:
    explicit Freeze(TNTabEd& table)
        : m_table(table)
    {
        m_table.freeze();
    }
    ~Freeze() { m_table.release(); }
    Freeze(const Freeze&) = delete;
    Freeze& operator=(const Freeze&) = delete;

private:
    TNTabEd& m_table;
};

} // namespace grid
