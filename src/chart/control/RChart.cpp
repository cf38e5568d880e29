// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/RChart.h"

#include "chart/control/ChartDescription.h"
#include "chart/control/ChartPicture.h"
#include "chart/drawing/ChartDrawing.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace chart {

namespace {

constexpr int widestLine = 64;
constexpr int widestShadow = 64;
constexpr int widestRim = 65535;

} // namespace

TRChart::TRChart(QWidget* parent, Measure measure)
    : QWidget(parent)
    , m_measure(std::move(measure))
    , m_view([this](const View& view) { return unitRatio(view); })
    , m_navigation(
          *this, m_view, [this]() -> const ChartGeometry& { return geometry(); },
          [this](const View& view) { return geometryOf(view); }, [this] { redraw(); })
    , m_reader(*this, m_contents, [this] {
        return PointReader::Present{items(), geometry()};
    })
{
    installAccessibility();
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

void TRChart::ClearItems()
{
    owner().m_items.clear();
    owner().m_reader.stop();
    owner().update();
    for (TRChart* user : owner().m_users) {
        user->m_reader.stop();
        user->update();
    }
}

void TRChart::MarkAtXY(double x, double y, std::uint8_t markKind)
{
    addItem({.kind = ItemKind::Mark, .markKind = markKind, .x = x, .y = y});
}

void TRChart::FigureXY(ItemKind kind, double x, double y, double x2, double y2)
{
    if (hasSecondPair(kind))
        addItem({.kind = kind, .x = x, .y = y, .x2 = x2, .y2 = y2});
}

void TRChart::FitRangeToData(double margin)
{
    const DataExtent extent = extentOf(items(), LogScaleX(), LogScaleY());
    m_view.fit(boundsAround(extent.x, margin, LogScaleX()),
               boundsAround(extent.y, margin, LogScaleY()));
    redraw();
}

void TRChart::setUseDataOf(TRChart* other)
{
    if (other == m_source)
        return;
    // The items of a chart that draws foreign ones are those of their owner.
    TRChart* source = other != nullptr ? &other->owner() : nullptr;
    if (source == this)
        throw ChartError("RChart: Cannot share data with myself");
    if (source != nullptr && !m_users.empty())
        throw ChartError("RChart: Cannot use foreign data. Other RCharts are using my own data.");
    if (source != nullptr && source != m_source && source->m_users.size() >= mostDataShares)
        throw ChartError("RChart: Max. number of data shares exceeded");
    detachFromSource();
    m_source = source;
    if (source != nullptr)
        source->m_users.push_back(this);
    redraw();
}

void TRChart::setIsometric(bool on)
{
    m_view.setIsometric(on);
    redraw();
}

void TRChart::zoomBack()
{
    m_view.goBack();
    redraw();
}

void TRChart::zoomToFullView()
{
    m_view.goToFull();
    redraw();
}

void TRChart::setLineWidth(int width)
{
    m_attributes.lineWidth = std::clamp(width, 1, widestLine);
}

QColor TRChart::WindColor() const
{
    return windColorOf(m_contents.style, palette());
}

QColor TRChart::ShadowColor() const
{
    return shadowColorOf(m_contents.style, palette());
}

QColor TRChart::ShadowBakColor() const
{
    return shadowBakColorOf(m_contents.style, palette());
}

void TRChart::setShadowWidth(int width)
{
    assign(m_contents.style.shadowWidth, std::clamp(width, 0, widestShadow));
}

void TRChart::setAutoRedraw(bool on)
{
    m_autoRedraw = on;
    redraw();
}

const ChartGeometry& TRChart::geometry() const
{
    return geometryOf(ranges());
}

/// Kept until another view is asked for: mostly the one on which equal units settle is painted.
const ChartGeometry& TRChart::geometryOf(const View& view) const
{
    if (!m_geometry || m_geometry->size != size() || m_geometry->view != view)
        m_geometry = m_measure(m_contents, view, size(), font());
    return *m_geometry;
}

QImage TRChart::picture(bool whiteBackground) const
{
    return chartPicture(m_contents, items(), geometry(), palette(), whiteBackground);
}

std::optional<QString> TRChart::CopyToClipboardBitmap(bool whiteBackground) const
{
    return copyPicture(picture(whiteBackground));
}

base::Outcome<base::WrittenFile> TRChart::SaveAsBitmap(const QString& fileName,
                                                       bool whiteBackground) const
{
    return writePicture(bitmapFileName(fileName), picture(whiteBackground));
}

QString TRChart::bitmapFileName(const QString& chosen)
{
    return chart::bitmapFileName(chosen);
}

QString TRChart::description() const
{
    return chartDescription(m_contents, ranges(), items());
}

void TRChart::followX(const TRChart& other)
{
    m_view.followX(other.ranges().x, other.m_view.isStep());
    m_reader.followView();
    redraw();
}

void TRChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawChart(painter, m_contents, items(), geometry(), palette());
    m_navigation.draw(painter);
    m_reader.draw(painter);
}

void TRChart::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_view.keepIsometric();
}

void TRChart::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    contentsChanged();
}

void TRChart::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(m_navigation.press(*event));
}

void TRChart::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    letUserChangeView([&] { m_navigation.move(position); });
    if (event->buttons() == Qt::NoButton && MouseAction() == MouseAction::maZoomDrag)
        m_reader.readAt(position);
    else
        m_reader.stop();
}

void TRChart::mouseReleaseEvent(QMouseEvent* event)
{
    letUserChangeView([&] { m_navigation.release(*event); });
}

void TRChart::mouseDoubleClickEvent(QMouseEvent* event)
{
    letUserChangeView([&] { event->setAccepted(m_navigation.doubleClick(*event)); });
}

void TRChart::keyPressEvent(QKeyEvent* event)
{
    if (m_reader.key(event->keyCombination()))
        return;
    letUserChangeView([&] {
        if (!m_navigation.key(event->key()))
            QWidget::keyPressEvent(event);
    });
}

void TRChart::leaveEvent(QEvent* event)
{
    m_reader.stop();
    QWidget::leaveEvent(event);
}

void TRChart::focusOutEvent(QFocusEvent* event)
{
    m_reader.stop();
    QWidget::focusOutEvent(event);
}

template <typename Call>
void TRChart::letUserChangeView(Call call)
{
    const View before = ranges();
    const bool wasStep = m_view.isStep();
    call();
    if (ranges() == before && m_view.isStep() == wasStep)
        return;
    m_reader.followView();
    emit viewChanged();
}

void TRChart::addItem(ChartItem item)
{
    item.attributes = m_attributes;
    owner().m_items.add(item);
}

void TRChart::detachFromSource()
{
    if (m_source == nullptr)
        return;
    std::erase(m_source->m_users, this);
    m_source = nullptr;
}

void TRChart::setDecPlace(AxisContents& axis, int decimals)
{
    assign(axis.labels.decimals, std::clamp(decimals, leastDecimals, mostDecimals));
}

void TRChart::setMinTick(AxisContents& axis, int count)
{
    assign(axis.minTick, std::clamp(count, 1, mostMinimumTicks));
}

void TRChart::setLabelType(Axis axis, AxisContents& contents, LabelType type)
{
    m_view.setDates(axis, type == LabelType::ftDateTime);
    assign(contents.labels.type, type);
}

void TRChart::setRim(std::optional<int>& rim, int width)
{
    assign(rim, width < 0 ? std::nullopt : std::optional(std::min(width, widestRim)));
}

/// How many units of y are as long as one of x on this screen; nothing for a plot without extent.
std::optional<long double> TRChart::unitRatio(const View& view) const
{
    const QRect plot = geometryOf(view).layout.plot;
    // Its last column and row are the pixels of bounds.
    const int width = plot.right() - plot.left();
    const int height = plot.bottom() - plot.top();
    if (width < 1 || height < 1)
        return std::nullopt;
    const long double density =
        static_cast<long double>(std::max(physicalDpiY(), 1)) / std::max(physicalDpiX(), 1);
    return static_cast<long double>(height) / width * density;
}

/// Captions, labels and letters move the rims.
void TRChart::contentsChanged()
{
    m_geometry.reset();
    m_view.keepIsometric();
}

void TRChart::redraw()
{
    if (m_autoRedraw)
        update();
}

TRChart* createChart(const ChartForm& form)
{
    auto* chart = new TRChart;
    chart->setObjectName(form.name);
    chart->setAccessibleName(form.caption);
    chart->setCaption(form.caption);
    chart->setIdAbscissa(form.idAbscissa);
    chart->setIdOrdinate(form.idOrdinate);
    chart->setDecPlaceX(form.decPlaceX);
    chart->setDecPlaceY(form.decPlaceY);
    chart->setRangeHiX(form.rangeHi);
    chart->setRangeHiY(form.rangeHi);
    chart->makeFullView();
    chart->setLineWidth(2); // thinner ones look ragged
    chart->setGridStyle(GridStyle::gsHorizDotLines);
    chart->setMouseAction(MouseAction::maZoomDrag);
    return chart;
}

} // namespace chart
