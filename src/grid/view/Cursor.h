// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/CellRange.h"

#include <optional>

class QKeyEvent;
class QTableView;

/// The cursor of a table view and the cells that a command acts on. Columns and rows count from 1;
/// without a cursor, as in a table that nobody has clicked on, there are no cells.
namespace grid {

/// Where the cursor goes from a cell.
enum class CursorStep { Stay, Next, Right, Left, Up, Down };

/// The step by which a key leaves an open cell; nothing for keys that edit it. Enter and Tab step
/// from a closed one too.
std::optional<CursorStep> stepOf(const QKeyEvent& key);

/// The cells that "Clear" and "Copy" act on.
enum class Scope { Range, Column, Row, All };

/// To the right and to the left row by row; beyond the table's ends it stays.
void stepCursor(QTableView& view, CursorStep step);

/// Whether a step to the right, or to the left, would leave the table.
bool isAtEdge(const QTableView& view, CursorStep step);

/// Selects what the table shows of a range, with the cursor on its first cell.
void select(QTableView& view, const CellRange& range);

/// The selection, or the cursor's cell.
CellRange selectedRange(const QTableView& view);

CellRange rangeOf(const QTableView& view, Scope scope);

} // namespace grid
