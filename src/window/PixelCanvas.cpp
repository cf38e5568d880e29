// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PixelCanvas.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

namespace window {

PixelCanvas::PixelCanvas(QPainter& painter, qreal side)
    : m_painter(painter)
    , m_unit(side / 16.0)
{
    m_painter.setRenderHint(QPainter::Antialiasing);
}

void PixelCanvas::fill(qreal x, qreal y, qreal width, qreal height, const QColor& color)
{
    m_painter.fillRect(pixels(x, y, width, height), color);
}

void PixelCanvas::frame(qreal x, qreal y, qreal width, qreal height, const QColor& color)
{
    const QRectF outer = pixels(x, y, width, height);
    const qreal line = lineWidth();
    QPainterPath ring;
    ring.addRect(outer);
    ring.addRect(outer.adjusted(line, line, -line, -line)); // a hole: the fill is odd-even
    m_painter.fillPath(ring, color);
}

void PixelCanvas::box(qreal x, qreal y, qreal width, qreal height, const QColor& inside,
                      const QColor& outline)
{
    fill(x, y, width, height, inside);
    frame(x, y, width, height, outline);
}

void PixelCanvas::curve(const QPainterPath& path, const QColor& color, qreal width)
{
    QPen pen(color, std::max(1.0, width * m_unit), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(pen);
    m_painter.drawPath(QTransform::fromScale(m_unit, m_unit).map(path));
}

void PixelCanvas::shape(const QPolygonF& corners, const QColor& color)
{
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(color);
    m_painter.drawPolygon(QTransform::fromScale(m_unit, m_unit).map(corners));
}

void PixelCanvas::disc(const QPointF& centre, qreal radius, const QColor& color)
{
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(color);
    m_painter.drawEllipse(centre * m_unit, radius * m_unit, radius * m_unit);
}

qreal PixelCanvas::lineWidth() const
{
    return std::max(1.0, std::round(m_unit));
}

QRectF PixelCanvas::pixels(qreal x, qreal y, qreal width, qreal height) const
{
    const QPointF topLeft(std::round(x * m_unit), std::round(y * m_unit));
    const QPointF bottomRight(std::round((x + width) * m_unit), std::round((y + height) * m_unit));
    return {topLeft, bottomRight};
}

} // namespace window
