// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisRange.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace chart {

/// The distance of two main ticks, and into how many short ones it is divided.
struct TickStep {
    long double step; ///< Positive.
    int subdivisions;
};

/// The most tick values, and the most grid positions, that an axis has.
inline constexpr std::size_t mostTicks = 50;

/// The most minimum counts that an axis takes: steps are 1, 2 and 5, so 20 intervals asked for are
/// at most 50 had, and no part of the axis is left without ticks.
inline constexpr int mostMinimumTicks = 20;

/// The largest of 1, 2 and 5 times a power of ten that divides the range into at least `intervals`
/// intervals; nothing where the bounds are equal.
///
/// A quotient within 1e-12 of 1, 2 or 5 in its logarithm counts as equal.
std::optional<TickStep> tickStep(long double low, long double high, int intervals);

/// The positions of the ticks and of the grid along one axis, in data coordinates and in the
/// direction from the low to the high bound.
struct AxisTicks {
    std::vector<long double> main;
    std::vector<long double> minor; ///< The short ticks; those under a main one are among them.
    std::vector<long double> grid;  ///< The short ticks, or the main ones where there are no short.
    long double step = 0.0L;        ///< Of the main ticks; 0 on a scale of decades.
};

/// Ticks on the multiples of the step, the first one at or after the low bound.
AxisTicks linearTicks(const AxisRange& range, int intervals, bool shortTicks);

/// Ticks at the powers of ten, on every second, fifth, ... of them in long ranges, with short ones
/// at their multiples 2 to 9. A range of less than two decades has linear ticks.
AxisTicks logarithmicTicks(const AxisRange& range, int intervals, bool shortTicks);

/// As linearTicks() for values in days, with steps that divide minutes, hours and days.
AxisTicks dateTimeTicks(const AxisRange& range, int intervals, bool shortTicks);

} // namespace chart
