// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartContents.h"
#include "chart/scale/AxisScale.h"
#include "chart/scale/AxisTicks.h"
#include "chart/scale/ChartLayout.h"

#include <QFont>

#include <vector>

namespace chart {

/// Where everything of a chart stands in a control of a given size, in logical pixels.
struct ChartGeometry {
    QSize size;
    QFont font;
    QFont captionFont;
    ChartLayout layout;
    AxisScale xScale;
    AxisScale yScale;
    AxisTicks xTicks;
    AxisTicks yTicks;
    std::vector<QString> xTexts; ///< Of every main tick.
    std::vector<QString> yTexts;
    std::vector<PlacedLabel> xLabels;
    std::vector<PlacedLabel> yLabels;
};

ChartGeometry measure(const ChartContents& contents, QSize size, const QFont& font);

} // namespace chart
