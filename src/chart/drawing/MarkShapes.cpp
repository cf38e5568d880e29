// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/drawing/MarkShapes.h"

#include <QPainter>

namespace chart {

namespace {

constexpr double radius = 3.5;

QPolygonF square()
{
    return QPolygonF({{-3.0, -3.0}, {3.0, -3.0}, {3.0, 3.0}, {-3.0, 3.0}});
}

QPolygonF diamond()
{
    return QPolygonF({{0.0, -4.0}, {4.0, 0.0}, {0.0, 4.0}, {-4.0, 0.0}});
}

QPolygonF triangle()
{
    return QPolygonF({{0.0, -4.0}, {4.0, 3.0}, {-4.0, 3.0}});
}

} // namespace

void drawMark(QPainter& painter, const QPointF& center, std::uint8_t markKind, const QColor& color,
              int lineWidth)
{
    const int shape = markKind % markShapeCount;
    const bool filled = shape == 0 || shape == 2 || shape == 4 || shape == 6 || shape == 8;
    painter.save();
    painter.translate(center);
    painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    painter.setBrush(filled ? QBrush(color) : QBrush());
    switch (shape) {
    case 0:
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QPointF(), 1.5, 1.5);
        break;
    case 1:
        painter.drawLine(QLineF(-radius, 0.0, radius, 0.0));
        painter.drawLine(QLineF(0.0, -radius, 0.0, radius));
        break;
    case 2:
    case 3:
        painter.drawEllipse(QPointF(), 3.0, 3.0);
        break;
    case 4:
    case 5:
        painter.drawPolygon(square());
        break;
    case 6:
    case 7:
        painter.drawPolygon(diamond());
        break;
    case 8:
    case 9:
        painter.drawPolygon(triangle());
        break;
    default:
        painter.drawLine(QLineF(-3.0, -3.0, 3.0, 3.0));
        painter.drawLine(QLineF(-3.0, 3.0, 3.0, -3.0));
        break;
    }
    painter.restore();
}

} // namespace chart
