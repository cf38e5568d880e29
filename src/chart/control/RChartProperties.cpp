// SPDX-License-Identifier: GPL-3.0-or-later
// The chart's published properties that are plain values.
#include "chart/control/RChart.h"
#include "chart/drawing/ChartDrawing.h"

#include <algorithm>

namespace chart {

namespace {

constexpr int widestLine = 64;
constexpr int widestShadow = 64;
constexpr int widestRim = 65535;

std::optional<int> rimOf(int width)
{
    return width < 0 ? std::nullopt : std::optional(std::min(width, widestRim));
}

} // namespace

void TRChart::setIdAbscissa(const QString& caption)
{
    assign(m_contents.x.id, caption);
}

void TRChart::setIdOrdinate(const QString& caption)
{
    assign(m_contents.y.id, caption);
}

void TRChart::setDecPlaceX(int decimals)
{
    assign(m_contents.x.labels.decimals, std::clamp(decimals, leastDecimals, mostDecimals));
}

void TRChart::setDecPlaceY(int decimals)
{
    assign(m_contents.y.labels.decimals, std::clamp(decimals, leastDecimals, mostDecimals));
}

void TRChart::setMinTickX(int count)
{
    assign(m_contents.x.minTick, std::clamp(count, 1, mostMinimumTicks));
}

void TRChart::setMinTickY(int count)
{
    assign(m_contents.y.minTick, std::clamp(count, 1, mostMinimumTicks));
}

void TRChart::setShortTicksX(bool on)
{
    assign(m_contents.x.shortTicks, on);
}

void TRChart::setShortTicksY(bool on)
{
    assign(m_contents.y.shortTicks, on);
}

void TRChart::setDTXFormat(const QString& format)
{
    assign(m_contents.x.labels.dateTimeFormat, format);
}

void TRChart::setDTYFormat(const QString& format)
{
    assign(m_contents.y.labels.dateTimeFormat, format);
}

void TRChart::setUserTickTextX(const QStringList& texts)
{
    assign(m_contents.x.labels.userTexts, texts);
}

void TRChart::setUserTickTextY(const QStringList& texts)
{
    assign(m_contents.y.labels.userTexts, texts);
}

void TRChart::setDataColor(const QColor& color)
{
    m_attributes.color = color.rgba();
}

void TRChart::setPenStyle(Qt::PenStyle style)
{
    m_attributes.penStyle = style;
}

void TRChart::setLineWidth(int width)
{
    m_attributes.lineWidth = std::clamp(width, 1, widestLine);
}

void TRChart::setClassDefault(int classNumber)
{
    m_attributes.classNumber = classNumber;
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

void TRChart::setCaption(const QString& caption)
{
    assign(m_contents.caption, caption);
}

void TRChart::setScaleColor(const QColor& color)
{
    assign(m_contents.style.scaleColor, color);
}

void TRChart::setGridColor(const QColor& color)
{
    assign(m_contents.style.gridColor, color);
}

void TRChart::setFillColor(const QColor& color)
{
    assign(m_contents.style.fillColor, color);
}

void TRChart::setChartColor(const QColor& color)
{
    assign(m_contents.style.chartColor, color);
}

void TRChart::setWindColor(const QColor& color)
{
    assign(m_contents.style.windColor, color);
}

void TRChart::setShadowColor(const QColor& color)
{
    assign(m_contents.style.shadowColor, color);
}

void TRChart::setShadowBakColor(const QColor& color)
{
    assign(m_contents.style.shadowBakColor, color);
}

void TRChart::setTextBkColor(const QColor& color)
{
    assign(m_contents.style.textBkColor, color);
}

void TRChart::setGridStyle(chart::GridStyle style)
{
    assign(m_contents.style.gridStyle, style);
}

void TRChart::setShadowStyle(chart::ShadowStyle style)
{
    assign(m_contents.style.shadowStyle, style);
}

void TRChart::setShadowWidth(int width)
{
    assign(m_contents.style.shadowWidth, std::clamp(width, 0, widestShadow));
}

void TRChart::setTextFontStyle(TextFontStyles style)
{
    assign(m_contents.style.textFontStyle, style);
}

void TRChart::setTextBkStyle(chart::TextBkStyle style)
{
    assign(m_contents.style.textBkStyle, style);
}

void TRChart::setTextAlignment(chart::TextAlignment alignment)
{
    assign(m_contents.style.textAlignment, alignment);
}

void TRChart::setBackGroundImg(const QImage& image)
{
    assign(m_contents.style.backGroundImg, image);
}

void TRChart::setBackGroundFill(chart::BackgroundFill fill)
{
    assign(m_contents.style.backGroundFill, fill);
}

void TRChart::setLRim(int width)
{
    assign(m_contents.rims.left, rimOf(width));
}

void TRChart::setRRim(int width)
{
    assign(m_contents.rims.right, rimOf(width));
}

void TRChart::setTRim(int width)
{
    assign(m_contents.rims.top, rimOf(width));
}

void TRChart::setBRim(int width)
{
    assign(m_contents.rims.bottom, rimOf(width));
}

void TRChart::setCrossHair(std::size_t index, const CrossHair& crossHair)
{
    assign(m_contents.crossHairs.at(index), crossHair);
}

void TRChart::setAutoRedraw(bool on)
{
    m_autoRedraw = on;
    redraw();
}

} // namespace chart
