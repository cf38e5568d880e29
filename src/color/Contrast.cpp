// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/Contrast.h"

#include <algorithm>
#include <cmath>

namespace color {

namespace {

/// Relative, from 0 for black to 1 for white.
double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor mixture(const QColor& from, const QColor& to, double share)
{
    const auto mixed = [share](float a, float b) {
        return static_cast<float>(a + (b - a) * share);
    };
    return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                            mixed(from.blueF(), to.blueF()));
}

} // namespace color
