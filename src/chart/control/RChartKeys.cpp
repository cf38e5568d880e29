// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does to the view, done with keys.
#include "chart/control/RChart.h"

#include <QKeyEvent>

#include <optional>

namespace chart {

namespace {

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

void TRChart::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_gesture != Gesture::None) {
        restore(m_viewAtStart);
        endGesture();
    } else if (m_mouseAction != MouseAction::maZoomDrag || m_gesture != Gesture::None ||
               !changeViewByKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

/// @return whether the key means a view
bool TRChart::changeViewByKey(int key)
{
    const QRect plot = geometry().layout.plot;
    if (key == Qt::Key_Escape && m_history.canGoBack())
        zoomBack();
    else if (key == Qt::Key_Home)
        zoomToFullView();
    else if (const auto rectangle = rectangleFor(key, QRectF(plot.topLeft(), plot.bottomRight())))
        showRectangle(*rectangle);
    else
        return false;
    updateCursor(mapFromGlobal(QCursor::pos()));
    return true;
}

/// Makes what stands in a rectangle of the present picture fill the plot.
void TRChart::showRectangle(const QRectF& rectangle)
{
    const ChartGeometry now = geometry();
    View wanted = view();
    wanted.x.setBounds(now.xScale.toValue(rectangle.left()), now.xScale.toValue(rectangle.right()));
    wanted.y.setBounds(now.yScale.toValue(rectangle.bottom()), now.yScale.toValue(rectangle.top()));
    zoomTo(isometricView(wanted, Axis::X));
}

} // namespace chart
