// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ItemList.h"

class QPainter;

namespace chart {

/// Draws the items, in their order, inside the plot.
///
/// A point that is not finite lifts the pen: a line to it is not drawn, and the next line only
/// brings the pen back. So does the beginning of the list.
void drawItems(QPainter& painter, const ItemList& items, const ChartGeometry& geometry,
               const QColor& fillColor);

} // namespace chart
