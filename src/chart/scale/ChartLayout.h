// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace chart {

/// How much room a font takes, in logical pixels.
struct TextSizes {
    int lineHeight = 0;
    std::function<int(const QString&)> width;
};

/// The distances of the plot from the edges of the control, in logical pixels. Right and bottom are
/// counted from the outer edge of the shadow.
struct Rims {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    bool operator==(const Rims&) const = default;
};

/// Rims that the program chose; the layout chooses the others.
struct FixedRims {
    std::optional<int> left;
    std::optional<int> right;
    std::optional<int> top;
    std::optional<int> bottom;
};

/// What has to find room around the plot.
struct LayoutRequest {
    QSize size;
    int shadowWidth = 0;
    FixedRims fixed;
    QString caption;
    QString idAbscissa;
    QString idOrdinate;
    std::vector<QString> xLabels;
    std::vector<QString> yLabels;
    TextSizes captionText;
    TextSizes text; ///< Of labels and axis captions.
};

/// Where everything stands. Rectangles are null for what found no room.
struct ChartLayout {
    Rims rims;
    int ownLeftRim = 0; ///< What the layout chooses on the left, also where the program chose.
    QRect plot; ///< Its last column and row are the pixels of the high x and the low y bound.
    QRect caption;
    QRect abscissa;
    QStringList abscissaLines; ///< From top to bottom.
    QRect ordinate;            ///< Read from bottom to top.
    bool xLabels = false;
    bool yLabels = false;
};

/// Lengths of ticks and the places of labels, in logical pixels from the axis.
inline constexpr int mainTickLengthX = 7;
inline constexpr int mainTickLengthY = 6;
inline constexpr int shortTickLength = 4;
inline constexpr int xLabelDistance = 7;
inline constexpr int yLabelDistance = 9;

/// The most lines of an x axis' caption; what is left over is on the last one.
inline constexpr int mostAbscissaLines = 3;

/// Makes room around the plot for captions and labels. In a small control the plot comes first:
/// axis captions, then the caption, then the labels are left out until it has a fair share. A
/// caption of the x axis that is wider than the plot goes on in further lines.
ChartLayout layOut(const LayoutRequest& request);

/// A label that has its place.
struct PlacedLabel {
    std::size_t tick; ///< Index of its tick.
    QRect place;
};

/// The ticks of one axis, as the placing of their labels sees them.
struct LabelledTicks {
    std::vector<int> pixels;          ///< Of each tick along the axis.
    std::vector<long double> indices; ///< Each tick's value in steps, or its number.
    std::vector<QString> texts;       ///< Empty for none.
};

/// Labels under an x axis at pixel row `axisRow`, centred below their ticks; one that would reach
/// `rightEdge` ends there. Where they would touch only every 2nd, 5th, 10th, ... is kept, so that
/// round values stay.
std::vector<PlacedLabel> placeXLabels(const LabelledTicks& ticks, int axisRow, int rightEdge,
                                      const TextSizes& text);

/// Labels left of a y axis at pixel column `axisColumn`, which keep clear of the row of x labels
/// below pixel `axisRow`.
std::vector<PlacedLabel> placeYLabels(const LabelledTicks& ticks, int axisColumn, int axisRow,
                                      const TextSizes& text);

} // namespace chart
