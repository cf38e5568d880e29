// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/ChartNavigation.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <utility>

namespace chart {

namespace {

/// A smaller rectangle, in pixels, is a click that slipped.
constexpr int leastZoomRectangle = 5;

bool isPan(const QMouseEvent& event)
{
    return event.button() == Qt::MiddleButton ||
           (event.button() == Qt::LeftButton && event.modifiers().testFlag(Qt::ShiftModifier));
}

bool isLargeEnough(const QRect& rectangle)
{
    return rectangle.width() > leastZoomRectangle && rectangle.height() > leastZoomRectangle;
}

/// From the middle of its first pixel to that of its last.
QRectF betweenMiddles(const QRect& rectangle)
{
    return {rectangle.topLeft(), rectangle.bottomRight()};
}

/// What stands between the left and the right edge of a rectangle.
Bounds boundsAcross(const QRectF& rectangle, const ChartGeometry& geometry)
{
    return {geometry.xScale.toValue(rectangle.left()), geometry.xScale.toValue(rectangle.right())};
}

/// What stands between its lower and its upper edge.
Bounds boundsUp(const QRectF& rectangle, const ChartGeometry& geometry)
{
    return {geometry.yScale.toValue(rectangle.bottom()), geometry.yScale.toValue(rectangle.top())};
}

/// The plot as it would have to be for a key's view: smaller to zoom in, larger to zoom out, moved
/// by a tenth to look to a side. Nothing for another key.
std::optional<QRectF> rectangleFor(int key, const QRectF& plot)
{
    const qreal right = plot.width() / 10;
    const qreal down = plot.height() / 10;
    const qreal halfWidth = plot.width() / 2;
    const qreal halfHeight = plot.height() / 2;
    switch (key) {
    case Qt::Key_Plus:
        return plot.adjusted(halfWidth / 2, halfHeight / 2, -halfWidth / 2, -halfHeight / 2);
    case Qt::Key_Minus:
        return plot.adjusted(-halfWidth, -halfHeight, halfWidth, halfHeight);
    case Qt::Key_Left:
        return plot.translated(-right, 0);
    case Qt::Key_Right:
        return plot.translated(right, 0);
    case Qt::Key_Up:
        return plot.translated(0, -down);
    case Qt::Key_Down:
        return plot.translated(0, down);
    default:
        return std::nullopt;
    }
}

} // namespace

ChartNavigation::ChartNavigation(QWidget& chart, ChartView& view, Present geometry, Of geometryOf,
                                 std::function<void()> viewChanged)
    : m_chart(chart)
    , m_view(view)
    , m_geometry(std::move(geometry))
    , m_geometryOf(std::move(geometryOf))
    , m_viewChanged(std::move(viewChanged))
{
}

void ChartNavigation::setAction(MouseAction action)
{
    m_action = action;
    if (action == MouseAction::maNone)
        endGesture();
    updateCursor();
}

bool ChartNavigation::press(const QMouseEvent& event)
{
    const QPoint position = event.position().toPoint();
    if (m_action != MouseAction::maZoomDrag || m_gesture != Gesture::None ||
        !m_geometry().layout.plot.contains(position) ||
        (event.button() != Qt::LeftButton && !isPan(event)))
        return false;
    m_gesture = isPan(event) ? Gesture::Pan : Gesture::Zoom;
    m_start = position;
    m_end = position;
    m_geometryAtStart = m_geometry();
    updateCursor(position);
    return true;
}

void ChartNavigation::move(const QPoint& position)
{
    if (m_gesture != Gesture::None) {
        m_end = position;
        if (m_gesture == Gesture::Pan) {
            if (m_geometryAtStart->size != m_chart.size()) // resized on the way
                m_geometryAtStart = m_geometryOf(m_geometryAtStart->view);
            const QRect plot = m_geometryAtStart->layout.plot.translated(m_start - position);
            m_view.moveTo(boundsAcross(betweenMiddles(plot), *m_geometryAtStart),
                          boundsUp(betweenMiddles(plot), *m_geometryAtStart));
        }
        m_chart.update();
    }
    updateCursor(position);
}

void ChartNavigation::release(const QMouseEvent& event)
{
    if (m_gesture == Gesture::None || event.buttons().testFlag(Qt::LeftButton))
        return;
    m_end = event.position().toPoint();
    if (m_gesture == Gesture::Pan)
        m_view.record();
    else if (const QRect rectangle = zoomRectangle(); isLargeEnough(rectangle))
        zoomTo(betweenMiddles(rectangle));
    endGesture();
}

bool ChartNavigation::doubleClick(const QMouseEvent& event)
{
    if (m_action != MouseAction::maZoomDrag || event.button() != Qt::LeftButton)
        return false;
    m_view.goToFull();
    m_viewChanged();
    updateCursor(event.position().toPoint());
    return true;
}

bool ChartNavigation::key(int key)
{
    if (key == Qt::Key_Escape && m_gesture != Gesture::None) {
        m_view.restore(m_geometryAtStart->view);
        endGesture();
        return true;
    }
    return m_action == MouseAction::maZoomDrag && m_gesture == Gesture::None &&
           changeViewByKey(key);
}

bool ChartNavigation::changeViewByKey(int key)
{
    if (key == Qt::Key_Escape && m_view.history().canGoBack())
        m_view.goBack();
    else if (key == Qt::Key_Home)
        m_view.goToFull();
    else if (const auto shown = rectangleFor(key, betweenMiddles(m_geometry().layout.plot)))
        zoomTo(*shown);
    else
        return false;
    m_viewChanged();
    updateCursor();
    return true;
}

/// Makes what stands in a rectangle of the present picture fill the plot.
void ChartNavigation::zoomTo(const QRectF& rectangle)
{
    const ChartGeometry& present = m_geometry();
    m_view.zoomTo(boundsAcross(rectangle, present), boundsUp(rectangle, present));
}

/// Dark dashes on a light line over a tint: one of the three is seen on any colour.
void ChartNavigation::draw(QPainter& painter) const
{
    const QRect rectangle = zoomRectangle();
    if (m_gesture != Gesture::Zoom || rectangle.isEmpty())
        return;
    QColor tint = m_chart.palette().color(QPalette::Highlight);
    tint.setAlpha(48);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(rectangle, tint);
    painter.translate(0.5, 0.5);
    painter.setBrush(Qt::NoBrush);
    QPen pen(Qt::white, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    const QRect outline = rectangle.adjusted(0, 0, -1, -1);
    painter.setPen(pen);
    painter.drawRect(outline);
    pen.setColor(Qt::black);
    pen.setDashPattern({4.0, 4.0});
    painter.setPen(pen);
    painter.drawRect(outline);
}

void ChartNavigation::endGesture()
{
    m_gesture = Gesture::None;
    m_geometryAtStart.reset();
    m_chart.update();
    updateCursor();
}

QRect ChartNavigation::zoomRectangle() const
{
    return QRect(m_start, m_end).normalized().intersected(m_geometry().layout.plot);
}

void ChartNavigation::updateCursor()
{
    updateCursor(m_chart.mapFromGlobal(QCursor::pos()));
}

void ChartNavigation::updateCursor(const QPoint& position)
{
    const std::optional<ChartCursor> wanted = cursorAt(position);
    if (wanted == m_cursor)
        return;
    m_cursor = wanted;
    if (wanted)
        m_chart.setCursor(chartCursor(*wanted, m_chart.devicePixelRatioF()));
    else
        m_chart.unsetCursor();
}

/// The cursor over a point of the control; nothing for the window's own.
std::optional<ChartCursor> ChartNavigation::cursorAt(const QPoint& position) const
{
    if (m_action == MouseAction::maNone)
        return std::nullopt;
    if (m_gesture == Gesture::Pan)
        return ChartCursor::CURHAND;
    if (m_gesture == Gesture::Zoom && isLargeEnough(zoomRectangle()))
        return ChartCursor::CURZOOMD;
    if (m_gesture == Gesture::None && !m_geometry().layout.plot.contains(position))
        return std::nullopt;
    return m_view.history().canGoBack() ? ChartCursor::CURZOOMP : ChartCursor::CURZOOMW;
}

} // namespace chart
