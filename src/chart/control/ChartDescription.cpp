// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/ChartDescription.h"

#include "base/NumberText.h"

#include <algorithm>
#include <vector>

namespace chart {

namespace {

QString boundText(long double bound)
{
    return base::generalText(static_cast<double>(bound));
}

} // namespace

QString chartDescription(const ChartContents& contents, const View& view, const ItemList& items)
{
    std::vector<const ChartItem*> points = readablePoints(items);
    const auto seriesOf = [&contents](const ChartItem* point) {
        return seriesIndex(*point, contents.series);
    };
    std::stable_sort(points.begin(), points.end(),
                     [&](const ChartItem* one, const ChartItem* other) {
                         return seriesOf(one) < seriesOf(other);
                     });
    QString text = QStringLiteral("Gráfica «%1». Eje horizontal: %2, de %3 a %4. Eje vertical: %5, "
                                  "de %6 a %7. Puntos: %8.")
                       .arg(contents.caption, contents.x.id, boundText(view.x.low()),
                            boundText(view.x.high()), contents.y.id, boundText(view.y.low()),
                            boundText(view.y.high()), QString::number(points.size()));
    constexpr std::size_t mostPoints = 1000; // more would keep a reader busy for hours
    std::size_t lastSeries = contents.series.size();
    for (std::size_t i = 0; i < std::min(points.size(), mostPoints); ++i) {
        const std::size_t series = seriesOf(points[i]);
        if (series != lastSeries && series < contents.series.size())
            text += QLatin1Char('\n') + contents.series[series].name + QLatin1Char(':');
        lastSeries = series;
        text += QLatin1Char('\n') + base::generalText(points[i]->x) + QStringLiteral("; ") +
                base::generalText(points[i]->y);
    }
    if (points.size() > mostPoints)
        text += QStringLiteral("\n... y %1 más").arg(points.size() - mostPoints);
    return text;
}

} // namespace chart
