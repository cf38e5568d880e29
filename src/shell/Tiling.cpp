// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Tiling.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <vector>

namespace shell {

namespace {

using Column = std::vector<QMdiSubWindow*>;

int leastHeight(const QMdiSubWindow* child)
{
    return child->minimumSizeHint().height();
}

int leastWidth(const QMdiSubWindow* child)
{
    return child->minimumSizeHint().width();
}

int leastWidthOf(const Column& column)
{
    int widest = 0;
    for (const QMdiSubWindow* child : column)
        widest = std::max(widest, leastWidth(child));
    return widest;
}

/// The least lengths, lengthened by equal parts of what is left; nothing where they are too long.
template <typename Things, typename Least>
std::optional<std::vector<int>> shares(int length, const Things& things, Least least)
{
    std::vector<int> lengths;
    for (const auto& thing : things)
        lengths.push_back(least(thing));
    int rest = length - std::accumulate(lengths.begin(), lengths.end(), 0);
    if (rest < 0)
        return std::nullopt;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const int part = rest / static_cast<int>(lengths.size() - i);
        lengths[i] += part;
        rest -= part;
    }
    return lengths;
}

/// As many columns as there need to be with so many rows, the widest children first.
std::vector<Column> columnsOf(const Column& children, std::size_t rows)
{
    std::vector<Column> columns;
    for (std::size_t first = 0; first < children.size(); first += rows) {
        const std::size_t last = std::min(first + rows, children.size());
        columns.emplace_back(children.begin() + static_cast<std::ptrdiff_t>(first),
                             children.begin() + static_cast<std::ptrdiff_t>(last));
    }
    return columns;
}

/// @return whether there is room; otherwise nothing is moved
bool arrange(const std::vector<Column>& columns, const QRect& room)
{
    const auto widths = shares(room.width(), columns, leastWidthOf);
    if (!widths)
        return false;
    std::vector<std::vector<int>> heights;
    for (const Column& column : columns) {
        auto inColumn = shares(room.height(), column, leastHeight);
        if (!inColumn)
            return false;
        heights.push_back(std::move(*inColumn));
    }
    int x = room.x();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        int y = room.y();
        for (std::size_t j = 0; j < columns[i].size(); ++j) {
            columns[i][j]->setGeometry(x, y, (*widths)[i], heights[i][j]);
            y += heights[i][j];
        }
        x += (*widths)[i];
    }
    return true;
}

} // namespace

void tile(QMdiArea& area)
{
    area.tileSubWindows();
    QRect room(QPoint(), area.maximumViewportSize());
    Column children;
    for (QMdiSubWindow* child : area.subWindowList()) {
        if (child->isMinimized())
            room.setBottom(std::min(room.bottom(), child->y() - 1));
        else if (child->isVisible())
            children.push_back(child);
    }
    const bool isAllWithin = std::ranges::all_of(
        children, [&room](const QMdiSubWindow* child) { return room.contains(child->geometry()); });
    if (isAllWithin)
        return;
    std::ranges::stable_sort(children, std::ranges::greater(), leastWidth);
    const auto rowsOfQt = static_cast<std::size_t>(std::sqrt(children.size()));
    for (std::size_t rows = std::max<std::size_t>(rowsOfQt, 1); rows <= children.size(); ++rows) {
        if (arrange(columnsOf(children, rows), room))
            return;
    }
}

} // namespace shell
