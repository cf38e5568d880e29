// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/AxisTicks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using chart::AxisRange;
using chart::AxisTicks;
using chart::linearTicks;
using chart::tickStep;

namespace {

AxisRange fineRange(long double low, long double high, bool logarithmic = false)
{
    AxisRange range;
    range.setMinRange(2e-100);
    range.setBounds(low, high);
    range.setLogarithmic(logarithmic);
    return range;
}

void expectPositions(const std::vector<long double>& positions, const std::vector<double>& expected)
{
    ASSERT_EQ(positions.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        // A few units of the last place of the doubles that the expected values are.
        EXPECT_NEAR(static_cast<double>(positions[i]), expected[i],
                    1e-14 * (1 + std::abs(expected[i])))
            << "tick " << i;
    }
}

struct StepCase {
    long double low;
    long double high;
    int intervals;
    double step;
    int subdivisions;
};

} // namespace

TEST(TickStep, IsTheLargestRoundStepWithEnoughIntervals)
{
    const StepCase cases[] = {
        {0, 10, 8, 1, 5},         // 1.25 per interval
        {0, 8, 8, 1, 5},          // exactly 1
        {0, 15.99L, 8, 1, 5},     // just under 2
        {0, 16, 8, 2, 4},         // exactly 2 takes the larger step
        {0, 39.99L, 8, 2, 4},     // just under 5
        {0, 40, 8, 5, 5},         // exactly 5
        {0, 79.99L, 8, 5, 5},     // just under 10
        {0, 80, 8, 10, 5},        // exactly 10
        {0, 1, 8, 0.1, 5},        // 0.125
        {0, 1, 5, 0.2, 4},        // 0.2, which is no exact double
        {0, 0.5L, 5, 0.1, 5},     // 0.1
        {0.2, 1.0, 8, 0.1, 5},    // 0.8 of two inexact doubles
        {0, 1, 2, 0.5, 5},        // 0.5
        {10, 0, 8, 1, 5},         // turned round
        {-5, 5, 8, 1, 5},         //
        {0, 1e-10L, 8, 1e-11, 5}, //
        {0, 1e300L, 3, 2e299, 4}, // 3.33e299 per interval
        {0, 10, 1, 10, 5},        //
        {0, 10, 0, 10, 5},        // no count is as 1
    };
    for (const StepCase& c : cases) {
        const auto step = tickStep(c.low, c.high, c.intervals);
        ASSERT_TRUE(step);
        EXPECT_NEAR(static_cast<double>(step->step) / c.step, 1.0, 1e-15)
            << static_cast<double>(c.low) << ".." << static_cast<double>(c.high) << " / "
            << c.intervals;
        EXPECT_EQ(step->subdivisions, c.subdivisions) << c.step;
    }
}

TEST(TickStep, EqualBoundsHaveNone)
{
    EXPECT_FALSE(tickStep(3, 3, 8));
}

TEST(TickStep, FractionsWithinATrillionthCountAsEqual)
{
    // log10 changes by 0.434 of the relative change.
    EXPECT_EQ(tickStep(0, 2.0L * (1 - 2e-12L), 1)->step, 2.0L);
    EXPECT_EQ(tickStep(0, 2.0L * (1 - 3e-12L), 1)->step, 1.0L);
    EXPECT_EQ(tickStep(0, 5.0L * (1 - 2e-12L), 1)->step, 5.0L);
    EXPECT_EQ(tickStep(0, 5.0L * (1 - 3e-12L), 1)->step, 2.0L);
}

TEST(TickStep, GivesBetweenAllAskedForAndTwoAndAHalfTimesAsMany)
{
    std::mt19937 random(20);
    std::uniform_real_distribution<double> exponent(-90.0, 300.0);
    std::uniform_int_distribution<int> counts(1, 50);
    for (int i = 0; i < 20000; ++i) {
        const long double width = std::pow(10.0L, static_cast<long double>(exponent(random)));
        const int count = counts(random);
        const auto step = tickStep(0, width, count);
        ASSERT_TRUE(step);
        const long double intervals = width / step->step;
        EXPECT_GE(intervals, count * (1 - 1e-11L));
        EXPECT_LE(intervals, 2.5L * count * (1 + 1e-11L));
    }
}

TEST(LinearTicks, BeginAtTheFirstMultipleAndEndWithTheRange)
{
    expectPositions(linearTicks(fineRange(0.0, 10.0), 8, false).main,
                    {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    expectPositions(linearTicks(fineRange(0.3, 1.85), 3, false).main, {0.5, 1.0, 1.5});
    expectPositions(linearTicks(fineRange(-0.25, 0.31), 5, false).main,
                    {-0.2, -0.1, 0.0, 0.1, 0.2, 0.3});
}

TEST(LinearTicks, BoundThatIsNoExactDoubleHasItsTick)
{
    expectPositions(linearTicks(fineRange(0.1, 0.7), 6, false).main,
                    {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7});
}

TEST(LinearTicks, RunDownOnATurnedAxis)
{
    expectPositions(linearTicks(fineRange(9.5, 0.0), 4, false).main, {8, 6, 4, 2, 0});
}

TEST(LinearTicks, ShortTicksDivideEachStepAndStayInsideTheBounds)
{
    const AxisTicks ticks = linearTicks(fineRange(0.5, 3.1), 2, true);
    expectPositions(ticks.main, {1, 2, 3});
    expectPositions(ticks.minor, {0.6, 0.8, 1.0, 1.2, 1.4, 1.6, 1.8, 2.0, 2.2, 2.4, 2.6, 2.8, 3.0});
    EXPECT_EQ(ticks.grid, ticks.minor);
}

TEST(LinearTicks, ShortTickAtEitherBoundIsThere)
{
    const AxisTicks ticks = linearTicks(fineRange(0.0, 2.0), 2, true);
    expectPositions(ticks.minor, {0, 0.2, 0.4, 0.6, 0.8, 1, 1.2, 1.4, 1.6, 1.8, 2});
}

TEST(LinearTicks, GridFollowsTheMainTicksWhenThereAreNoShortOnes)
{
    const AxisTicks ticks = linearTicks(fineRange(0.0, 10.0), 4, false);
    EXPECT_TRUE(ticks.minor.empty());
    EXPECT_EQ(ticks.grid, ticks.main);
}

TEST(LinearTicks, AtMostFiftyGridPositionsAndTicksAreRecorded)
{
    const AxisTicks dense = linearTicks(fineRange(0.0, 19.0), 19, true);
    EXPECT_EQ(dense.main.size(), 20U);
    EXPECT_EQ(dense.minor.size(), 96U);
    EXPECT_EQ(dense.grid.size(), 50U);
    EXPECT_EQ(linearTicks(fineRange(0.0, 100.0), 100, false).main.size(), 50U);
}

TEST(LinearTicks, LastTickMayLieAThousandthOfAStepBeyondTheRange)
{
    EXPECT_EQ(linearTicks(fineRange(0.0, 9.9995), 9, false).main.size(), 11U);
    EXPECT_EQ(linearTicks(fineRange(0.0, 9.998), 9, false).main.size(), 10U);
}

TEST(LinearTicks, PositionsAreNoRunningSum)
{
    const AxisTicks ticks = linearTicks(fineRange(0.0, 2.0), 20, false);
    const auto step = *tickStep(0.0L, 2.0L, 20);
    for (std::size_t i = 0; i < ticks.main.size(); ++i)
        EXPECT_EQ(ticks.main[i], static_cast<long double>(i) * step.step);
}

TEST(LinearTicks, StepThatDoesNotMoveItsStartEndsTheWalk)
{
    const long double base = 1e18L;
    const AxisRange narrow = fineRange(base, base); // widened to what the digits can tell apart
    const AxisTicks ticks = linearTicks(narrow, 2000000000, true);
    EXPECT_LE(ticks.main.size(), 50U);
    for (std::size_t i = 1; i < ticks.main.size(); ++i)
        EXPECT_NE(ticks.main[i], ticks.main[i - 1]);
}

TEST(LinearTicks, TenBillionthsAtAMillionHaveTicks)
{
    const AxisTicks ticks = linearTicks(fineRange(1e6L, 1e6L + 1e-10L), 8, true);
    EXPECT_GE(ticks.main.size(), 9U);
    EXPECT_LE(ticks.main.size(), 12U);
}

TEST(LogarithmicTicks, StandAtThePowersOfTen)
{
    const AxisTicks ticks = logarithmicTicks(fineRange(0.05, 2000.0, true), 8, true);
    expectPositions(ticks.main, {0.1, 1, 10, 100, 1000});
    EXPECT_EQ(ticks.grid, ticks.main);
    ASSERT_FALSE(ticks.minor.empty());
    EXPECT_NEAR(static_cast<double>(ticks.minor.front()), 0.05, 1e-16);
    EXPECT_NEAR(static_cast<double>(ticks.minor.back()), 2000.0, 1e-10);
}

TEST(LogarithmicTicks, BoundsThatArePowersOfTenHaveTheirTicks)
{
    expectPositions(logarithmicTicks(fineRange(0.001, 1000.0, true), 8, false).main,
                    {0.001, 0.01, 0.1, 1, 10, 100, 1000});
    expectPositions(logarithmicTicks(fineRange(1000.0, 1.0, true), 8, false).main,
                    {1000, 100, 10, 1});
}

TEST(LogarithmicTicks, LongRangesSkipDecades)
{
    const AxisTicks ticks = logarithmicTicks(fineRange(1e-90L, 1e300L, true), 8, true);
    EXPECT_LE(ticks.main.size(), 12U);
    EXPECT_GE(ticks.main.size(), 6U);
    EXPECT_TRUE(ticks.minor.empty());
}

TEST(LogarithmicTicks, ShortRangesAreDividedLinearly)
{
    expectPositions(logarithmicTicks(fineRange(1.0, 5.0, true), 4, false).main, {1, 2, 3, 4, 5});
}

TEST(DateTimeTicks, DivideMinutesHoursAndDays)
{
    constexpr double hour = 1.0 / 24.0;
    const auto step = [](double days, int intervals) {
        return static_cast<double>(
            chart::dateTimeTicks(fineRange(45000.0, 45000.0 + days), intervals, true).step);
    };
    EXPECT_DOUBLE_EQ(step(1.0, 8), 3 * hour);
    EXPECT_DOUBLE_EQ(step(1.0, 4), 6 * hour);
    EXPECT_DOUBLE_EQ(step(3.0, 4), 12 * hour);
    EXPECT_DOUBLE_EQ(step(10.0, 4), 2.0);
    EXPECT_DOUBLE_EQ(step(hour, 4), hour / 4);
    EXPECT_DOUBLE_EQ(step(hour / 60, 4), 15.0 / 86400);
    EXPECT_DOUBLE_EQ(step(2.0 / 86400, 8), 1.0 / 86400); // no parts of a second
    const AxisTicks day = chart::dateTimeTicks(fineRange(45000.0, 45001.0), 8, true);
    expectPositions(day.main, {45000, 45000.125, 45000.25, 45000.375, 45000.5, 45000.625, 45000.75,
                               45000.875, 45001});
}

TEST(LogarithmicTicks, HaveALogarithmAtTheLeastBoundToo)
{
    // 1E-100 is less than a rounding away, but no axis reaches it.
    constexpr double least = chart::leastLogarithmicBound;
    for (const auto& [low, high] : {std::pair(least, 1e300), {1e300, least}, {least, 5e-100}}) {
        const AxisTicks ticks = logarithmicTicks(fineRange(low, high, true), 4, true);
        ASSERT_FALSE(ticks.main.empty());
        for (const auto& positions : {ticks.main, ticks.minor, ticks.grid}) {
            for (const long double position : positions)
                EXPECT_TRUE(chart::hasLogarithm(position)) << position << " from " << low;
        }
    }
}
