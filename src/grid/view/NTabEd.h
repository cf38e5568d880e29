// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellRange.h"
#include "grid/model/GridError.h"
#include "window/Dialogs.h"

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QTableView>

#include <cstdint>
#include <functional>
#include <set>

namespace grid {

class CellDelegate;
class ContextMenus;
class EditHistory;
class NameHeader;
class TableModel;
struct MarkColors;
enum class CursorStep;
enum class Scope;

/// The colour of a blue-green-red integer, red in its low byte: 255 is red.
QColor colorFromInteger(std::uint32_t blueGreenRed);

/// The numeric table grid: a header row of column names, a header column of row names, and doubles
/// in cells addressed (column, row) from 1.
///
/// Programs set cells and names through the routines below, which leave no trace in the undo
/// history and raise no OnChange; what the user does goes through the history.
class TNTabEd : public QTableView {
    Q_OBJECT

public:
    /// A table of 3 x 3 zeros. `dialogs` outlives the grid.
    /// @throws GridError "NTABED: failed to initialize table editor (out of memory)"
    explicit TNTabEd(window::Dialogs& dialogs, QWidget* parent = nullptr);
    ~TNTabEd() override;

    /// Data columns and rows, headers not counted.
    int NrOfColumns() const;
    int NrOfRows() const;
    /// A new size. What a smaller table hides comes back when it grows again. All or nothing.
    /// @throws GridError "array dimensions zero or negative"; with more than 16 million cells, or
    ///         without the memory for them, "NTABED: not enough memory on heap"
    void setNrOfColumns(int columns);
    void setNrOfRows(int rows);
    void resizeTable(int columns, int rows);
    /// A fresh table, as for a file that is about to be read into it: zeros, the names "C-1", "R-1"
    /// and so on, 3 decimals, attributes 0, no marks, no identifier, nothing hidden, no history.
    /// @throws GridError as resizeTable(), with everything as it was
    void resetTable(int columns, int rows);

    /// Decimals shown in a column, stored within -1..8; -1 shows as many as the number has.
    /// An index outside the table is ignored, and 0 when asked for.
    int precision(int column) const;
    void setPrecision(int column, int decimals);

    /// Names, cut to 50 characters; empty, and ignored, outside the table.
    QString columnName(int column) const;
    void setColumnName(int column, const QString& name);
    QString rowName(int row) const;
    void setRowName(int row, const QString& name);

    /// 0.0, and ignored, outside the table.
    double value(int column, int row) const;
    void setValue(int column, int row, double value);

    /// 0, and ignored, outside the table.
    std::uint8_t rowAttribute(int row) const;
    void setRowAttribute(int row, std::uint8_t attribute);

    /// The comment of the table: the first line of its file, the bytes as they are there.
    QByteArray Identifier() const;
    void setIdentifier(const QByteArray& identifier);

    void clearMarks();
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
    bool editingAllowed() const;
    void setEditingAllowed(bool allowed);
    /// A table to look at: nothing that the user does changes its numbers.
    bool readOnly() const;
    void setReadOnly(bool readOnly);

    /// Whether the cursor moves on after Enter: row by row, to the last cell and not beyond.
    bool AutoAdvance() const;
    void setAutoAdvance(bool advance);

    /// Pixels. A column is wider than its default where its numbers or its name need it.
    void setDefaultColWidth(int width);
    void setHeaderColumnWidth(int width);

    /// The size in which every cell shows without scrolling.
    QSize wholeSize() const;

    QColor ColorNormal() const;
    QColor ColorMarkedA() const;
    QColor ColorMarkedB() const;
    QColor ColorMarkedBoth() const;
    void setColorNormal(const QColor& color);
    void setColorMarkedA(const QColor& color);
    void setColorMarkedB(const QColor& color);
    void setColorMarkedBoth(const QColor& color);

signals:
    /// The user changed what the table holds: typing, "Paste", "Clear", "Extract from Clpbrd",
    /// "Edit Identifier", undo and redo of these.
    void OnChange();
    /// The user changed the size of the table: "Extract from Clpbrd", its undo and redo. Comes
    /// before OnChange.
    void TableResized(int columns, int rows);
    /// A short message for a status line.
    void Notice(const QString& text);

public slots:
    /// What the keyboard does with type-ahead search elsewhere: nothing, the table may be huge.
    void keyboardSearch(const QString& search) override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void setUpView();
    void connectUser();
    void connectWidths();
    void applyLightColors();
    void applyRowHeight();
    void applyEditability();
    void changeColors(const std::function<void(MarkColors&)>& change);

    void fitAllColumns();
    void fitColumns(int first, int last);

    bool canEdit() const;
    /// Runs what changes the table and shows a lack of memory as an error.
    void attempt(const std::function<void()>& action);
    /// Runs a user's command, once the open cell is taken over.
    void command(const std::function<void()>& action);
    void tellEditingIsOff();
    bool handleCommandKey(const QKeyEvent& key);
    /// Whether Tab or Shift+Tab would leave the table.
    bool isAtEdge(CursorStep step) const;
    void moveCursorBy(CursorStep step);
    void select(const CellRange& range);
    /// The selection, or the cursor's cell; no cells before the cursor has been anywhere.
    CellRange selectedRange() const;
    CellRange rangeOf(Scope scope) const;

    void enterValue(int column, int row, double value);
    void clear(const CellRange& range);
    void copy(const CellRange& range);
    void paste();
    void extract();
    void editIdentifier();
    void changePrecision();
    void undo();
    void redo();
    void tellStep(const QString& step, const CellRange& place);
    /// The menu key and Shift+F10; with Control for the menu of the names.
    void openMenuByKey(Qt::KeyboardModifiers modifiers);
    /// `column` is 0 where none was clicked: then it is the cursor's.
    void openHeaderMenu(const QPoint& globalPosition, int column);

    window::Dialogs& m_dialogs;
    TableModel* m_model;
    NameHeader* m_columnNames = nullptr;
    EditHistory* m_history;
    CellDelegate* m_delegate;
    ContextMenus* m_menus;
    bool m_editingAllowed = true;
    bool m_readOnly = false;
    bool m_autoAdvance = true;
    bool m_frozen = false;
    int m_defaultColWidth = 64;
    int m_headerMenuColumn = 1;
    std::set<int> m_columnsSetByUser; ///< Left alone when columns are fitted.
};

} // namespace grid
