// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/ChartLayout.h"
#include "chart/scale/ReadablePoints.h"
#include "chart/scale/TickLabels.h"

#include <QColor>
#include <QFlags>
#include <QImage>
#include <QString>

#include <array>
#include <vector>

namespace chart {

enum class GridStyle {
    gsNone,
    gsVertLines,
    gsHorizLines,
    gsLines,
    gsVertDotLines,
    gsHorizDotLines,
    gsDotLines,
};

enum class ShadowStyle {
    ssNone,
    ssFlying, ///< Soft, as of a sheet that floats above the window.
    ssSolid,  ///< With a sharp edge.
};

/// How captions are written.
enum TextStyle { fsBold = 1, fsItalic = 2, fsUnderline = 4 };
Q_DECLARE_FLAGS(TextFontStyles, TextStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(TextFontStyles)
enum class TextBkStyle { tbClear, tbSolid };
enum class TextAlignment { taLeft, taCenter, taRight };

/// How a background picture fills the plot.
enum class BackgroundFill { bfStretch, bfTile, bfCenter };

enum class CrossHairMode { chOff, chHoriz, chVert, chBoth };

/// A pair of lines across the plot through a point of the data.
struct CrossHair {
    CrossHairMode mode = CrossHairMode::chOff;
    double x = 0.0;
    double y = 0.0;
    QColor color = Qt::red;

    bool operator==(const CrossHair&) const = default;
};

inline constexpr std::size_t crossHairCount = 4;

struct AxisContents {
    int minTick = 4;
    bool shortTicks = true;
    LabelFormat labels;
    QString id; ///< The axis' caption.
};

/// Colours and styles. A colour that is not valid stands for the palette's: WindColor and
/// ShadowBakColor for its button face, ShadowColor for its grey text.
struct ChartStyle {
    QColor scaleColor = Qt::black;
    QColor gridColor = Qt::black;
    QColor fillColor = QColor(192, 192, 192);
    QColor chartColor = Qt::white;
    QColor windColor;
    QColor shadowColor;
    QColor shadowBakColor;
    QColor textBkColor = Qt::white;
    GridStyle gridStyle = GridStyle::gsNone;
    ShadowStyle shadowStyle = ShadowStyle::ssFlying;
    int shadowWidth = 4;
    TextFontStyles textFontStyle;
    TextBkStyle textBkStyle = TextBkStyle::tbClear;
    TextAlignment textAlignment = TextAlignment::taCenter;
    QImage backGroundImg;
    BackgroundFill backGroundFill = BackgroundFill::bfStretch;
};

/// Everything that a chart shows but its ranges and its items.
struct ChartContents {
    QString caption;
    AxisContents x;
    AxisContents y;
    ChartStyle style;
    FixedRims rims;
    std::array<CrossHair, crossHairCount> crossHairs;
    std::vector<Series> series; ///< Told, not drawn.
};

} // namespace chart
