// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/drawing/ChartContents.h"
#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ItemList.h"

#include <QKeyCombination>
#include <QPoint>

#include <functional>
#include <optional>

class QPainter;
class QWidget;

namespace chart {

/// Reads the values of one point of a chart to the status line: of the point nearest to the mouse,
/// or of the one that the arrow keys have led to. The point has a ring meanwhile, on the screen
/// only.
///
/// With Ctrl, left and right go along the curve, up and down to the other curves above and below.
class PointReader {
public:
    /// Where the points are now.
    struct Present {
        const ItemList& items;
        const ChartGeometry& geometry;
    };

    /// The chart and its contents outlive it.
    PointReader(QWidget& chart, const ChartContents& contents, std::function<Present()> present);

    /// Reads the point nearest to a pixel of the plot; outside the plot none.
    void readAt(const QPoint& pixel);
    /// Reads the next point in a direction. @return whether the key is one of its own
    bool key(QKeyCombination pressed);
    /// Reads none where its point is no longer in view.
    void followView();
    void stop();

    void draw(QPainter& painter) const;

private:
    std::vector<const ChartItem*> pointsInView() const;
    const ChartItem* next(int key) const;
    void read(const ChartItem& point);
    QString text() const;

    QWidget& m_chart;
    const ChartContents& m_contents;
    std::function<Present()> m_present;
    std::optional<ChartItem> m_point; ///< The one that is read.
};

} // namespace chart
