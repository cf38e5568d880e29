// SPDX-License-Identifier: GPL-3.0-or-later
// Keys, mouse and cursor of the grid.
#include "grid/view/NTabEd.h"

#include "grid/model/TableModel.h"
#include "grid/view/CellDelegate.h"
#include "grid/view/ContextMenus.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>

namespace grid {

namespace {

/// The keys that belong to the table even where a menu has the same shortcut.
bool isOwnShortcut(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) ||
           key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Paste) ||
           key.matches(QKeySequence::Delete);
}

bool isEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

} // namespace

bool TNTabEd::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && state() != EditingState &&
        isOwnShortcut(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void TNTabEd::keyPressEvent(QKeyEvent* event)
{
    // What an open cell leaves over is not for the table behind it; Ctrl+A opens files.
    if (state() == EditingState || event->matches(QKeySequence::SelectAll)) {
        event->ignore();
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers().testFlag(Qt::ShiftModifier)) {
        openMenuByKey(event->modifiers());
        event->accept();
        return;
    }
    if (handleCommandKey(*event)) {
        event->accept();
        return;
    }
    if (isEnter(*event)) {
        event->setAccepted(m_autoAdvance);
        moveCursorBy(CursorStep::Next);
        return;
    }
    const bool tab = event->key() == Qt::Key_Tab;
    if (tabKeyNavigation() && (tab || event->key() == Qt::Key_Backtab)) {
        const CursorStep step = tab ? CursorStep::Right : CursorStep::Left;
        event->setAccepted(!isAtEdge(step));
        moveCursorBy(step);
        return;
    }
    QTableView::keyPressEvent(event);
}

bool TNTabEd::handleCommandKey(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Undo))
        command([this] { undo(); });
    else if (key.matches(QKeySequence::Redo))
        command([this] { redo(); });
    else if (key.matches(QKeySequence::Copy))
        command([this] { copy(selectedRange()); });
    else if (key.matches(QKeySequence::Paste))
        command([this] { paste(); });
    else if (key.matches(QKeySequence::Delete))
        command([this] { clear(selectedRange()); });
    else
        return false;
    return true;
}

void TNTabEd::keyboardSearch(const QString&)
{
    // Reached by typing where editing is off.
    tellEditingIsOff();
}

void TNTabEd::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        openMenuByKey(event->modifiers());
        return;
    }
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && index != currentIndex()) {
        selectionModel()->setCurrentIndex(index, selectionModel()->isSelected(index)
                                                     ? QItemSelectionModel::NoUpdate
                                                     : QItemSelectionModel::ClearAndSelect);
    }
    m_menus->openCellMenu(event->globalPos(), {m_editingAllowed, m_readOnly});
}

void TNTabEd::openMenuByKey(Qt::KeyboardModifiers modifiers)
{
    // The names cannot have the focus: with Control the key opens the menu of the cursor's column.
    const QPoint position = viewport()->mapToGlobal(visualRect(currentIndex()).center());
    if (modifiers.testFlag(Qt::ControlModifier))
        openHeaderMenu(position, 0);
    else
        m_menus->openCellMenu(position, {m_editingAllowed, m_readOnly});
}

void TNTabEd::openHeaderMenu(const QPoint& globalPosition, int column)
{
    m_headerMenuColumn = column >= 1 ? column : std::max(1, currentIndex().column() + 1);
    m_menus->openHeaderMenu(globalPosition, {m_editingAllowed, m_readOnly});
}

bool TNTabEd::isAtEdge(CursorStep step) const
{
    const QModelIndex edge = step == CursorStep::Left
                                 ? m_model->index(0, 0)
                                 : m_model->index(NrOfRows() - 1, NrOfColumns() - 1);
    return !currentIndex().isValid() || currentIndex() == edge;
}

void TNTabEd::moveCursorBy(CursorStep step)
{
    const QModelIndex current = currentIndex();
    if (!current.isValid() || step == CursorStep::Stay ||
        (step == CursorStep::Next && !m_autoAdvance))
        return;
    int column = current.column();
    int row = current.row();
    switch (step) {
    case CursorStep::Up:
        --row;
        break;
    case CursorStep::Down:
        ++row;
        break;
    case CursorStep::Left:
        row -= column == 0 ? 1 : 0;
        column = column == 0 ? NrOfColumns() - 1 : column - 1;
        break;
    default:
        row += column == NrOfColumns() - 1 ? 1 : 0;
        column = column == NrOfColumns() - 1 ? 0 : column + 1;
    }
    if (row >= 0 && row < NrOfRows())
        setCurrentIndex(m_model->index(row, column));
}

void TNTabEd::select(const CellRange& range)
{
    const QModelIndex first = m_model->index(std::min(range.row, NrOfRows()) - 1,
                                             std::min(range.column, NrOfColumns()) - 1);
    const QModelIndex last = m_model->index(std::min(range.lastRow(), NrOfRows()) - 1,
                                            std::min(range.lastColumn(), NrOfColumns()) - 1);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    scrollTo(first);
}

CellRange TNTabEd::selectedRange() const
{
    const QItemSelection selection = selectionModel()->selection(); // at most one rectangle
    if (selection.isEmpty()) {
        const int cursor = currentIndex().isValid() ? 1 : 0;
        return {currentIndex().column() + 1, currentIndex().row() + 1, cursor, cursor};
    }
    const QItemSelectionRange& range = selection.first();
    return {range.left() + 1, range.top() + 1, range.width(), range.height()};
}

CellRange TNTabEd::rangeOf(Scope scope) const
{
    const QModelIndex cursor = currentIndex();
    if (scope == Scope::All)
        return m_model->table().range();
    if (scope == Scope::Range || !cursor.isValid())
        return selectedRange();
    if (scope == Scope::Column)
        return {cursor.column() + 1, 1, 1, NrOfRows()};
    return {1, cursor.row() + 1, NrOfColumns(), 1};
}

} // namespace grid
