// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartContents.h"
#include "chart/scale/AxisScale.h"
#include "chart/scale/AxisTicks.h"
#include "chart/scale/ChartLayout.h"
#include "chart/scale/ChartView.h"

#include <QFont>

#include <vector>

namespace chart {

/// Where everything of a chart stands that shows a view in a control of a given size,
/// in logical pixels.
struct ChartGeometry {
    View view;
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

/// Lays a chart out: what it takes to show a view, with its ticks, labels and captions.
ChartGeometry measure(const ChartContents& contents, const View& view, QSize size,
                      const QFont& font);

} // namespace chart
