// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/Cursor.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QTableView>

#include <algorithm>

namespace grid {

namespace {

int columnsOf(const QTableView& view)
{
    return view.model()->columnCount();
}

int rowsOf(const QTableView& view)
{
    return view.model()->rowCount();
}

/// The cell, or the last one of the table that lies before it.
QModelIndex indexOf(const QTableView& view, int column, int row)
{
    return view.model()->index(std::min(row, rowsOf(view)) - 1,
                               std::min(column, columnsOf(view)) - 1);
}

} // namespace

std::optional<CursorStep> stepOf(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return CursorStep::Next;
    case Qt::Key_Tab:
        return CursorStep::Right;
    case Qt::Key_Backtab:
        return CursorStep::Left;
    case Qt::Key_Up:
        return CursorStep::Up;
    case Qt::Key_Down:
        return CursorStep::Down;
    default:
        return std::nullopt;
    }
}

void stepCursor(QTableView& view, CursorStep step)
{
    const QModelIndex current = view.currentIndex();
    if (!current.isValid() || step == CursorStep::Stay)
        return;
    const int lastColumn = columnsOf(view) - 1;
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
        column = column == 0 ? lastColumn : column - 1;
        break;
    default:
        row += column == lastColumn ? 1 : 0;
        column = column == lastColumn ? 0 : column + 1;
    }
    if (row >= 0 && row < rowsOf(view))
        view.setCurrentIndex(view.model()->index(row, column));
}

bool isAtEdge(const QTableView& view, CursorStep step)
{
    const QModelIndex current = view.currentIndex();
    const QModelIndex edge = step == CursorStep::Left
                                 ? indexOf(view, 1, 1)
                                 : indexOf(view, columnsOf(view), rowsOf(view));
    return !current.isValid() || current == edge;
}

void select(QTableView& view, const CellRange& range)
{
    const QModelIndex first = indexOf(view, range.column, range.row);
    const QModelIndex last = indexOf(view, range.lastColumn(), range.lastRow());
    view.selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    view.selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    view.scrollTo(first);
}

CellRange selectedRange(const QTableView& view)
{
    const QItemSelection selection = view.selectionModel()->selection(); // at most one rectangle
    const QModelIndex cursor = view.currentIndex();
    if (selection.isEmpty()) {
        const int cells = cursor.isValid() ? 1 : 0;
        return {cursor.column() + 1, cursor.row() + 1, cells, cells};
    }
    const QItemSelectionRange& range = selection.first();
    return {range.left() + 1, range.top() + 1, range.width(), range.height()};
}

CellRange rangeOf(const QTableView& view, Scope scope)
{
    const QModelIndex cursor = view.currentIndex();
    if (scope == Scope::All)
        return {1, 1, columnsOf(view), rowsOf(view)};
    if (scope == Scope::Range || !cursor.isValid())
        return selectedRange(view);
    if (scope == Scope::Column)
        return {cursor.column() + 1, 1, 1, rowsOf(view)};
    return {1, cursor.row() + 1, columnsOf(view), 1};
}

} // namespace grid
