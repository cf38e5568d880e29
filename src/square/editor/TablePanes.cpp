// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/TablePanes.h"

#include "controls/Named.h"
#include "grid/view/NTabEd.h"

#include <QVBoxLayout>

#include <algorithm>

namespace square {

namespace {

constexpr int shares = 5; // of the width
constexpr int usualTreatmentShares = 2;
constexpr int leastTreatmentShares = 1;

QWidget* paneOf(grid::TNTabEd& table, const QString& title)
{
    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(controls::labelOf(&table, title));
    layout->addWidget(&table, 1);
    return pane;
}

} // namespace

TablePanes::TablePanes(grid::TNTabEd& observations, const QString& observationsTitle,
                       grid::TNTabEd& treatments, const QString& treatmentsTitle)
    : QSplitter(Qt::Horizontal)
    , m_observations(observations)
    , m_treatments(treatments)
{
    setChildrenCollapsible(false);
    addWidget(paneOf(observations, observationsTitle));
    addWidget(paneOf(treatments, treatmentsTitle));
    connect(this, &QSplitter::splitterMoved, this, [this] { m_isUsers = true; });
    for (grid::TNTabEd* const table : {&m_observations, &m_treatments})
        connect(table, &grid::TNTabEd::WidthChanged, this, &TablePanes::share);
}

QSize TablePanes::wholeSize() const
{
    constexpr int widerThanScreens = 100'000; // and than can be multiplied
    const QSize most(widerThanScreens, widerThanScreens);
    const QSize observations = m_observations.wholeSize().boundedTo(most);
    const QSize treatments = m_treatments.wholeSize().boundedTo(most);
    return {std::max(observations.width() * shares / (shares - usualTreatmentShares),
                     treatments.width() * shares / usualTreatmentShares),
            observations.height()};
}

void TablePanes::resizeEvent(QResizeEvent* event)
{
    QSplitter::resizeEvent(event);
    share();
}

void TablePanes::share()
{
    if (m_isUsers)
        return;
    const int all = width() - handleWidth();
    const int usual = all * usualTreatmentShares / shares;
    const int spare = all - m_observations.wholeSize().width();
    const int treatments = spare < usual
                               ? std::max(spare, all * leastTreatmentShares / shares)
                               : std::clamp(m_treatments.wholeSize().width(), usual, spare);
    setSizes({all - treatments, treatments});
}

} // namespace square
