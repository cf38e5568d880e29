// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of ChartNavigation: how its cursors are drawn.
#include "chart/control/ChartNavigation.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <cmath>

namespace chart {

namespace {

constexpr int cursorSize = 32;
const QPointF lensCenter(12.0, 12.0);

/// Black on a white rim, so that it is seen on black and on white.
void drawOutlined(QPainter& painter, const QPainterPath& path, double width)
{
    for (const auto& [color, extra] : {std::pair{Qt::white, 2.5}, {Qt::black, 0.0}}) {
        painter.setPen(QPen(color, width + extra, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(path);
    }
}

QPainterPath magnifier()
{
    QPainterPath path;
    path.addEllipse(lensCenter, 7.0, 7.0);
    path.moveTo(17.2, 17.2);
    path.lineTo(23.0, 23.0);
    return path;
}

QPainterPath plus()
{
    QPainterPath path;
    path.moveTo(lensCenter - QPointF(3.0, 0.0));
    path.lineTo(lensCenter + QPointF(3.0, 0.0));
    path.moveTo(lensCenter - QPointF(0.0, 3.0));
    path.lineTo(lensCenter + QPointF(0.0, 3.0));
    return path;
}

QPainterPath arrowBack()
{
    QPainterPath path;
    path.moveTo(lensCenter + QPointF(3.5, 0.0));
    path.lineTo(lensCenter - QPointF(3.5, 0.0));
    path.lineTo(lensCenter + QPointF(-1.0, -2.5));
    path.moveTo(lensCenter - QPointF(3.5, 0.0));
    path.lineTo(lensCenter + QPointF(-1.0, 2.5));
    return path;
}

QPainterPath corners()
{
    QPainterPath path;
    for (const double x : {2.0, 29.0}) {
        for (const double y : {2.0, 29.0}) {
            const double inX = x < cursorSize / 2.0 ? 5.0 : -5.0;
            const double inY = y < cursorSize / 2.0 ? 5.0 : -5.0;
            path.moveTo(x + inX, y);
            path.lineTo(x, y);
            path.lineTo(x, y + inY);
        }
    }
    return path;
}

/// A closed hand: four knuckles over a palm.
QPainterPath hand()
{
    QPainterPath path;
    path.moveTo(9.0, 17.0);
    path.cubicTo(5.0, 13.5, 8.0, 11.5, 10.5, 14.0);
    path.lineTo(10.5, 11.0);
    path.cubicTo(10.5, 8.0, 14.0, 8.0, 14.0, 10.5);
    path.cubicTo(14.0, 7.5, 17.5, 7.5, 17.5, 10.5);
    path.cubicTo(17.5, 8.0, 21.0, 8.0, 21.0, 11.0);
    path.cubicTo(21.0, 9.0, 24.0, 9.0, 24.0, 12.0);
    path.lineTo(24.0, 17.0);
    path.cubicTo(24.0, 21.0, 21.5, 22.0, 21.5, 25.0);
    path.lineTo(12.0, 25.0);
    path.cubicTo(12.0, 22.0, 10.5, 20.0, 9.0, 17.0);
    path.closeSubpath();
    return path;
}

void drawHand(QPainter& painter)
{
    painter.setBrush(Qt::white);
    drawOutlined(painter, hand(), 1.4);
    QPainterPath knuckles;
    for (const double x : {14.0, 17.5, 21.0}) {
        knuckles.moveTo(x, 10.8);
        knuckles.lineTo(x, 13.0);
    }
    painter.setPen(QPen(Qt::black, 1.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(knuckles);
}

} // namespace

QCursor chartCursor(ChartCursor cursor, qreal devicePixelRatio)
{
    QPixmap pixmap(static_cast<int>(std::ceil(cursorSize * devicePixelRatio)),
                   static_cast<int>(std::ceil(cursorSize * devicePixelRatio)));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    if (cursor == ChartCursor::CURHAND) {
        drawHand(painter);
    } else {
        drawOutlined(painter, magnifier(), 2.0);
        drawOutlined(painter, cursor == ChartCursor::CURZOOMP ? arrowBack() : plus(), 1.6);
        if (cursor == ChartCursor::CURZOOMD)
            drawOutlined(painter, corners(), 1.6);
    }
    painter.end();
    const QPoint hotSpot = cursor == ChartCursor::CURHAND ? QPoint(16, 14) : lensCenter.toPoint();
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

} // namespace chart
