// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartContents.h"
#include "chart/scale/ItemList.h"
#include "chart/scale/ZoomHistory.h"

namespace chart {

/// What a chart shows, in words and numbers, for those who cannot see it.
QString chartDescription(const ChartContents& contents, const View& view, const ItemList& items);

/// Makes every TRChart tell assistive technology that it is a chart, its name, and its description,
/// worked out only when it is asked for. Once per process; calling it again does nothing.
void installChartAccessibility();

} // namespace chart
