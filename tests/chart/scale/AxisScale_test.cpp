// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/AxisScale.h"

#include "chart/scale/RangeOf.h"

#include <gtest/gtest.h>

#include <cmath>

using chart::AxisRange;
using chart::AxisScale;
using chart::PixelSpan;

namespace {

// 544 wide with rims 60 and 16 and a shadow of 4: the plot goes from 60 to 524.
const PixelSpan across = PixelSpan::horizontal(544, 60, 16, 4);
// 375 high with rims 30 and 40: from 30 down to 331.
const PixelSpan down = PixelSpan::vertical(375, 30, 40, 4);

} // namespace

TEST(AxisScale, BoundsFallOnTheEdgesOfThePlot)
{
    const AxisScale x(rangeOf(2.0, 10.0), across);
    EXPECT_EQ(x.toPixel(2.0), 60);
    EXPECT_EQ(x.toPixel(10.0), 524);
    EXPECT_EQ(x.toPixel(6.0), 292);
    EXPECT_EQ(static_cast<double>(x.factor()), 464.0 / 8.0);
    EXPECT_EQ(static_cast<double>(x.offset()), 60.0 - 58.0 * 2.0);

    const AxisScale y(rangeOf(-1.0, 1.0), down);
    EXPECT_EQ(y.toPixel(-1.0), 331);
    EXPECT_EQ(y.toPixel(1.0), 30);
    EXPECT_LT(y.factor(), 0);
}

TEST(AxisScale, TurnedAxisRunsTheOtherWay)
{
    const AxisScale x(rangeOf(10.0, 2.0), across);
    EXPECT_EQ(x.toPixel(10.0), 60);
    EXPECT_EQ(x.toPixel(2.0), 524);
}

TEST(AxisScale, LogarithmicAxisGivesEachDecadeTheSameRoom)
{
    const AxisScale x(rangeOf(1.0, 10000.0, true), across);
    EXPECT_EQ(x.toPixel(1.0), 60);
    EXPECT_EQ(x.toPixel(10.0), 60 + 116);
    EXPECT_EQ(x.toPixel(100.0), 60 + 2 * 116);
    EXPECT_EQ(x.toPixel(10000.0), 524);
}

TEST(AxisScale, WhatHasNoLogarithmIsPlacedAtZero)
{
    const AxisScale x(rangeOf(1.0, 100.0, true), across);
    for (const double value : {0.0, -7.0, 1e-100})
        EXPECT_EQ(x.toPixel(value), 0);
    EXPECT_LT(x.toPixel(1e-99), -1000);
}

TEST(AxisScale, PlotWithoutExtentPutsEverythingInTheMiddle)
{
    const AxisScale x(rangeOf(0.0, 10.0), PixelSpan::horizontal(100, 60, 36, 4));
    EXPECT_EQ(x.factor(), 0);
    EXPECT_EQ(x.toPixel(-1e300), 50);
    EXPECT_EQ(x.toPixel(7.0), 50);
    EXPECT_EQ(x.toValue(90.0), 0.0L);

    EXPECT_EQ(AxisScale(rangeOf(0.0, 10.0), PixelSpan::vertical(80, 50, 30, 0)).toPixel(3.0), 40);
    EXPECT_NE(AxisScale(rangeOf(0.0, 10.0), PixelSpan::vertical(81, 50, 30, 0)).factor(), 0);

    const AxisScale logarithmic(rangeOf(1.0, 10.0, true), PixelSpan::horizontal(100, 60, 36, 4));
    EXPECT_EQ(logarithmic.toPixel(-1.0), 60); // the far edge: 100 - 36 - 4
    EXPECT_NEAR(static_cast<double>(logarithmic.toValue(3.0)), 1.0, 1e-15);
}

TEST(AxisScale, FarOffPointsStopAtTheEndOfThePixels)
{
    const AxisScale x(rangeOf(0.0, 1.0), across);
    EXPECT_EQ(x.toPixel(1e30), 2147483647);
    EXPECT_EQ(x.toPixel(-1e30), -2147483647);
    EXPECT_EQ(x.toPixel(1e6), 60 + 464000000);
    EXPECT_EQ(AxisScale(rangeOf(0.0, 1.0), down).toPixel(1e30), -2147483647);
}

TEST(AxisScale, PixelsTurnBackIntoData)
{
    for (const bool logarithmic : {false, true}) {
        const AxisScale x(rangeOf(0.5, 200.0, logarithmic), across);
        for (const double value : {0.5, 1.0, 3.0, 77.0, 200.0}) {
            // Two roundings of a double position in 464 pixels.
            EXPECT_NEAR(static_cast<double>(x.toValue(x.toPosition(value))), value, 1e-11);
        }
    }
}

TEST(AxisScale, NarrowRangeFarFromZeroLosesNoPixels)
{
    const AxisScale x(rangeOf(1e6L, 1e6L + 1e-10L), across);
    EXPECT_EQ(x.toPixel(1e6L), 60);
    EXPECT_NEAR(x.toPosition(1e6L + 0.5e-10L), 292.0, 0.3); // 6e-14 is the last digit at 1e6
    EXPECT_NEAR(x.toPosition(1e6L + 1e-10L), 524.0, 0.3);
}

TEST(AxisScale, OneLogarithmForBothBoundsIsNoExtent)
{
    AxisRange range;
    range.setMinRange(1e-99);
    range.setBounds(1e15L, std::nextafter(1e15L, 2e15L) + 0.01L);
    range.setLogarithmic(true);
    const AxisScale x(range, across);
    const double position = x.toPosition(1e15L);
    EXPECT_TRUE(std::isfinite(position));
}
