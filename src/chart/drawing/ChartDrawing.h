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

/// The wanted colour where text in it can be read on the background, otherwise black or white.
///
/// Readable is a contrast of at least 3, which WCAG 2.1 (1.4.11) asks of graphical objects.
QColor readableOn(const QColor& background, const QColor& wanted);

/// Draws the grid, the frame of the plot, the ticks and their labels; what stands outside the plot
/// in `color`.
void drawScales(QPainter& painter, const ChartContents& contents, const ChartGeometry& geometry,
                const QColor& color);

/// Draws the items, in their order, inside the plot.
///
/// A point that is not finite lifts the pen: a line to it is not drawn, and the next line only
/// brings the pen back. So does the beginning of the list.
void drawItems(QPainter& painter, const ItemList& items, const ChartGeometry& geometry,
               const QColor& fillColor);

/// The shapes of marks, by mark kind: 0 dot, 1 plus, 2 filled circle, 3 circle, 4 filled square,
/// 5 square, 6 filled diamond, 7 diamond, 8 filled triangle, 9 triangle, 10 cross. Greater kinds
/// begin again at 0.
inline constexpr int markShapeCount = 11;

/// Draws the shape of a mark kind, some 7 logical pixels across, around its centre.
void drawMark(QPainter& painter, const QPointF& center, std::uint8_t markKind, const QColor& color,
              int lineWidth);

} // namespace chart
