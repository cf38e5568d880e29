// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/ColumnWidth.h"

#include "grid/model/TableModel.h"
#include "grid/view/NameHeader.h"

#include <QFontMetrics>

#include <algorithm>

namespace grid {

namespace {

constexpr int rowsLookedAt = 200;
constexpr int cellMargin = 12; // pixels left and right of a number, together
constexpr int columnGap = 4;   // pixels between a name and its neighbour

} // namespace

int neededColumnWidth(const TableModel& model, int column, const QFontMetrics& cells,
                      const NameHeader& header)
{
    const QString name = model.headerData(column - 1, Qt::Horizontal).toString();
    int width = header.neededWidth(name) + columnGap;
    const int rows = std::min(model.rowCount(), rowsLookedAt);
    for (int row = 0; row < rows && width < widestColumn; ++row) {
        const QString number = model.data(model.index(row, column - 1)).toString();
        width = std::max(width, cells.horizontalAdvance(number) + cellMargin);
    }
    return std::min(width, widestColumn);
}

} // namespace grid
