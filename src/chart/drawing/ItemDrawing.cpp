// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of ChartDrawing: the items and the shapes of marks.
#include "chart/drawing/ChartDrawing.h"
#include "chart/scale/Polyline.h"

#include <QPaintDevice>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace chart {

namespace {

/// Figures reach at most this far beyond the plot, in pixels, plus their line width.
constexpr double beyondThePlot = 16.0;

QPolygonF square()
{
    return QPolygonF({{-3.0, -3.0}, {3.0, -3.0}, {3.0, 3.0}, {-3.0, 3.0}});
}

QPolygonF diamond()
{
    return QPolygonF({{0.0, -4.0}, {4.0, 0.0}, {0.0, 4.0}, {-4.0, 0.0}});
}

QPolygonF triangle()
{
    return QPolygonF({{0.0, -4.0}, {4.0, 3.0}, {-4.0, 3.0}});
}

/// One run of a painter over the items.
class ItemPainter {
public:
    ItemPainter(QPainter& painter, const ChartGeometry& geometry, const QColor& fillColor)
        : m_painter(painter)
        , m_geometry(geometry)
        , m_fillColor(fillColor)
        , m_polyline(1.0 / painter.device()->devicePixelRatioF())
    {
    }

    void draw(const ChartItem& item)
    {
        if (item.kind == ItemKind::Line || item.kind == ItemKind::Move) {
            movePen(item);
            return;
        }
        flush();
        if (item.isFinite())
            drawFigure(item);
    }

    /// Draws the polyline gathered so far; the pen stays where it is.
    void flush()
    {
        const std::vector<QPointF> points = m_polyline.take();
        if (points.size() < 2)
            return;
        usePen(m_attributes);
        drawCut(points);
    }

private:
    void movePen(const ChartItem& item)
    {
        const std::optional<QPointF> target =
            item.isFinite() ? std::optional(pointOf(item.x, item.y)) : std::nullopt;
        const bool draws = item.kind == ItemKind::Line && m_pen && target;
        if (!draws || item.attributes != m_attributes)
            flush();
        if (draws) {
            if (m_polyline.isEmpty()) {
                m_attributes = item.attributes;
                m_polyline.add(*m_pen);
            }
            m_polyline.add(*target);
        }
        m_pen = target;
    }

    void drawFigure(const ChartItem& item)
    {
        usePen(item.attributes);
        const QPointF first = pointOf(item.x, item.y);
        switch (item.kind) {
        case ItemKind::Mark:
            if (cutRect().contains(first))
                drawMark(m_painter, first, item.markKind, colorOf(item.attributes),
                         item.attributes.lineWidth);
            break;
        case ItemKind::Segment:
            drawCut({first, pointOf(item.x2, item.y2)});
            break;
        case ItemKind::Rectangle:
            drawRectangle(first, pointOf(item.x2, item.y2));
            break;
        case ItemKind::FilledRectangle:
            m_painter.fillRect(
                QRectF(first, pointOf(item.x2, item.y2)).normalized().intersected(cutRect()),
                m_fillColor);
            drawRectangle(first, pointOf(item.x2, item.y2));
            break;
        case ItemKind::Ellipse:
            drawEllipse(QRectF(first, pointOf(item.x2, item.y2)).normalized());
            break;
        case ItemKind::ErrorBars:
            drawErrorBars(item, first);
            break;
        case ItemKind::End:
        case ItemKind::Line:
        case ItemKind::Move:
            break;
        }
    }

    void drawRectangle(const QPointF& one, const QPointF& other)
    {
        const QPointF corner1(other.x(), one.y());
        const QPointF corner2(one.x(), other.y());
        drawCut({one, corner1, other, corner2, one});
    }

    void drawEllipse(const QRectF& box)
    {
        constexpr double largestBox = 8192.0; // within which the painter's arithmetic is safe
        if (std::max({std::abs(box.left()), std::abs(box.right()), std::abs(box.top()),
                      std::abs(box.bottom())}) <= largestBox) {
            m_painter.setBrush(Qt::NoBrush);
            m_painter.drawEllipse(box);
            return;
        }
        // Column by column where the ellipse passes over the plot; in between it is straight
        // enough.
        const QRectF plot = cutRect();
        const double from = std::max(box.left(), plot.left());
        const double to = std::min(box.right(), plot.right());
        std::vector<QPointF> upper;
        std::vector<QPointF> lower;
        for (double x = from; x <= to; x += 0.5) {
            const double across = (x - box.center().x()) / (box.width() / 2);
            const double height = box.height() / 2 * std::sqrt(std::max(0.0, 1 - across * across));
            upper.emplace_back(x, box.center().y() - height);
            lower.emplace_back(x, box.center().y() + height);
        }
        drawCut(upper);
        drawCut(lower);
    }

    void drawErrorBars(const ChartItem& item, const QPointF& center)
    {
        constexpr double cap = 3.0;
        const QPointF low = pointOf(item.x - item.x2, item.y - item.y2);
        const QPointF high = pointOf(item.x + item.x2, item.y + item.y2);
        for (const double x : {low.x(), high.x()}) {
            drawCut({{center.x(), center.y()}, {x, center.y()}});
            drawCut({{x, center.y() - cap}, {x, center.y() + cap}});
        }
        for (const double y : {low.y(), high.y()}) {
            drawCut({{center.x(), center.y()}, {center.x(), y}});
            drawCut({{center.x() - cap, y}, {center.x() + cap, y}});
        }
    }

    /// Draws what of a polyline passes over the plot. The painter never sees a far-off point: its
    /// arithmetic, and the dashes of a line of 2e9 pixels, would not end.
    void drawCut(const std::vector<QPointF>& points)
    {
        constexpr std::size_t mostSmooth = 16384;
        constexpr std::size_t mostJoined = 128; // more than a window of the program draws
        for (const std::vector<QPointF>& piece : piecesInside(points, cutRect())) {
            // Where very many lines cross the plot their smooth edges cost the most and show the
            // least.
            m_painter.setRenderHint(QPainter::Antialiasing, piece.size() <= mostSmooth);
            if (piece.size() > mostJoined && isThin(m_painter.pen()))
                drawLineByLine(piece);
            else
                drawBatches(piece);
            m_painter.setRenderHint(QPainter::Antialiasing);
        }
    }

    /// So thin that joins hardly show, but not a hairline, which is fast as it is.
    static bool isThin(const QPen& pen)
    {
        return pen.width() == 2 && pen.style() == Qt::SolidLine && pen.color().alpha() == 255;
    }

    /// With square ends, and without working out the outline of the whole, which takes five times
    /// as long for a curve of 300 lines and a hundred times for lines that cross each other.
    void drawLineByLine(const std::vector<QPointF>& points)
    {
        QPen pen = m_painter.pen();
        pen.setCapStyle(Qt::SquareCap);
        m_painter.setPen(pen);
        std::vector<QLineF> lines;
        for (std::size_t i = 1; i < points.size(); ++i)
            lines.emplace_back(points[i - 1], points[i]);
        m_painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }

    /// The time of one call grows faster than its points, with an outline to work out much faster.
    void drawBatches(const std::vector<QPointF>& points)
    {
        const std::size_t batch = isThin(m_painter.pen()) ? 8 : 256;
        for (std::size_t from = 0; from + 1 < points.size(); from += batch) {
            const std::size_t count = std::min(batch + 1, points.size() - from);
            m_painter.drawPolyline(points.data() + from, static_cast<int>(count));
        }
    }

    QPointF pointOf(double x, double y) const
    {
        return {m_geometry.xScale.toPosition(x), m_geometry.yScale.toPosition(y)};
    }

    QRectF cutRect() const
    {
        const double reach = beyondThePlot + m_painter.pen().widthF();
        return QRectF(m_geometry.layout.plot).adjusted(-reach, -reach, reach, reach);
    }

    static QColor colorOf(const ItemAttributes& attributes)
    {
        return QColor::fromRgba(attributes.color);
    }

    void usePen(const ItemAttributes& attributes)
    {
        m_painter.setPen(QPen(colorOf(attributes), attributes.lineWidth, attributes.penStyle,
                              Qt::RoundCap, Qt::RoundJoin));
    }

    QPainter& m_painter;
    const ChartGeometry& m_geometry;
    QColor m_fillColor;
    Polyline m_polyline;
    ItemAttributes m_attributes;
    std::optional<QPointF> m_pen;
};

} // namespace

void drawMark(QPainter& painter, const QPointF& center, std::uint8_t markKind, const QColor& color,
              int lineWidth)
{
    constexpr double radius = 3.5;
    const int shape = markKind % markShapeCount;
    const bool filled = shape == 0 || shape == 2 || shape == 4 || shape == 6 || shape == 8;
    painter.save();
    painter.translate(center);
    painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    painter.setBrush(filled ? QBrush(color) : QBrush());
    switch (shape) {
    case 0:
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QPointF(), 1.5, 1.5);
        break;
    case 1:
        painter.drawLine(QLineF(-radius, 0.0, radius, 0.0));
        painter.drawLine(QLineF(0.0, -radius, 0.0, radius));
        break;
    case 2:
    case 3:
        painter.drawEllipse(QPointF(), 3.0, 3.0);
        break;
    case 4:
    case 5:
        painter.drawPolygon(square());
        break;
    case 6:
    case 7:
        painter.drawPolygon(diamond());
        break;
    case 8:
    case 9:
        painter.drawPolygon(triangle());
        break;
    default:
        painter.drawLine(QLineF(-3.0, -3.0, 3.0, 3.0));
        painter.drawLine(QLineF(-3.0, 3.0, 3.0, -3.0));
        break;
    }
    painter.restore();
}

void drawItems(QPainter& painter, const ItemList& items, const ChartGeometry& geometry,
               const QColor& fillColor)
{
    painter.save();
    painter.setClipRect(geometry.layout.plot, Qt::IntersectClip);
    painter.translate(0.5, 0.5); // positions are the middles of pixels
    ItemPainter itemPainter(painter, geometry, fillColor);
    for (const ChartItem& item : items)
        itemPainter.draw(item);
    itemPainter.flush();
    painter.restore();
}

} // namespace chart
