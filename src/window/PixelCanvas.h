// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace window {

/// A square on which an icon is drawn in units of a sixteenth of its side, from its top left
/// corner.
///
/// Upright edges fall on whole pixels at every size, so that an icon of 24 pixels is as sharp as
/// one of 16 or 48: rectangles are rounded to pixels, and an outline is the whole number of pixels
/// that comes closest to one unit, at least one.
class PixelCanvas {
public:
    /// Draws into the square of `side` pixels at the painter's origin.
    PixelCanvas(QPainter& painter, qreal side);

    /// A filled rectangle.
    void fill(qreal x, qreal y, qreal width, qreal height, const QColor& color);

    /// A rectangle's outline, within it.
    void frame(qreal x, qreal y, qreal width, qreal height, const QColor& color);

    /// A filled rectangle with an outline.
    void box(qreal x, qreal y, qreal width, qreal height, const QColor& inside,
             const QColor& outline);

    /// A smooth line along a path, `width` units wide, with round ends.
    void curve(const QPainterPath& path, const QColor& color, qreal width);

    /// A filled shape.
    void shape(const QPolygonF& corners, const QColor& color);

    void disc(const QPointF& centre, qreal radius, const QColor& color);

private:
    qreal lineWidth() const;
    QRectF pixels(qreal x, qreal y, qreal width, qreal height) const;

    QPainter& m_painter;
    qreal m_unit; ///< Pixels per unit.
};

} // namespace window
