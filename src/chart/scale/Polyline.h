// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

namespace chart {

/// The part of a line inside a rectangle, nothing when they do not meet. The coordinates are
/// finite.
///
/// Liang, Barsky: A new concept and method for line clipping, ACM Transactions on Graphics 3
/// (1984).
std::optional<QLineF> cutToRect(const QLineF& line, const QRectF& rect);

/// A polyline on its way to the screen, with no more points than the screen can show.
///
/// Of consecutive points in one column of pixels the first, the lowest, the highest and the last
/// are kept, which colours the same pixels; so a curve of any number of points has at most four per
/// column that it crosses.
class Polyline {
public:
    /// @param columnWidth in logical pixels; one device pixel
    explicit Polyline(double columnWidth);

    void add(const QPointF& point);
    bool isEmpty() const { return m_count == 0; }

    /// The points in their order; the polyline is empty afterwards.
    std::vector<QPointF> take();

private:
    void closeColumn();

    double m_columnWidth;
    std::vector<QPointF> m_points;
    std::size_t m_count = 0;

    /// The points of the column that is being gathered: position in the polyline, then the point.
    struct Numbered {
        std::size_t number;
        QPointF point;
    };
    double m_column = 0.0;
    bool m_columnOpen = false;
    Numbered m_first{};
    Numbered m_lowest{};
    Numbered m_highest{};
    Numbered m_last{};
};

/// The pieces of a polyline inside a rectangle, each at least two points.
std::vector<std::vector<QPointF>> piecesInside(const std::vector<QPointF>& points,
                                               const QRectF& rect);

} // namespace chart
