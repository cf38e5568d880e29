// SPDX-License-Identifier: GPL-3.0-or-later
// The third file of ChartDrawing: the grid, the frame, the ticks and their labels.
#include "chart/drawing/ChartDrawing.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace chart {

namespace {

/// Lines and short ticks nearer to each other than this, in pixels, would run together.
constexpr int leastGridDistance = 7;
constexpr int leastShortTickDistance = 4;

/// How much of the grid's colour is seen: it stays behind the data, and its lines between the main
/// ticks stay behind the others.
struct GridStrength {
    double main;
    double between;
};
constexpr GridStrength dottedStrength{0.65, 0.28};
constexpr GridStrength lineStrength{0.22, 0.1};

bool hasHorizontalLines(GridStyle style)
{
    return style == GridStyle::gsHorizLines || style == GridStyle::gsHorizDotLines ||
           style == GridStyle::gsLines || style == GridStyle::gsDotLines;
}

bool hasVerticalLines(GridStyle style)
{
    return style == GridStyle::gsVertLines || style == GridStyle::gsVertDotLines ||
           style == GridStyle::gsLines || style == GridStyle::gsDotLines;
}

bool isDotted(GridStyle style)
{
    return style == GridStyle::gsVertDotLines || style == GridStyle::gsHorizDotLines ||
           style == GridStyle::gsDotLines;
}

std::vector<int> pixelsOf(const std::vector<long double>& positions, const AxisScale& scale)
{
    std::vector<int> pixels;
    pixels.reserve(positions.size());
    for (const long double position : positions)
        pixels.push_back(scale.toPixel(position));
    return pixels;
}

bool areApart(const std::vector<int>& pixels, int distance)
{
    return pixels.size() < 2 || std::abs(pixels[1] - pixels[0]) >= distance;
}

/// A line of the grid: its pixel along the axis, and whether it stands at a main tick.
struct GridLine {
    int pixel;
    bool atMainTick;
};

/// The recorded positions, or the main ticks where those would run together.
std::vector<GridLine> gridLines(const AxisTicks& ticks, const AxisScale& scale)
{
    const std::vector<int> main = pixelsOf(ticks.main, scale);
    const std::vector<int> recorded = pixelsOf(ticks.grid, scale);
    std::vector<GridLine> lines;
    for (const int pixel : areApart(recorded, leastGridDistance) ? recorded : main) {
        lines.push_back({pixel, std::find(main.begin(), main.end(), pixel) != main.end()});
    }
    return lines;
}

QPen gridPen(const ChartStyle& style, bool atMainTick)
{
    const bool dotted = isDotted(style.gridStyle);
    const GridStrength& strength = dotted ? dottedStrength : lineStrength;
    QColor color = style.gridColor;
    color.setAlphaF(
        static_cast<float>(color.alphaF() * (atMainTick ? strength.main : strength.between)));
    QPen pen(color, 1.0, Qt::SolidLine, Qt::FlatCap);
    if (dotted)
        pen.setDashPattern({1.0, 3.0});
    return pen;
}

void drawGrid(QPainter& painter, const ChartStyle& style, const ChartGeometry& geometry)
{
    const QRect& plot = geometry.layout.plot;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.translate(0.5, 0.5); // the middle of a pixel, so that lines fill whole pixels
    if (hasHorizontalLines(style.gridStyle)) {
        for (const auto& [y, atMainTick] : gridLines(geometry.yTicks, geometry.yScale)) {
            painter.setPen(gridPen(style, atMainTick));
            if (y > plot.top() && y < plot.bottom())
                painter.drawLine(plot.left() + 1, y, plot.right() - 1, y);
        }
    }
    if (hasVerticalLines(style.gridStyle)) {
        for (const auto& [x, atMainTick] : gridLines(geometry.xTicks, geometry.xScale)) {
            painter.setPen(gridPen(style, atMainTick));
            if (x > plot.left() && x < plot.right())
                painter.drawLine(x, plot.top() + 1, x, plot.bottom() - 1);
        }
    }
    painter.restore();
}

void drawFrame(QPainter& painter, const QRect& plot, const QColor& color)
{
    painter.fillRect(QRect(plot.left(), plot.top(), plot.width(), 1), color);
    painter.fillRect(QRect(plot.left(), plot.bottom(), plot.width(), 1), color);
    painter.fillRect(QRect(plot.left(), plot.top(), 1, plot.height()), color);
    painter.fillRect(QRect(plot.right(), plot.top(), 1, plot.height()), color);
}

/// The ticks of one axis, by `draw` at their pixels along it and in their lengths.
template <typename Draw>
void drawTicks(const AxisTicks& ticks, const AxisScale& scale, int mainLength, Draw draw)
{
    const std::vector<int> minor = pixelsOf(ticks.minor, scale);
    if (areApart(minor, leastShortTickDistance)) {
        for (const int pixel : minor)
            draw(pixel, shortTickLength);
    }
    for (const int pixel : pixelsOf(ticks.main, scale))
        draw(pixel, mainLength);
}

void drawLabels(QPainter& painter, const std::vector<PlacedLabel>& labels,
                const std::vector<QString>& texts)
{
    for (const PlacedLabel& label : labels)
        painter.drawText(label.place, Qt::AlignCenter | Qt::TextDontClip, texts[label.tick]);
}

} // namespace

void drawScales(QPainter& painter, const ChartContents& contents, const ChartGeometry& geometry,
                const QColor& color)
{
    const QRect& plot = geometry.layout.plot;
    if (plot.isEmpty())
        return;
    drawGrid(painter, contents.style, geometry);
    drawFrame(painter, plot, color);
    // From the pixel next to the frame outwards.
    drawTicks(geometry.xTicks, geometry.xScale, mainTickLengthX, [&](int x, int length) {
        painter.fillRect(QRect(x, plot.bottom() + 1, 1, length), color);
    });
    drawTicks(geometry.yTicks, geometry.yScale, mainTickLengthY, [&](int y, int length) {
        painter.fillRect(QRect(plot.left() - length, y, length, 1), color);
    });
    painter.setFont(geometry.font);
    painter.setPen(color);
    drawLabels(painter, geometry.xLabels, geometry.xTexts);
    drawLabels(painter, geometry.yLabels, geometry.yTexts);
}

} // namespace chart
