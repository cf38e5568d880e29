// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/ChartDescription.h"

#include "base/NumberText.h"

#include <QStringList>

namespace chart {

namespace {

QString boundText(long double bound)
{
    return base::generalText(static_cast<double>(bound));
}

} // namespace

QString chartDescription(const ChartContents& contents, const View& view, const ItemList& items)
{
    constexpr qsizetype mostPoints = 1000; // more would keep a reader busy for hours
    QStringList points;
    qsizetype left = 0;
    for (const ChartItem& item : items) {
        if (!item.isFinite())
            continue;
        if (points.size() < mostPoints)
            points += base::generalText(item.x) + QStringLiteral("; ") + base::generalText(item.y);
        else
            ++left;
    }
    QString text = QStringLiteral("Gráfica «%1». Eje horizontal: %2, de %3 a %4. Eje vertical: %5, "
                                  "de %6 a %7. Puntos: %8.")
                       .arg(contents.caption, contents.x.id, boundText(view.x.low()),
                            boundText(view.x.high()), contents.y.id, boundText(view.y.low()),
                            boundText(view.y.high()), QString::number(points.size() + left));
    for (const QString& point : points)
        text += QLatin1Char('\n') + point;
    if (left > 0)
        text += QStringLiteral("\n... y %1 más").arg(left);
    return text;
}

} // namespace chart
