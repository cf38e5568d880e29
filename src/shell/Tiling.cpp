// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Tiling.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>
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

/// Lengths that are alike as far as none is less than its least one; nothing where there is no room
/// for these.
template <typename Things, typename Least>
std::optional<std::vector<int>> shares(int length, const Things& things, Least least)
{
    std::vector<int> lengths(things.size());
    std::ranges::transform(things, lengths.begin(), least);
    if (std::accumulate(lengths.begin(), lengths.end(), 0) > length)
        return std::nullopt;
    // The longest one first: what it does not need is for the others.
    std::vector<int*> byLength(lengths.size());
    std::ranges::transform(lengths, byLength.begin(), [](int& one) { return &one; });
    std::ranges::sort(byLength, std::ranges::greater(), [](const int* one) { return *one; });
    for (std::size_t i = 0; i < byLength.size(); ++i) {
        *byLength[i] = std::max(*byLength[i], length / static_cast<int>(byLength.size() - i));
        length -= *byLength[i];
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

struct Place {
    QMdiSubWindow* child;
    QRect rect;
};

/// Where the children of these columns go; nothing where there is no room for them.
std::optional<std::vector<Place>> placesOf(const std::vector<Column>& columns, const QRect& room)
{
    const auto widths = shares(room.width(), columns, leastWidthOf);
    if (!widths)
        return std::nullopt;
    std::vector<Place> places;
    int x = room.x();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto heights = shares(room.height(), columns[i], leastHeight);
        if (!heights)
            return std::nullopt;
        int y = room.y();
        for (std::size_t j = 0; j < columns[i].size(); ++j) {
            places.push_back({columns[i][j], QRect(x, y, (*widths)[i], (*heights)[j])});
            y += (*heights)[j];
        }
        x += (*widths)[i];
    }
    return places;
}

/// The smallest share that a child has of the size that it would like.
double comfort(const std::vector<Place>& places)
{
    double least = 1.0;
    for (const auto& [child, rect] : places) {
        const QSize wanted = child->widget()->sizeHint();
        least = std::min({least, rect.width() / double(wanted.width()),
                          rect.height() / double(wanted.height())});
    }
    return least;
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
    std::optional<std::vector<Place>> best;
    for (std::size_t rows = 1; rows <= children.size(); ++rows) {
        auto places = placesOf(columnsOf(children, rows), room);
        if (places && (!best || comfort(*places) > comfort(*best)))
            best = std::move(places);
    }
    for (const auto& [child, rect] : best.value_or(std::vector<Place>()))
        child->setGeometry(rect);
}

} // namespace shell
