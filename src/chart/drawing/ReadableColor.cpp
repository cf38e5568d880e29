// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/drawing/ReadableColor.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace chart {

namespace {

/// Relative luminance of WCAG 2.1.
double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const std::pair<double, double> sorted = std::minmax({luminance(one), luminance(other)});
    return (sorted.second + 0.05) / (sorted.first + 0.05);
}

} // namespace

QColor readableOn(const QColor& background, const QColor& wanted)
{
    constexpr double leastContrast = 3.0;
    if (contrast(background, wanted) >= leastContrast)
        return wanted;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return contrast(background, black) > contrast(background, white) ? black : white;
}

} // namespace chart
