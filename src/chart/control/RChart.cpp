// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/RChart.h"

#include "chart/drawing/ChartDrawing.h"
#include "chart/scale/DataExtent.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace chart {

TRChart::TRChart(QWidget* parent)
    : QWidget(parent)
    , m_history(view())
{
    installAccessibility();
    for (AxisContents* axis : {&m_contents.x, &m_contents.y})
        axis->labels.dateTimeFormat = QStringLiteral("dd/MM/yyyy");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

TRChart::~TRChart()
{
    detachFromSource();
    for (TRChart* user : m_users) {
        user->m_source = nullptr;
        user->redraw();
    }
}

QSize TRChart::sizeHint() const
{
    return {400, 250};
}

QSize TRChart::minimumSizeHint() const
{
    return {160, 100};
}

const ItemList& TRChart::items() const
{
    return m_source != nullptr ? m_source->m_items : m_items;
}

void TRChart::ClearItems()
{
    sharedItems().clear();
    TRChart* owner = m_source != nullptr ? m_source : this;
    owner->update();
    for (TRChart* user : owner->m_users)
        user->update();
}

void TRChart::MoveToXY(double x, double y)
{
    ChartItem item;
    item.kind = ItemKind::Move;
    item.x = x;
    item.y = y;
    addItem(item);
}

void TRChart::LineToXY(double x, double y)
{
    ChartItem item;
    item.kind = ItemKind::Line;
    item.x = x;
    item.y = y;
    addItem(item);
}

void TRChart::MarkAtXY(double x, double y, std::uint8_t markKind)
{
    ChartItem item;
    item.kind = ItemKind::Mark;
    item.markKind = markKind;
    item.x = x;
    item.y = y;
    addItem(item);
}

void TRChart::FigureXY(ItemKind kind, double x, double y, double x2, double y2)
{
    if (!hasSecondPair(kind))
        return;
    ChartItem item;
    item.kind = kind;
    item.x = x;
    item.y = y;
    item.x2 = x2;
    item.y2 = y2;
    addItem(item);
}

void TRChart::FitRangeToData(double margin)
{
    const DataExtent extent = extentOf(items(), LogScaleX(), LogScaleY());
    const Bounds x = boundsAround(extent.x, margin, LogScaleX());
    const Bounds y = boundsAround(extent.y, margin, LogScaleY());
    View fitted = view();
    fitted.x.setBounds(x.low, x.high);
    fitted.y.setBounds(y.low, y.high);
    // Of the two ways to equal units the one that still shows all the data.
    const View byX = isometricView(fitted, Axis::X);
    const bool showsAll =
        std::abs(byX.y.high() - byX.y.low()) >= std::abs(fitted.y.high() - fitted.y.low());
    fitted = showsAll ? byX : isometricView(fitted, Axis::Y);
    requireDates(fitted);
    m_contents.x.range = fitted.x;
    m_contents.y.range = fitted.y;
    m_history.restart(fitted);
    redraw();
}

void TRChart::setUseDataOf(TRChart* other)
{
    if (other == m_source)
        return;
    if (other != nullptr) {
        // The items of a chart that draws foreign ones are those of their owner.
        TRChart* owner = other->m_source != nullptr ? other->m_source : other;
        if (owner == this)
            throw ChartError("RChart: Cannot share data with myself");
        if (!m_users.empty()) {
            throw ChartError(
                "RChart: Cannot use foreign data. Other RCharts are using my own data.");
        }
        if (owner != m_source && owner->m_users.size() >= mostDataShares)
            throw ChartError("RChart: Max. number of data shares exceeded");
        detachFromSource();
        owner->m_users.push_back(this);
        m_source = owner;
    } else {
        detachFromSource();
    }
    redraw();
}

void TRChart::zoomBack()
{
    restore(m_history.goBack());
}

void TRChart::zoomToFullView()
{
    restore(m_history.goToFull());
}

ChartGeometry TRChart::geometry() const
{
    return measure(m_contents, size(), font());
}

ItemList& TRChart::sharedItems()
{
    return m_source != nullptr ? m_source->m_items : m_items;
}

void TRChart::addItem(ChartItem item)
{
    item.attributes = m_attributes;
    sharedItems().add(item);
}

void TRChart::redraw()
{
    if (m_autoRedraw)
        update();
}

void TRChart::detachFromSource()
{
    if (m_source == nullptr)
        return;
    std::erase(m_source->m_users, this);
    m_source = nullptr;
}

void TRChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawChart(painter, m_contents, items(), geometry(), palette());
    if (m_gesture == Gesture::Zoom)
        drawZoomRectangle(painter);
}

void TRChart::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    keepIsometric();
}

void TRChart::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        keepIsometric();
}

} // namespace chart
