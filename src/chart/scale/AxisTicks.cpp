// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/AxisTicks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace chart {

namespace {

constexpr long double equalFractions = 1e-12L;

/// How far beyond the high bound, in steps, a tick may lie.
constexpr long double beyondTheEnd = 0.001L;

/// How far before the low bound, in steps, a tick may lie: a bound such as 0.1 is no exact double.
constexpr long double beforeTheStart = 1e-9L;

/// The walk along an axis: start + i x step for i = 0, 1, ..., until the position is beyond the
/// high bound or the step no longer moves it. Steps are signed here.
std::vector<long double> walk(long double start, long double step, const AxisRange& range,
                              std::size_t mostSteps)
{
    const long double direction = step < 0 ? -1.0L : 1.0L;
    const long double end = range.high() + beyondTheEnd * step;
    const long double begin = range.low() - beforeTheStart * step;
    std::vector<long double> positions;
    long double previous = start;
    for (std::size_t i = 0; i < mostSteps; ++i) {
        const long double position = start + static_cast<long double>(i) * step;
        if ((position - end) * direction > 0 || (i > 0 && position == previous))
            break;
        previous = position;
        if ((position - begin) * direction >= 0)
            positions.push_back(position);
    }
    return positions;
}

void keepAtMost(std::vector<long double>& positions, std::size_t count)
{
    if (positions.size() > count)
        positions.resize(count);
}

AxisTicks ticksAt(const AxisRange& range, const TickStep& tickStep, bool shortTicks)
{
    const long double direction = range.low() < range.high() ? 1.0L : -1.0L;
    const long double step = tickStep.step * direction;
    const long double first = std::ceil(range.low() / step - beforeTheStart) * step;

    AxisTicks ticks;
    ticks.step = tickStep.step;
    ticks.main = walk(first, step, range, mostTicks);
    if (shortTicks) {
        const auto perStep = static_cast<std::size_t>(tickStep.subdivisions);
        ticks.minor =
            walk(first - step, step / tickStep.subdivisions, range, (mostTicks + 2) * perStep);
    }
    ticks.grid = shortTicks ? ticks.minor : ticks.main;
    keepAtMost(ticks.grid, mostTicks);
    return ticks;
}

/// Decades between two ticks.
int decadeStep(int decades, int intervals)
{
    for (const int step : {1, 2, 5, 10, 20, 50, 100, 200}) {
        if (decades / step <= std::max(intervals, 10))
            return step;
    }
    return 500;
}

std::vector<long double> multiplesOfDecades(int firstDecade, int lastDecade, long double least,
                                            long double greatest)
{
    std::vector<long double> positions;
    for (int decade = firstDecade; decade <= lastDecade; ++decade) {
        for (int factor = 2; factor <= 9; ++factor) {
            const long double position = factor * std::pow(10.0L, decade);
            // A bound such as 0.05 is no exact double.
            if (position >= least * (1 - beforeTheStart) && position <= greatest)
                positions.push_back(position);
        }
    }
    return positions;
}

/// Ticks at the powers of ten.
AxisTicks decadeTicks(const AxisRange& range, int intervals, bool shortTicks)
{
    const long double least = std::min(range.low(), range.high());
    const long double greatest = std::max(range.low(), range.high());
    // A power of ten that misses its bound by a rounding is still on the axis.
    const long double first = std::log10(least) - beforeTheStart;
    const long double last = std::log10(greatest) + beforeTheStart;

    const int step = decadeStep(static_cast<int>(last - first), intervals);
    AxisTicks ticks;
    for (auto i = static_cast<int>(std::ceil(first / step)); i * step <= last; ++i)
        ticks.main.push_back(std::pow(10.0L, i * step));
    keepAtMost(ticks.main, mostTicks);
    if (shortTicks && step == 1) {
        ticks.minor = multiplesOfDecades(static_cast<int>(std::floor(first)),
                                         static_cast<int>(std::ceil(last)), least, greatest);
    }
    ticks.grid = ticks.main;
    if (range.low() > range.high()) {
        std::reverse(ticks.main.begin(), ticks.main.end());
        std::reverse(ticks.minor.begin(), ticks.minor.end());
        std::reverse(ticks.grid.begin(), ticks.grid.end());
    }
    return ticks;
}

} // namespace

std::optional<TickStep> tickStep(long double low, long double high, int intervals)
{
    const long double width = std::abs(high - low);
    if (!(width > 0))
        return std::nullopt;
    const long double exponent = std::log(width / std::max(intervals, 1)) / std::log(10.0L);
    long double whole = std::floor(exponent);
    long double fraction = exponent - whole;
    if (fraction > 1 - equalFractions) {
        whole += 1;
        fraction = 0;
    }
    const long double power = std::pow(10.0L, whole);
    if (fraction < std::log10(2.0L) - equalFractions)
        return TickStep{power, 5};
    if (fraction < std::log10(5.0L) - equalFractions)
        return TickStep{2 * power, 4};
    return TickStep{5 * power, 5};
}

AxisTicks linearTicks(const AxisRange& range, int intervals, bool shortTicks)
{
    const std::optional<TickStep> step = tickStep(range.low(), range.high(), intervals);
    if (!step || !(step->step > 0))
        return {{range.low()}, {}, {range.low()}, 0.0L};
    return ticksAt(range, *step, shortTicks);
}

AxisTicks logarithmicTicks(const AxisRange& range, int intervals, bool shortTicks)
{
    const long double decades = std::abs(std::log10(range.high()) - std::log10(range.low()));
    AxisTicks ticks = decades + 2 * beforeTheStart < 2 ? linearTicks(range, intervals, shortTicks)
                                                       : decadeTicks(range, intervals, shortTicks);
    // The rounding that a bound may be off leads to 1e-100 too, where no axis reaches.
    for (std::vector<long double>* positions : {&ticks.main, &ticks.minor, &ticks.grid})
        std::erase_if(*positions, [](long double position) { return !hasLogarithm(position); });
    return ticks;
}

AxisTicks dateTimeTicks(const AxisRange& range, int intervals, bool shortTicks)
{
    constexpr long double day = 86400.0L;
    constexpr int minute = 60;
    constexpr int hour = 3600;
    struct Clock {
        int seconds;
        int subdivisions;
    };
    static constexpr std::array<Clock, 17> clockSteps{{{12 * hour, 4},
                                                       {6 * hour, 6},
                                                       {3 * hour, 3},
                                                       {2 * hour, 4},
                                                       {hour, 4},
                                                       {30 * minute, 3},
                                                       {15 * minute, 3},
                                                       {10 * minute, 5},
                                                       {5 * minute, 5},
                                                       {2 * minute, 4},
                                                       {minute, 4},
                                                       {30, 3},
                                                       {15, 3},
                                                       {10, 5},
                                                       {5, 5},
                                                       {2, 4},
                                                       {1, 5}}};

    const long double seconds = std::abs(range.high() - range.low()) * day;
    const long double perInterval = seconds / std::max(intervals, 1);
    if (perInterval >= day)
        return linearTicks(range, intervals, shortTicks);
    for (const Clock& clock : clockSteps) {
        if (clock.seconds <= perInterval * (1 + beforeTheStart))
            return ticksAt(range, {clock.seconds / day, clock.subdivisions}, shortTicks);
    }
    return ticksAt(range, {1 / day, 5}, shortTicks);
}

} // namespace chart
