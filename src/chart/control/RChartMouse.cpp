// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does to the view: zooming to a rectangle, moving, going back.
#include "chart/control/RChart.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

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

} // namespace

void TRChart::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const bool begins = m_mouseAction == MouseAction::maZoomDrag && m_gesture == Gesture::None &&
                        geometry().layout.plot.contains(position) &&
                        (event->button() == Qt::LeftButton || isPan(*event));
    if (!begins) {
        event->ignore();
        return;
    }
    m_gesture = isPan(*event) ? Gesture::Pan : Gesture::Zoom;
    m_gestureStart = position;
    m_gestureEnd = position;
    m_viewAtStart = view();
    updateCursor(position);
}

void TRChart::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    if (m_gesture != Gesture::None) {
        m_gestureEnd = position;
        if (m_gesture == Gesture::Pan)
            pan(position);
        update();
    }
    updateCursor(position);
}

void TRChart::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_gesture == Gesture::None || event->buttons().testFlag(Qt::LeftButton))
        return;
    m_gestureEnd = event->position().toPoint();
    if (m_gesture == Gesture::Zoom)
        finishZoom();
    else
        m_history.record(view());
    endGesture();
}

void TRChart::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_mouseAction != MouseAction::maZoomDrag || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    zoomToFullView();
    updateCursor(event->position().toPoint());
}

void TRChart::setMouseAction(chart::MouseAction action)
{
    m_mouseAction = action;
    if (action == MouseAction::maNone)
        endGesture();
    updateCursor(mapFromGlobal(QCursor::pos()));
}

QRect TRChart::zoomRectangle() const
{
    return QRect(m_gestureStart, m_gestureEnd).normalized().intersected(geometry().layout.plot);
}

/// Dark dashes on a light line over a tint: one of the three is seen on any colour.
void TRChart::drawZoomRectangle(QPainter& painter) const
{
    const QRect rectangle = zoomRectangle();
    if (rectangle.isEmpty())
        return;
    QColor tint = palette().color(QPalette::Highlight);
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

void TRChart::finishZoom()
{
    const QRect rectangle = zoomRectangle();
    if (!isLargeEnough(rectangle))
        return;
    showRectangle(QRectF(rectangle.topLeft(), rectangle.bottomRight()));
}

void TRChart::pan(const QPoint& to)
{
    ChartContents contents = m_contents;
    contents.x.range = m_viewAtStart.x;
    contents.y.range = m_viewAtStart.y;
    const ChartGeometry atStart = measure(contents, size(), font());
    const QRect plot = atStart.layout.plot.translated(m_gestureStart - to);
    View moved = m_viewAtStart;
    moved.x.setBounds(atStart.xScale.toValue(plot.left()), atStart.xScale.toValue(plot.right()));
    moved.y.setBounds(atStart.yScale.toValue(plot.bottom()), atStart.yScale.toValue(plot.top()));
    restore(moved);
}

/// A view that the user asked for; one that an axis of dates cannot show is not shown.
void TRChart::zoomTo(const View& wanted)
{
    try {
        changeView(wanted);
    } catch (const ChartError&) {
        update();
    }
}

void TRChart::endGesture()
{
    m_gesture = Gesture::None;
    update();
    updateCursor(mapFromGlobal(QCursor::pos()));
}

void TRChart::updateCursor(const QPoint& position)
{
    const std::optional<ChartCursor> wanted = cursorAt(position);
    if (wanted == m_cursor)
        return;
    m_cursor = wanted;
    if (wanted)
        setCursor(chartCursor(*wanted, devicePixelRatioF()));
    else
        unsetCursor();
}

/// The cursor over a point of the control; nothing for the window's own.
std::optional<ChartCursor> TRChart::cursorAt(const QPoint& position) const
{
    if (m_mouseAction == MouseAction::maNone)
        return std::nullopt;
    if (m_gesture == Gesture::Pan)
        return ChartCursor::CURHAND;
    if (m_gesture == Gesture::Zoom && isLargeEnough(zoomRectangle()))
        return ChartCursor::CURZOOMD;
    if (m_gesture == Gesture::None && !geometry().layout.plot.contains(position))
        return std::nullopt;
    return m_history.canGoBack() ? ChartCursor::CURZOOMP : ChartCursor::CURZOOMW;
}

} // namespace chart
