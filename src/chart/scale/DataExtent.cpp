// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/DataExtent.h"

#include "chart/scale/AxisRange.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr long double farthest = largestBound;

void includeWhereShown(AxisExtent& extent, double value, bool logarithmic)
{
    if (!logarithmic || hasLogarithm(value))
        extent.include(value);
}

} // namespace

void AxisExtent::include(double value)
{
    // Half-widths can reach beyond the doubles.
    const double within = std::clamp(value, -largestBound, largestBound);
    min = std::min(min, within);
    max = std::max(max, within);
}

DataExtent extentOf(const ItemList& items, bool logarithmicX, bool logarithmicY)
{
    DataExtent extent;
    const auto include = [&](double x, double y) {
        includeWhereShown(extent.x, x, logarithmicX);
        includeWhereShown(extent.y, y, logarithmicY);
    };
    for (const ChartItem& item : items) {
        if (!item.isFinite())
            continue;
        if (item.kind == ItemKind::ErrorBars) {
            include(item.x - item.x2, item.y - item.y2);
            include(item.x + item.x2, item.y + item.y2);
            continue;
        }
        include(item.x, item.y);
        if (hasSecondPair(item.kind))
            include(item.x2, item.y2);
    }
    return extent;
}

Bounds boundsAround(const AxisExtent& extent, double percent, bool logarithmic)
{
    if (extent.isEmpty())
        return {0.0L, 0.0L};
    const long double margin = std::isfinite(percent) ? percent / 100.0L : 0.0L;
    const long double min = extent.min;
    const long double max = extent.max;
    if (!logarithmic) {
        const long double reach = (max - min) * margin;
        return {std::clamp(min - reach, -farthest, farthest),
                std::clamp(max + reach, -farthest, farthest)};
    }
    // min x exp((margin + 1) L) of the textbook form is max x exp(margin L), which keeps max itself
    // where the margin is 0.
    const long double reach = margin * std::log(max / min);
    const long double least = std::min<long double>(min, leastLogarithmicBound);
    return {std::clamp(min * std::exp(-reach), least, farthest),
            std::clamp(max * std::exp(reach), least, farthest)};
}

} // namespace chart
