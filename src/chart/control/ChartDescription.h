// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartContents.h"
#include "chart/scale/ChartView.h"
#include "chart/scale/ItemList.h"

namespace chart {

/// What a chart shows, in words and numbers, for those who cannot see it.
QString chartDescription(const ChartContents& contents, const View& view, const ItemList& items);

} // namespace chart
