// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/TickLabels.h"

#include "base/NumberText.h"
#include "chart/scale/DateTimeScale.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr qsizetype longestLabel = 14;

QString roundedText(double value, int decimals)
{
    if (decimals >= 0)
        return base::fixedText(value, decimals);
    const double unit = std::pow(10.0, -decimals);
    return base::fixedText(std::round(value / unit) * unit, 0);
}

/// As many decimals as were asked for, and more while two neighbours would read alike.
int decimalsApart(const std::vector<long double>& values, long double axisWidth, int decimals)
{
    const auto areAlike = [&](long double one, long double other) {
        return numberLabel(one, axisWidth, decimals) == numberLabel(other, axisWidth, decimals);
    };
    while (decimals < mostDecimals &&
           std::adjacent_find(values.begin(), values.end(), areAlike) != values.end())
        ++decimals;
    return decimals;
}

/// On a scale of decades a fixed number of decimals would show most of them as 0.
bool isScaleOfDecades(const AxisTicks& ticks, const AxisRange& range)
{
    return range.isLogarithmic() && ticks.step == 0;
}

} // namespace

QString numberLabel(long double value, long double axisWidth, int decimals)
{
    const long double width = std::abs(axisWidth);
    if (std::abs(value) < width * 1e-14L && width > 100000) {
        return decimals == 0 ? QStringLiteral("0") : base::fixedText(0.0, 1);
    }
    return roundedText(static_cast<double>(value), decimals).left(longestLabel);
}

std::vector<QString> tickLabels(const AxisTicks& ticks, const AxisRange& range,
                                const LabelFormat& format)
{
    const long double width = range.high() - range.low();
    const bool isDecades = isScaleOfDecades(ticks, range);
    const int decimals = format.type == LabelType::ftNum && !isDecades
                             ? decimalsApart(ticks.main, width, format.decimals)
                             : format.decimals;
    std::vector<QString> labels;
    labels.reserve(ticks.main.size());
    for (std::size_t i = 0; i < ticks.main.size(); ++i) {
        const long double value = ticks.main[i];
        switch (format.type) {
        case LabelType::ftNum:
            labels.push_back(isDecades ? base::generalText(static_cast<double>(value))
                                       : numberLabel(value, width, decimals));
            break;
        case LabelType::ftDateTime:
            labels.push_back(dateTimeText(value, format.dateTimeFormat).left(longestLabel));
            break;
        case LabelType::ftNoFigs:
            labels.emplace_back();
            break;
        case LabelType::ftUserText:
            labels.push_back(format.userTexts.value(static_cast<qsizetype>(i)).simplified());
            break;
        }
    }
    return labels;
}

} // namespace chart
