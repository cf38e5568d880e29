// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ItemList.h"

class QPainter;
class QPalette;

namespace chart {

/// Draws a whole chart, on the screen as into a picture: window colour, shadow, plot, grid, scales
/// and captions, then the items and the cross-hairs. It covers the geometry's size.
void drawChart(QPainter& painter, const ChartContents& contents, const ItemList& items,
               const ChartGeometry& geometry, const QPalette& palette);

/// The colours of a style in force under a palette.
QColor windColorOf(const ChartStyle& style, const QPalette& palette);
QColor shadowColorOf(const ChartStyle& style, const QPalette& palette);
QColor shadowBakColorOf(const ChartStyle& style, const QPalette& palette);

} // namespace chart
