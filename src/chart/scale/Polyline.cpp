// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/Polyline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace chart {

namespace {

/// The stretch of the line, from 0 at its start to 1 at its end, that is still inside.
struct Stretch {
    double from = 0.0;
    double to = 1.0;

    /// Keeps the part where position + t x direction <= limit. @return whether any is left
    bool keepBelow(double position, double direction, double limit)
    {
        if (direction == 0)
            return position <= limit;
        const double t = (limit - position) / direction;
        if (direction > 0)
            to = std::min(to, t);
        else
            from = std::max(from, t);
        return from <= to;
    }
};

} // namespace

std::optional<QLineF> cutToRect(const QLineF& line, const QRectF& rect)
{
    Stretch stretch;
    if (!stretch.keepBelow(line.x1(), line.dx(), rect.right()) ||
        !stretch.keepBelow(-line.x1(), -line.dx(), -rect.left()) ||
        !stretch.keepBelow(line.y1(), line.dy(), rect.bottom()) ||
        !stretch.keepBelow(-line.y1(), -line.dy(), -rect.top()))
        return std::nullopt;
    return QLineF(stretch.from > 0 ? line.pointAt(stretch.from) : line.p1(),
                  stretch.to < 1 ? line.pointAt(stretch.to) : line.p2());
}

Polyline::Polyline(double columnWidth)
    : m_columnWidth(columnWidth)
{
}

void Polyline::add(const QPointF& point)
{
    const double column = std::floor(point.x() / m_columnWidth);
    const Numbered numbered{m_count++, point};
    if (m_columnOpen && column == m_column) {
        if (point.y() < m_lowest.point.y())
            m_lowest = numbered;
        if (point.y() > m_highest.point.y())
            m_highest = numbered;
        m_last = numbered;
        return;
    }
    closeColumn();
    m_columnOpen = true;
    m_column = column;
    m_first = m_lowest = m_highest = m_last = numbered;
}

std::vector<QPointF> Polyline::take()
{
    closeColumn();
    m_count = 0;
    return std::exchange(m_points, {});
}

void Polyline::closeColumn()
{
    if (!m_columnOpen)
        return;
    m_columnOpen = false;
    std::array<Numbered, 4> kept{m_first, m_lowest, m_highest, m_last};
    if (m_highest.number < m_lowest.number)
        std::swap(kept[1], kept[2]);
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (i == 0 || kept[i].number != kept[i - 1].number)
            m_points.push_back(kept[i].point);
    }
}

std::vector<std::vector<QPointF>> piecesInside(const std::vector<QPointF>& points,
                                               const QRectF& rect)
{
    std::vector<std::vector<QPointF>> pieces;
    bool continues = false;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const std::optional<QLineF> inside = cutToRect(QLineF(points[i - 1], points[i]), rect);
        if (!inside) {
            continues = false;
            continue;
        }
        if (!continues)
            pieces.push_back({inside->p1()});
        pieces.back().push_back(inside->p2());
        continues = inside->p2() == points[i];
    }
    return pieces;
}

} // namespace chart
