// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ChartView.h"

#include <QCursor>
#include <QRect>

#include <functional>
#include <optional>

class QMouseEvent;
class QPainter;
class QWidget;

namespace chart {

/// What the left mouse button does over the plot.
enum class MouseAction { maNone, maZoomDrag };

/// The chart's own cursors.
enum class ChartCursor {
    CURHAND,  ///< A hand that holds the sheet: the view is being moved.
    CURZOOMW, ///< A magnifier: a rectangle can be drawn.
    CURZOOMD, ///< A magnifier in a dashed rectangle: the rectangle is large enough.
    CURZOOMP, ///< A magnifier with an arrow back: zoomed, there is a way back.
};

/// The cursor, drawn sharp for a screen of so many pixels per logical pixel.
QCursor chartCursor(ChartCursor cursor, qreal devicePixelRatio);

/// What the user does to the view of a chart: zooming to a rectangle, moving, going back, by mouse
/// and by keys, and the cursor that tells what a drag would do.
///
/// With MouseAction::maZoomDrag, dragging over the plot zooms to the rectangle, Escape goes back
/// one step and a double click to the full view; dragging with Shift, or with the middle button,
/// moves the view. By keys: plus and minus zoom about the middle, the arrows move by a tenth, Home
/// shows the full view.
class ChartNavigation {
public:
    /// The chart's layout, of the present view and of another one.
    using Present = std::function<const ChartGeometry&()>;
    using Of = std::function<ChartGeometry(const View&)>;

    /// The chart and its view outlive it. A drag is painted as it goes; `viewChanged` hears of
    /// every other step.
    ChartNavigation(QWidget& chart, ChartView& view, Present geometry, Of geometryOf,
                    std::function<void()> viewChanged);

    MouseAction action() const { return m_action; }
    void setAction(MouseAction action);

    // The chart's events, their points in its pixels. @return whether the event means something
    bool press(const QMouseEvent& event);
    void move(const QPoint& position);
    void release(const QMouseEvent& event);
    bool doubleClick(const QMouseEvent& event);
    bool key(int key);

    /// Draws the rectangle of a zoom that is under way.
    void draw(QPainter& painter) const;

private:
    enum class Gesture { None, Zoom, Pan };

    bool changeViewByKey(int key);
    void zoomTo(const QRectF& rectangle);
    void endGesture();
    QRect zoomRectangle() const;
    void updateCursor(const QPoint& position);
    void updateCursor();
    std::optional<ChartCursor> cursorAt(const QPoint& position) const;

    QWidget& m_chart;
    ChartView& m_view;
    Present m_geometry;
    Of m_geometryOf;
    std::function<void()> m_viewChanged;
    MouseAction m_action = MouseAction::maNone;
    Gesture m_gesture = Gesture::None;
    QPoint m_start;
    QPoint m_end;
    std::optional<ChartGeometry> m_geometryAtStart; ///< Of the gesture that is under way.
    std::optional<ChartCursor> m_cursor; ///< The one that is set; nothing for the window's own.
};

} // namespace chart
