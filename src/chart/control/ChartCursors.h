// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCursor>

namespace chart {

/// The chart's own cursors.
enum class ChartCursor {
    CURHAND,  ///< A hand that holds the sheet: the view is being moved.
    CURZOOMW, ///< A magnifier: a rectangle can be drawn.
    CURZOOMD, ///< A magnifier in a dashed rectangle: the rectangle is large enough.
    CURZOOMP, ///< A magnifier with an arrow back: zoomed, there is a way back.
};

/// The cursor, drawn sharp for a screen of so many pixels per logical pixel.
QCursor chartCursor(ChartCursor cursor, qreal devicePixelRatio);

} // namespace chart
