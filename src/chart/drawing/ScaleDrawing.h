// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartGeometry.h"

class QColor;
class QPainter;

namespace chart {

/// Draws the grid, the frame of the plot, the ticks and their labels; what stands outside the plot
/// in `color`.
void drawScales(QPainter& painter, const ChartContents& contents, const ChartGeometry& geometry,
                const QColor& color);

} // namespace chart
