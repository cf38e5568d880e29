// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ReadablePoints.h"

#include <algorithm>

namespace chart {

std::size_t seriesIndex(const ChartItem& item, const std::vector<Series>& series)
{
    const auto found = std::find_if(series.begin(), series.end(), [&item](const Series& one) {
        return one.color == item.attributes.color;
    });
    return static_cast<std::size_t>(found - series.begin());
}

std::vector<const ChartItem*> readablePoints(const ItemList& items)
{
    const bool hasMarks = std::any_of(items.begin(), items.end(), [](const ChartItem& item) {
        return item.kind == ItemKind::Mark;
    });
    std::vector<const ChartItem*> points;
    for (const ChartItem& item : items) {
        if (item.isFinite() && (!hasMarks || item.kind == ItemKind::Mark))
            points.push_back(&item);
    }
    return points;
}

} // namespace chart
