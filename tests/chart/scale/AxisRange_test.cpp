// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/AxisRange.h"

#include <gtest/gtest.h>

#include <cmath>

using chart::AxisRange;

namespace {

AxisRange rangeWith(double low, double high, double minRange = 1e-10)
{
    AxisRange range;
    range.setBounds(low, high);
    range.setMinRange(minRange);
    return range;
}

void expectBounds(const AxisRange& range, double low, double high)
{
    EXPECT_DOUBLE_EQ(static_cast<double>(range.low()), low);
    EXPECT_DOUBLE_EQ(static_cast<double>(range.high()), high);
}

} // namespace

TEST(AxisRange, BeginsAtZeroToTen)
{
    expectBounds(AxisRange(), 0.0, 10.0);
    EXPECT_EQ(AxisRange().minRange(), 1e-10);
    EXPECT_FALSE(AxisRange().isLogarithmic());
}

TEST(AxisRange, BoundWithinTheMinimumRangePushesTheOther)
{
    AxisRange range = rangeWith(0.0, 10.0, 2.0);
    range.setLow(9.0);
    expectBounds(range, 9.0, 11.0);
    range.setHigh(8.5);
    expectBounds(range, 6.5, 8.5);
    range.setLow(10.0); // 1.5 above the high bound is near too
    expectBounds(range, 10.0, 12.0);
}

TEST(AxisRange, BoundAtTheMinimumRangeMovesAlone)
{
    AxisRange range = rangeWith(0.0, 10.0, 2.0);
    range.setLow(8.0);
    expectBounds(range, 8.0, 10.0);
}

TEST(AxisRange, LowBoundMayBeTheGreaterOne)
{
    AxisRange range = rangeWith(0.0, 10.0);
    range.setLow(20.0);
    expectBounds(range, 20.0, 10.0);
}

TEST(AxisRange, MinimumRangeWidensLowFirstAndThenAroundTheNewCentre)
{
    AxisRange range = rangeWith(0.0, 1.0);
    range.setMinRange(4.0);
    // low = 0.5 - 2; high = (1 + low) / 2 + 2
    expectBounds(range, -1.5, 1.75);
    EXPECT_EQ(range.minRange(), 4.0);
}

TEST(AxisRange, MinimumRangeOfAWiderRangeMovesNothing)
{
    AxisRange range = rangeWith(3.0, 8.0);
    range.setMinRange(5.0);
    expectBounds(range, 3.0, 8.0);
}

TEST(AxisRange, MinimumRangeThatIsTooSmallOrNoNumberIsIgnored)
{
    AxisRange range;
    for (const double width : {1e-100, 0.0, -5.0, double(NAN), double(INFINITY)}) {
        range.setMinRange(width);
        EXPECT_EQ(range.minRange(), 1e-10);
        expectBounds(range, 0.0, 10.0);
    }
    range.setMinRange(1.1e-100);
    EXPECT_EQ(range.minRange(), 1.1e-100);
}

TEST(AxisRange, BoundThatIsNoFiniteDoubleIsIgnored)
{
    AxisRange range;
    for (const long double value :
         {static_cast<long double>(NAN), static_cast<long double>(INFINITY),
          2.0L * chart::largestBound}) {
        range.setLow(value);
        range.setHigh(-value);
        range.setBounds(value, 1.0L);
        expectBounds(range, 0.0, 10.0);
    }
}

TEST(AxisRange, EqualBoundsTogetherGetTheMinimumRange)
{
    for (const double value : {0.0, 1.0, -3.0}) {
        AxisRange range = rangeWith(5.0, 6.0, 0.5);
        range.setBounds(value, value);
        expectBounds(range, value, value + 0.5);
    }
}

TEST(AxisRange, FarFromZeroTheBoundsStillDiffer)
{
    for (const double value : {1e12, -1e20, 1e300, -1.7e308, 1.7e308, chart::largestBound}) {
        AxisRange range;
        range.setBounds(value, value);
        EXPECT_LT(range.low(), range.high()) << value;
        EXPECT_LE(range.low(), value);
        EXPECT_GE(range.high(), value);
        EXPECT_LE(range.high(), static_cast<long double>(chart::largestBound));

        range.setHigh(value);
        range.setLow(value);
        EXPECT_NE(range.low(), range.high()) << value;
    }
}

TEST(AxisRange, KeepsTenBillionthsAtAMillion)
{
    AxisRange range;
    range.setBounds(1e6L, 1e6L + 1e-10L);
    EXPECT_NEAR(static_cast<double>((range.high() - range.low()) / 1e-10L), 1.0, 1e-3);
}

TEST(AxisRange, LogarithmicBoundsWithoutALogarithmAreIgnored)
{
    AxisRange range = rangeWith(1.0, 100.0);
    range.setLogarithmic(true);
    for (const double value : {0.0, -1.0, 1e-100}) {
        range.setLow(value);
        range.setHigh(value);
        range.setBounds(value, 10.0);
        range.setBounds(10.0, value);
        expectBounds(range, 1.0, 100.0);
    }
    range.setLow(1e-99);
    expectBounds(range, 1e-99, 100.0);
}

TEST(AxisRange, PushingNeverLeavesTheLogarithms)
{
    AxisRange range = rangeWith(1e-3, 1.0, 1e-4);
    range.setLogarithmic(true);
    range.setHigh(1.05e-3); // the low bound would have to go to 9.5e-4
    expectBounds(range, 9.5e-4, 1.05e-3);
    range.setHigh(9.6e-4);
    range.setHigh(1e-5); // far enough from the low bound to turn the axis round
    EXPECT_TRUE(chart::hasLogarithm(range.low()));
    EXPECT_TRUE(chart::hasLogarithm(range.high()));
    const AxisRange before = rangeWith(5e-5, 1.0, 1e-4);
    range = before;
    range.setLogarithmic(true);
    range.setHigh(6e-5); // the low bound would have to go below 0
    expectBounds(range, 5e-5, 1.0);
}

TEST(AxisRange, SwitchingLogarithmicOnReplacesBoundsWithoutALogarithm)
{
    AxisRange range = rangeWith(0.0, 10.0);
    range.setLogarithmic(true);
    expectBounds(range, 0.01, 10.0);

    range = rangeWith(10.0, -4.0);
    range.setLogarithmic(true);
    expectBounds(range, 10.0, 0.01);

    range = rangeWith(-5.0, 0.0);
    range.setLogarithmic(true);
    expectBounds(range, 1.0, 10.0);

    range = rangeWith(2.0, 3.0);
    range.setLogarithmic(true);
    expectBounds(range, 2.0, 3.0);

    for (const double minRange : {1.7e308, chart::largestBound}) {
        range = rangeWith(-1e308, 1e308, minRange);
        range.setLogarithmic(true);
        EXPECT_TRUE(chart::hasLogarithm(range.low()) && chart::hasLogarithm(range.high()));
        EXPECT_NE(range.low(), range.high());
    }
}

TEST(AxisRange, MinimumRangeOnALogarithmicAxisKeepsItsLogarithms)
{
    AxisRange range = rangeWith(1.0, 2.0);
    range.setLogarithmic(true);
    range.setMinRange(10.0);
    // low stays: 1.5 - 5 has no logarithm; high = (2 + 1) / 2 + 5
    expectBounds(range, 1.0, 6.5);
}
