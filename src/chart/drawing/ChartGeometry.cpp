// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/drawing/ChartGeometry.h"

#include <QFontMetrics>

namespace chart {

namespace {

TextSizes sizesOf(const QFont& font)
{
    const QFontMetrics metrics(font);
    return {metrics.height(),
            [metrics](const QString& text) { return metrics.horizontalAdvance(text); }};
}

QFont withStyle(QFont font, TextFontStyles style)
{
    font.setBold(font.bold() || style.testFlag(fsBold));
    font.setItalic(font.italic() || style.testFlag(fsItalic));
    font.setUnderline(font.underline() || style.testFlag(fsUnderline));
    return font;
}

AxisTicks ticksOf(const AxisContents& axis, const AxisRange& range)
{
    if (range.isLogarithmic())
        return logarithmicTicks(range, axis.minTick, axis.shortTicks);
    if (axis.labels.type == LabelType::ftDateTime)
        return dateTimeTicks(range, axis.minTick, axis.shortTicks);
    return linearTicks(range, axis.minTick, axis.shortTicks);
}

LabelledTicks labelledTicks(const AxisTicks& ticks, const std::vector<QString>& texts,
                            const AxisScale& scale)
{
    LabelledTicks labelled;
    labelled.texts = texts;
    for (std::size_t i = 0; i < ticks.main.size(); ++i) {
        const long double position = ticks.main[i];
        labelled.pixels.push_back(scale.toPixel(position));
        labelled.indices.push_back(ticks.step > 0 ? position / ticks.step
                                                  : static_cast<long double>(i));
    }
    return labelled;
}

} // namespace

ChartGeometry measure(const ChartContents& contents, const View& view, QSize size,
                      const QFont& font)
{
    const QFont axisFont = withStyle(font, contents.style.textFontStyle);
    QFont captionFont = axisFont;
    captionFont.setBold(true);

    const AxisTicks xTicks = ticksOf(contents.x, view.x);
    const AxisTicks yTicks = ticksOf(contents.y, view.y);
    LayoutRequest request{size,
                          contents.style.shadowWidth,
                          contents.rims,
                          contents.caption,
                          contents.x.id,
                          contents.y.id,
                          tickLabels(xTicks, view.x, contents.x.labels),
                          tickLabels(yTicks, view.y, contents.y.labels),
                          sizesOf(captionFont),
                          sizesOf(axisFont)};
    const ChartLayout layout = layOut(request);
    const Rims& rims = layout.rims;
    const int shadow = contents.style.shadowWidth;
    const AxisScale xScale(view.x,
                           PixelSpan::horizontal(size.width(), rims.left, rims.right, shadow));
    const AxisScale yScale(view.y,
                           PixelSpan::vertical(size.height(), rims.top, rims.bottom, shadow));

    ChartGeometry geometry{view,   size,   axisFont,        captionFont,     layout, xScale, yScale,
                           xTicks, yTicks, request.xLabels, request.yLabels, {},     {}};
    if (layout.xLabels) {
        geometry.xLabels =
            placeXLabels(labelledTicks(xTicks, request.xLabels, xScale), layout.plot.bottom(),
                         size.width() - rims.right, request.text);
    }
    if (layout.yLabels) {
        geometry.yLabels = placeYLabels(labelledTicks(yTicks, request.yLabels, yScale),
                                        layout.plot.left(), layout.plot.bottom(), request.text);
    }
    return geometry;
}

} // namespace chart
