// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/ChartAccessible.h"

#include "chart/RChart.h"

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

void installChartAccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(chartInterface);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace chart
