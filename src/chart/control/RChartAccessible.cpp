// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of RChart: what it is to assistive technology, a chart with its name, and with
// its description, worked out only when it is asked for.
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

void TRChart::installAccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(chartInterface);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace chart
