// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/drawing/ChartDrawing.h"

#include "color/Contrast.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

QColor orPalette(const QColor& color, const QColor& fallback)
{
    return color.isValid() ? color : fallback;
}

/// A sheet of `width` layers, each a pixel further out and none darker than the one before.
void drawFlyingShadow(QPainter& painter, const QRect& plot, QColor color, int width)
{
    color.setAlphaF(std::min(1.0F, 1.6F / static_cast<float>(width + 1)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    for (int layer = width; layer > 0; --layer) {
        const int offset = std::min(layer, 2);
        painter.drawRoundedRect(plot.adjusted(offset, offset, layer, layer), layer / 2.0,
                                layer / 2.0);
    }
}

void drawShadow(QPainter& painter, const ChartStyle& style, const QRect& plot,
                const QPalette& palette)
{
    const int width = style.shadowWidth;
    if (style.shadowStyle == ShadowStyle::ssNone || width == 0)
        return;
    const QRect thrown = plot.translated(width, width);
    painter.fillRect(thrown, shadowBakColorOf(style, palette));
    const QColor color = shadowColorOf(style, palette);
    if (style.shadowStyle == ShadowStyle::ssSolid)
        painter.fillRect(thrown, color);
    else
        drawFlyingShadow(painter, plot, color, width);
}

void drawBackground(QPainter& painter, const ChartStyle& style, const QRect& plot)
{
    painter.fillRect(plot, style.chartColor);
    const QImage& image = style.backGroundImg;
    if (image.isNull())
        return;
    painter.save();
    painter.setClipRect(plot, Qt::IntersectClip);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    switch (style.backGroundFill) {
    case BackgroundFill::bfStretch:
        painter.drawImage(plot, image);
        break;
    case BackgroundFill::bfTile: {
        painter.setBrushOrigin(plot.topLeft());
        painter.fillRect(plot, QBrush(image));
        break;
    }
    case BackgroundFill::bfCenter: {
        QRect place(QPoint(), image.size());
        place.moveCenter(plot.center());
        painter.drawImage(place, image);
        break;
    }
    }
    painter.restore();
}

Qt::Alignment alignmentOf(const ChartStyle& style)
{
    switch (style.textAlignment) {
    case TextAlignment::taLeft:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case TextAlignment::taRight:
        return Qt::AlignRight | Qt::AlignVCenter;
    case TextAlignment::taCenter:
        break;
    }
    return Qt::AlignCenter;
}

void drawCaption(QPainter& painter, const ChartStyle& style, const QRect& place, const QFont& font,
                 const QString& caption)
{
    if (place.isEmpty())
        return;
    painter.setFont(font);
    const QFontMetrics metrics(font);
    const QString text = metrics.elidedText(caption.simplified(), Qt::ElideRight, place.width());
    if (style.textBkStyle == TextBkStyle::tbSolid) {
        painter.fillRect(painter.boundingRect(place, int(alignmentOf(style)), text),
                         style.textBkColor);
    }
    painter.drawText(place, int(alignmentOf(style)), text);
}

void drawCaptions(QPainter& painter, const ChartContents& contents, const ChartGeometry& geometry,
                  const QColor& background)
{
    const ChartStyle& style = contents.style;
    const ChartLayout& layout = geometry.layout;
    const bool solid = style.textBkStyle == TextBkStyle::tbSolid;
    painter.setPen(readableOn(solid ? style.textBkColor : background, style.scaleColor));
    drawCaption(painter, style, layout.caption, geometry.captionFont, contents.caption);
    QRect line = layout.abscissa;
    line.setHeight(line.height() / static_cast<int>(layout.abscissaLines.size()));
    for (const QString& words : layout.abscissaLines) {
        drawCaption(painter, style, line, geometry.font, words);
        line.translate(0, line.height());
    }

    const QRect& ordinate = layout.ordinate;
    painter.save();
    painter.translate(ordinate.left(), ordinate.bottom() + 1);
    painter.rotate(-90);
    drawCaption(painter, style, QRect(0, 0, ordinate.height(), ordinate.width()), geometry.font,
                contents.y.id);
    painter.restore();
}

void drawCrossHairs(QPainter& painter, const ChartContents& contents, const ChartGeometry& geometry)
{
    const QRect& plot = geometry.layout.plot;
    for (const CrossHair& crossHair : contents.crossHairs) {
        if (crossHair.mode == CrossHairMode::chOff || std::isnan(crossHair.x) ||
            std::isnan(crossHair.y))
            continue;
        const int x = geometry.xScale.toPixel(crossHair.x);
        const int y = geometry.yScale.toPixel(crossHair.y);
        if (crossHair.mode != CrossHairMode::chHoriz && x >= plot.left() && x <= plot.right())
            painter.fillRect(QRect(x, plot.top(), 1, plot.height()), crossHair.color);
        if (crossHair.mode != CrossHairMode::chVert && y >= plot.top() && y <= plot.bottom())
            painter.fillRect(QRect(plot.left(), y, plot.width(), 1), crossHair.color);
    }
}

} // namespace

QColor windColorOf(const ChartStyle& style, const QPalette& palette)
{
    return orPalette(style.windColor, palette.color(QPalette::Active, QPalette::Button));
}

QColor shadowColorOf(const ChartStyle& style, const QPalette& palette)
{
    return orPalette(style.shadowColor, palette.color(QPalette::Disabled, QPalette::WindowText));
}

QColor shadowBakColorOf(const ChartStyle& style, const QPalette& palette)
{
    return orPalette(style.shadowBakColor, palette.color(QPalette::Active, QPalette::Button));
}

QColor readableOn(const QColor& background, const QColor& wanted)
{
    constexpr double leastContrast = 3.0;
    if (color::contrast(background, wanted) >= leastContrast)
        return wanted;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return color::contrast(background, black) > color::contrast(background, white) ? black : white;
}

void drawChart(QPainter& painter, const ChartContents& contents, const ItemList& items,
               const ChartGeometry& geometry, const QPalette& palette)
{
    const ChartStyle& style = contents.style;
    const QColor background = windColorOf(style, palette);
    const QRect& plot = geometry.layout.plot;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(0, 0), geometry.size), background);
    if (!plot.isEmpty()) {
        drawShadow(painter, style, plot, palette);
        drawBackground(painter, style, plot);
    }
    drawScales(painter, contents, geometry, readableOn(background, style.scaleColor));
    drawCaptions(painter, contents, geometry, background);
    if (!plot.isEmpty()) {
        drawItems(painter, items, geometry, style.fillColor);
        drawCrossHairs(painter, contents, geometry);
    }
    painter.restore();
}

} // namespace chart
