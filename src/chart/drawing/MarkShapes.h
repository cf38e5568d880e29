// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPointF>

#include <cstdint>

class QPainter;

namespace chart {

/// The shapes of marks, by mark kind: 0 dot, 1 plus, 2 filled circle, 3 circle, 4 filled square,
/// 5 square, 6 filled diamond, 7 diamond, 8 filled triangle, 9 triangle, 10 cross. Greater kinds
/// begin again at 0.
inline constexpr int markShapeCount = 11;

/// Draws the shape of a mark kind, some 7 logical pixels across, around its centre.
void drawMark(QPainter& painter, const QPointF& center, std::uint8_t markKind, const QColor& color,
              int lineWidth);

} // namespace chart
