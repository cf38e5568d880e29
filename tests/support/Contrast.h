// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// What the eye needs to tell a control or a picture's lines from the ground: a contrast of 3 to 1
/// (Web Content Accessibility Guidelines 2.1, 1.4.11).
constexpr double legibleContrast = 3.0;

inline double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// The contrast ratio of the Web Content Accessibility Guidelines 2.1: 1 to 21.
inline double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}
