// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/ItemList.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace chart {

/// A curve with its name: the items of one colour.
struct Series {
    std::uint32_t color = 0; ///< 0xAARRGGBB, as in ItemAttributes.
    QString name;
};

/// The place of an item's series among `series`, their number where it has none.
std::size_t seriesIndex(const ChartItem& item, const std::vector<Series>& series);

/// The items whose points have values to read, in their order: the marks, and where there are none
/// the first points of all items. Pointers into the list.
std::vector<const ChartItem*> readablePoints(const ItemList& items);

} // namespace chart
