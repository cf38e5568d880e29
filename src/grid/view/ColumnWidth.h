// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QFontMetrics;

namespace grid {

class NameHeader;
class TableModel;

/// The width in pixels that a column's name and the numbers of its first rows need, with a margin;
/// at most `widestColumn`. Columns count from 1.
int neededColumnWidth(const TableModel& model, int column, const QFontMetrics& cells,
                      const NameHeader& header);

constexpr int widestColumn = 200; ///< Pixels; a longer number is shown cut.

} // namespace grid
