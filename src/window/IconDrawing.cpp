// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the program, all of one family: outlines in the colour of the text on a ground of
// the colour of paper, with four accents. Coordinates are units of a sixteenth of the side.
#include "window/IconDrawing.h"

#include "color/Contrast.h"

#include <QPalette>

namespace window {

namespace {

/// The accents stand out from light and dark grounds alike: their luminance is about 0.2.
constexpr QColor blue(0x37, 0x7f, 0xc8);
constexpr QColor green(0x35, 0x8f, 0x4f);
constexpr QColor amber(0xc0, 0x74, 0x1a);
constexpr QColor red(0xdc, 0x4c, 0x46);

struct Colors {
    QColor line;
    QColor paper;
    QColor shade; ///< Between paper and line.
};

Colors colorsOf(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::WindowText);
    const QColor base = palette.color(QPalette::Base);
    return {color::mixture(text, base, 0.2), base, color::mixture(text, base, 0.62)};
}

/// The cyclic Latin square of order 3.
void drawProgram(PixelCanvas& canvas, const Colors& colors)
{
    const QColor treatments[] = {blue, amber, green};
    canvas.fill(0, 0, 16, 16, colors.line);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            canvas.fill(1 + 5 * column, 1 + 5 * row, 4, 4, treatments[(row + column) % 3]);
}

/// A table with its headers.
void drawEditor(PixelCanvas& canvas, const Colors& colors)
{
    canvas.box(1, 2, 14, 12, colors.paper, colors.line);
    canvas.fill(2, 3, 12, 3, blue);
    canvas.fill(2, 6, 3, 7, color::mixture(blue, colors.paper, 0.55));
    for (const int x : {5, 9})
        canvas.fill(x, 3, 1, 10, colors.line);
    for (const int y : {6, 9})
        canvas.fill(2, y, 12, 1, colors.line);
}

void drawPage(PixelCanvas& canvas, const Colors& colors)
{
    canvas.box(2, 1, 12, 14, colors.paper, colors.line);
}

/// A report: lines of text over a bar chart.
void drawAnalysis(PixelCanvas& canvas, const Colors& colors)
{
    drawPage(canvas, colors);
    canvas.fill(4, 3, 8, 1, colors.shade);
    canvas.fill(4, 5, 6, 1, colors.shade);
    canvas.fill(4, 10, 2, 3, blue);
    canvas.fill(7, 8, 2, 5, amber);
    canvas.fill(10, 7, 2, 6, green);
}

void drawAxes(PixelCanvas& canvas, const Colors& colors)
{
    canvas.fill(1, 1, 1, 14, colors.line);
    canvas.fill(1, 14, 14, 1, colors.line);
}

/// Two power curves over the difference.
void drawPower(PixelCanvas& canvas, const Colors& colors)
{
    QPainterPath steep(QPointF(3, 12));
    steep.cubicTo(7, 12, 6, 3, 14, 2.5);
    QPainterPath flat(QPointF(3, 12.5));
    flat.cubicTo(9, 12.5, 9, 7.5, 14, 7);
    drawAxes(canvas, colors);
    canvas.curve(flat, amber, 1.3);
    canvas.curve(steep, blue, 1.7);
}

/// The points of a distribution.
void drawGraph(PixelCanvas& canvas, const Colors& colors)
{
    constexpr int heights[] = {3, 7, 11, 8, 4};
    drawAxes(canvas, colors);
    for (int i = 0; i < 5; ++i)
        canvas.fill(3 + 2.4 * i, 14 - heights[i], 1.4, heights[i], i == 2 ? amber : blue);
}

void drawOpen(PixelCanvas& canvas, const Colors& colors)
{
    canvas.shape({{1, 3}, {6, 3}, {8, 5}, {14, 5}, {14, 8}, {1, 8}}, colors.line);
    canvas.fill(1, 5, 1, 9, colors.line);
    canvas.shape({{3.6, 7}, {15.8, 7}, {13.4, 14}, {1.2, 14}}, amber);
}

/// A diskette.
void drawSave(PixelCanvas& canvas, const Colors& colors)
{
    canvas.fill(2, 2, 12, 12, blue);
    canvas.fill(5, 2, 6, 4, colors.paper);
    canvas.fill(8, 3, 2, 2, colors.line);
    canvas.fill(4, 8, 8, 6, colors.paper);
    canvas.fill(5, 9, 6, 1, colors.shade);
    canvas.fill(5, 11, 6, 1, colors.shade);
    canvas.frame(1, 1, 14, 14, colors.line);
}

void drawRun(PixelCanvas& canvas, const Colors&)
{
    canvas.shape({{3, 1.5}, {14, 8}, {3, 14.5}}, green);
}

void drawSaveAndAnalyse(PixelCanvas& canvas, const Colors& colors)
{
    drawSave(canvas, colors);
    canvas.shape({{7, 6}, {16, 11}, {7, 16}}, colors.line);
    canvas.shape({{8, 7.7}, {14, 11}, {8, 14.3}}, green);
}

/// A page that leaves: an arrow out of it.
void drawExport(PixelCanvas& canvas, const Colors& colors)
{
    canvas.box(1, 1, 10, 14, colors.paper, colors.line);
    canvas.fill(3, 4, 6, 1, colors.shade);
    canvas.fill(3, 11, 6, 1, colors.shade);
    canvas.fill(5, 7, 7, 2, green);
    canvas.shape({{11, 4}, {15.5, 8}, {11, 12}}, green);
}

void drawCopy(PixelCanvas& canvas, const Colors& colors)
{
    canvas.box(1, 1, 9, 11, colors.paper, colors.line);
    canvas.box(6, 4, 9, 11, colors.paper, colors.line);
    for (const int y : {7, 9, 11})
        canvas.fill(8, y, 5, 1, blue);
}

void drawWindow(PixelCanvas& canvas, const Colors& colors, qreal x, qreal y, qreal width,
                qreal height)
{
    canvas.box(x, y, width, height, colors.paper, colors.line);
    canvas.fill(x + 1, y + 1, width - 2, 2, blue);
}

void drawCascade(PixelCanvas& canvas, const Colors& colors)
{
    for (const int step : {0, 3, 6})
        drawWindow(canvas, colors, 1 + step, 1 + step, 8, 8);
}

void drawTile(PixelCanvas& canvas, const Colors& colors)
{
    for (const int x : {1, 8})
        for (const int y : {1, 8})
            drawWindow(canvas, colors, x, y, 7, 7);
}

void drawAbout(PixelCanvas& canvas, const Colors& colors)
{
    canvas.disc({8, 8}, 7, blue);
    canvas.disc({8, 4.6}, 1.2, colors.paper);
    canvas.fill(7, 7, 2, 5, colors.paper);
}

/// A door and the way out of it.
void drawExit(PixelCanvas& canvas, const Colors& colors)
{
    canvas.box(1, 1, 9, 14, colors.paper, colors.line);
    canvas.fill(7, 8, 1, 1, colors.line);
    canvas.fill(8, 6, 5, 3, colors.paper);
    canvas.fill(8, 7, 5, 2, amber);
    canvas.shape({{12, 4}, {16, 8}, {12, 12}}, amber);
}

void drawError(PixelCanvas& canvas, const Colors& colors)
{
    canvas.disc({8, 8}, 7.5, red);
    QPainterPath cross(QPointF(5.2, 5.2));
    cross.lineTo(10.8, 10.8);
    cross.moveTo(10.8, 5.2);
    cross.lineTo(5.2, 10.8);
    canvas.curve(cross, colors.paper, 1.8);
}

void drawWarning(PixelCanvas& canvas, const Colors& colors)
{
    canvas.shape({{8, 0.5}, {15.8, 15}, {0.2, 15}}, amber);
    canvas.fill(7, 5, 2, 5, colors.paper);
    canvas.disc({8, 12.3}, 1.2, colors.paper);
}

void drawQuestion(PixelCanvas& canvas, const Colors& colors)
{
    canvas.disc({8, 8}, 7.5, blue);
    QPainterPath mark(QPointF(5.6, 6));
    mark.cubicTo(5.6, 2.6, 10.6, 2.6, 10.6, 5.8);
    mark.cubicTo(10.6, 7.8, 8, 7.6, 8, 9.8);
    canvas.curve(mark, colors.paper, 1.7);
    canvas.disc({8, 12.4}, 1.1, colors.paper);
}

void drawFolder(PixelCanvas& canvas, const Colors&)
{
    canvas.shape({{1, 2}, {6, 2}, {8, 4}, {15, 4}, {15, 14}, {1, 14}}, amber);
    canvas.fill(1, 5, 14, 1, color::mixture(amber, Qt::white, 0.5));
}

void drawNewFolder(PixelCanvas& canvas, const Colors& colors)
{
    drawFolder(canvas, colors);
    canvas.disc({11.5, 11.5}, 4.5, colors.paper);
    canvas.disc({11.5, 11.5}, 4, green);
    canvas.fill(9, 11, 5, 1, colors.paper);
    canvas.fill(11, 9, 1, 5, colors.paper);
}

/// A page of text.
void drawFile(PixelCanvas& canvas, const Colors& colors)
{
    drawPage(canvas, colors);
    for (const int y : {4, 6, 8, 10})
        canvas.fill(4, y, y == 10 ? 5 : 8, 1, colors.line);
}

void drawComputer(PixelCanvas& canvas, const Colors& colors)
{
    canvas.box(1, 2, 14, 10, blue, colors.line);
    canvas.fill(7, 12, 2, 2, colors.line);
    canvas.fill(4, 14, 8, 1, colors.line);
}

void drawBack(PixelCanvas& canvas, const Colors&)
{
    canvas.shape({{1, 8}, {8, 1.5}, {8, 5}, {15, 5}, {15, 11}, {8, 11}, {8, 14.5}}, blue);
}

void drawForward(PixelCanvas& canvas, const Colors&)
{
    canvas.shape({{15, 8}, {8, 1.5}, {8, 5}, {1, 5}, {1, 11}, {8, 11}, {8, 14.5}}, blue);
}

void drawUp(PixelCanvas& canvas, const Colors&)
{
    canvas.shape({{8, 1}, {14.5, 8}, {11, 8}, {11, 15}, {5, 15}, {5, 8}, {1.5, 8}}, blue);
}

/// Names in columns.
void drawList(PixelCanvas& canvas, const Colors& colors)
{
    for (const int x : {1, 9})
        for (const int y : {2, 7, 12}) {
            canvas.fill(x, y, 2, 2, blue);
            canvas.fill(x + 3, y, 3, 2, colors.line);
        }
}

/// A name a line, with what is known of it.
void drawDetails(PixelCanvas& canvas, const Colors& colors)
{
    for (const int y : {2, 7, 12}) {
        canvas.fill(1, y, 2, 2, blue);
        canvas.fill(4, y, 11, 2, colors.line);
    }
}

void drawMinimise(PixelCanvas& canvas, const Colors& colors)
{
    canvas.fill(4, 10, 8, 2, colors.line);
}

void drawPane(PixelCanvas& canvas, const Colors& colors, qreal x, qreal y, qreal side)
{
    canvas.frame(x, y, side, side, colors.line);
    canvas.fill(x, y, side, 2, colors.line);
}

void drawMaximise(PixelCanvas& canvas, const Colors& colors)
{
    drawPane(canvas, colors, 3, 3, 10);
}

void drawRestore(PixelCanvas& canvas, const Colors& colors)
{
    drawPane(canvas, colors, 6, 2, 8);
    drawPane(canvas, colors, 2, 6, 8);
}

void drawClose(PixelCanvas& canvas, const Colors& colors)
{
    QPainterPath cross(QPointF(4, 4));
    cross.lineTo(12, 12);
    cross.moveTo(12, 4);
    cross.lineTo(4, 12);
    canvas.curve(cross, colors.line, 1.8);
}

} // namespace

void drawPicture(PixelCanvas& canvas, Picture picture, const QPalette& palette)
{
    const Colors colors = colorsOf(palette);
    switch (picture) {
    case Picture::Program:
        return drawProgram(canvas, colors);
    case Picture::Editor:
        return drawEditor(canvas, colors);
    case Picture::Analysis:
        return drawAnalysis(canvas, colors);
    case Picture::Power:
        return drawPower(canvas, colors);
    case Picture::Graph:
        return drawGraph(canvas, colors);
    case Picture::Open:
        return drawOpen(canvas, colors);
    case Picture::Save:
        return drawSave(canvas, colors);
    case Picture::SaveAndAnalyse:
        return drawSaveAndAnalyse(canvas, colors);
    case Picture::Export:
        return drawExport(canvas, colors);
    case Picture::Copy:
        return drawCopy(canvas, colors);
    case Picture::Run:
        return drawRun(canvas, colors);
    case Picture::Cascade:
        return drawCascade(canvas, colors);
    case Picture::Tile:
        return drawTile(canvas, colors);
    case Picture::About:
        return drawAbout(canvas, colors);
    case Picture::Exit:
        return drawExit(canvas, colors);
    case Picture::Error:
        return drawError(canvas, colors);
    case Picture::Warning:
        return drawWarning(canvas, colors);
    case Picture::Question:
        return drawQuestion(canvas, colors);
    case Picture::Folder:
        return drawFolder(canvas, colors);
    case Picture::NewFolder:
        return drawNewFolder(canvas, colors);
    case Picture::File:
        return drawFile(canvas, colors);
    case Picture::Computer:
        return drawComputer(canvas, colors);
    case Picture::Back:
        return drawBack(canvas, colors);
    case Picture::Forward:
        return drawForward(canvas, colors);
    case Picture::Up:
        return drawUp(canvas, colors);
    case Picture::List:
        return drawList(canvas, colors);
    case Picture::Details:
        return drawDetails(canvas, colors);
    case Picture::Minimise:
        return drawMinimise(canvas, colors);
    case Picture::Maximise:
        return drawMaximise(canvas, colors);
    case Picture::Restore:
        return drawRestore(canvas, colors);
    case Picture::Close:
        return drawClose(canvas, colors);
    }
}

} // namespace window
