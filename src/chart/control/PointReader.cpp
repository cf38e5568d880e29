// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/PointReader.h"

#include "base/NumberText.h"

#include <QCoreApplication>
#include <QPainter>
#include <QStatusTipEvent>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace chart {

namespace {

/// Six digits, more than a picture can show.
QString valueText(double value)
{
    if (value == 0)
        return base::generalText(value);
    const double unit = std::pow(10.0, 5 - std::floor(std::log10(std::abs(value))));
    const double rounded = std::round(value * unit) / unit;
    return base::generalText(std::isfinite(rounded) ? rounded : value);
}

bool isSamePoint(const ChartItem& one, const ChartItem& other)
{
    return one.x == other.x && one.y == other.y;
}

QPoint pixelOf(const ChartItem& point, const ChartGeometry& geometry)
{
    return {geometry.xScale.toPixel(point.x), geometry.yScale.toPixel(point.y)};
}

bool isInView(const ChartItem& point, const ChartGeometry& geometry)
{
    return geometry.layout.plot.contains(pixelOf(point, geometry));
}

void tell(QWidget& chart, const QString& text)
{
    QStatusTipEvent tip(text);
    QCoreApplication::sendEvent(&chart, &tip);
}

} // namespace

PointReader::PointReader(QWidget& chart, const ChartContents& contents,
                         std::function<Present()> present)
    : m_chart(chart)
    , m_contents(contents)
    , m_present(std::move(present))
{
}

void PointReader::readAt(const QPoint& pixel)
{
    const ChartGeometry& geometry = m_present().geometry;
    const ChartItem* nearest = nullptr;
    double least = 0.0;
    if (geometry.layout.plot.contains(pixel)) {
        for (const ChartItem* point : pointsInView()) {
            const QPoint away = pixelOf(*point, geometry) - pixel;
            const double distance = std::hypot(away.x(), away.y());
            if (nearest == nullptr || distance <= least) { // of equals the one that is seen
                nearest = point;
                least = distance;
            }
        }
    }
    if (nearest == nullptr)
        stop();
    else
        read(*nearest);
}

bool PointReader::key(QKeyCombination pressed)
{
    static constexpr std::array keys{Qt::CTRL | Qt::Key_Left, Qt::CTRL | Qt::Key_Right,
                                     Qt::CTRL | Qt::Key_Up, Qt::CTRL | Qt::Key_Down};
    if (std::find(keys.begin(), keys.end(), pressed) == keys.end())
        return false;
    if (const ChartItem* point = next(pressed.key()))
        read(*point);
    return true;
}

void PointReader::followView()
{
    if (m_point && !isInView(*m_point, m_present().geometry))
        stop();
}

void PointReader::stop()
{
    if (!m_point)
        return;
    m_point.reset();
    tell(m_chart, {});
    m_chart.update();
}

/// White under black, seen on any colour.
void PointReader::draw(QPainter& painter) const
{
    if (!m_point)
        return;
    constexpr double radius = 6.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const QPointF center = pixelOf(*m_point, m_present().geometry) + QPointF(0.5, 0.5);
    for (const auto& [color, width] : {std::pair(Qt::white, 4.0), {Qt::black, 1.5}}) {
        painter.setPen(QPen(color, width));
        painter.drawEllipse(center, radius, radius);
    }
}

std::vector<const ChartItem*> PointReader::pointsInView() const
{
    const Present present = m_present();
    std::vector<const ChartItem*> points = readablePoints(present.items);
    std::erase_if(
        points, [&present](const ChartItem* point) { return !isInView(*point, present.geometry); });
    return points;
}

/// The nearest in the direction of an arrow key; without a point to begin at, the first or the last
/// along x.
const ChartItem* PointReader::next(int key) const
{
    const bool alongX = !m_point || key == Qt::Key_Left || key == Qt::Key_Right;
    const double direction = key == Qt::Key_Right || key == Qt::Key_Up ? 1.0 : -1.0;
    const auto ahead = [&](const ChartItem& point) {
        return direction * (alongX ? point.x : point.y);
    };
    const ChartItem* nearest = nullptr;
    for (const ChartItem* point : pointsInView()) {
        const bool isOnTheWay =
            !m_point || ((alongX ? point->attributes.color == m_point->attributes.color
                                 : point->x == m_point->x) &&
                         ahead(*point) > ahead(*m_point));
        if (isOnTheWay && (nearest == nullptr || ahead(*point) < ahead(*nearest)))
            nearest = point;
    }
    return nearest;
}

void PointReader::read(const ChartItem& point)
{
    if (m_point && isSamePoint(*m_point, point) && m_point->attributes == point.attributes)
        return;
    m_point = point;
    tell(m_chart, text());
    m_chart.update();
}

/// The values, and of curves with names all those that pass through the point.
QString PointReader::text() const
{
    const QString y = m_contents.y.id.isEmpty() ? QStringLiteral("y") : m_contents.y.id;
    const QString values =
        QStringLiteral("x = %1; %2 = %3").arg(valueText(m_point->x), y, valueText(m_point->y));
    QStringList names;
    for (const ChartItem* point : readablePoints(m_present().items)) {
        const std::size_t series = seriesIndex(*point, m_contents.series);
        if (isSamePoint(*point, *m_point) && series < m_contents.series.size() &&
            !names.contains(m_contents.series[series].name))
            names += m_contents.series[series].name;
    }
    return names.isEmpty()
               ? values
               : QStringLiteral("%1 (%2)").arg(values, names.join(QStringLiteral(", ")));
}

} // namespace chart
