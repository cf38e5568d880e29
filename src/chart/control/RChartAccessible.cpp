// SPDX-License-Identifier: GPL-3.0-or-later
// What the chart says to assistive technology: a chart with its name, and as its description the
// numbers that it shows, worked out only when they are asked for.
#include "base/NumberText.h"
#include "chart/control/RChart.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace chart {

namespace {

class ChartAccessible : public QAccessibleWidget {
public:
    explicit ChartAccessible(TRChart* chart)
        : QAccessibleWidget(chart, QAccessible::Chart)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const auto* chart = static_cast<const TRChart*>(object());
        if (kind == QAccessible::Description)
            return chart->description();
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? chart->Caption() : own;
    }
};

QAccessibleInterface* chartInterface(const QString&, QObject* object)
{
    auto* chart = qobject_cast<TRChart*>(object);
    return chart != nullptr ? new ChartAccessible(chart) : nullptr;
}

} // namespace

QString TRChart::description() const
{
    constexpr qsizetype mostPoints = 1000; // more would keep a reader busy for hours
    QStringList points;
    qsizetype left = 0;
    for (const ChartItem& item : items()) {
        if (!item.isFinite())
            continue;
        if (points.size() < mostPoints)
            points += base::generalText(item.x) + QStringLiteral("; ") + base::generalText(item.y);
        else
            ++left;
    }
    QString text =
        QStringLiteral("Gráfica «%1». Eje horizontal: %2, de %3 a %4. Eje vertical: %5, "
                       "de %6 a %7. Puntos: %8.")
            .arg(Caption(), IdAbscissa(), base::generalText(static_cast<double>(RangeLoX())),
                 base::generalText(static_cast<double>(RangeHiX())), IdOrdinate(),
                 base::generalText(static_cast<double>(RangeLoY())),
                 base::generalText(static_cast<double>(RangeHiY())),
                 QString::number(points.size() + left));
    for (const QString& point : points)
        text += QLatin1Char('\n') + point;
    if (left > 0)
        text += QStringLiteral("\n... y %1 más").arg(left);
    return text;
}

void TRChart::installAccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(chartInterface);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace chart
