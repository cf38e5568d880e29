// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/DataExtent.h"

#include "chart/scale/AxisRange.h"

#include <gtest/gtest.h>

#include <cmath>

using chart::AxisExtent;
using chart::boundsAround;
using chart::DataExtent;
using chart::extentOf;
using chart::ItemKind;
using chart::ItemList;

namespace {

void add(ItemList& items, ItemKind kind, double x, double y, double x2 = 0.0, double y2 = 0.0)
{
    items.add({.kind = kind, .x = x, .y = y, .x2 = x2, .y2 = y2});
}

void expectExtent(const AxisExtent& extent, double min, double max)
{
    EXPECT_EQ(extent.min, min);
    EXPECT_EQ(extent.max, max);
}

} // namespace

TEST(DataExtent, FirstPointsOfOnePointKindsCount)
{
    ItemList items;
    add(items, ItemKind::Move, 3.0, -1.0, 100.0, 100.0);
    add(items, ItemKind::Line, -2.0, 5.0, -100.0, 100.0);
    add(items, ItemKind::Mark, 0.0, 7.0, 100.0, -100.0);
    const DataExtent extent = extentOf(items, false, false);
    expectExtent(extent.x, -2.0, 3.0);
    expectExtent(extent.y, -1.0, 7.0);
}

TEST(DataExtent, SecondPointsOfTwoPointKindsCountToo)
{
    for (const ItemKind kind :
         {ItemKind::Segment, ItemKind::Rectangle, ItemKind::FilledRectangle, ItemKind::Ellipse}) {
        ItemList items;
        add(items, kind, 1.0, 2.0, -4.0, 9.0);
        const DataExtent extent = extentOf(items, false, false);
        expectExtent(extent.x, -4.0, 1.0);
        expectExtent(extent.y, 2.0, 9.0);
    }
}

TEST(DataExtent, SecondPairOfErrorBarsIsAHalfWidthAndAHalfHeight)
{
    ItemList items;
    add(items, ItemKind::ErrorBars, 10.0, 20.0, 3.0, 4.0);
    const DataExtent extent = extentOf(items, false, false);
    expectExtent(extent.x, 7.0, 13.0);
    expectExtent(extent.y, 16.0, 24.0);
}

TEST(DataExtent, NegativeHalfWidthsReachAsFar)
{
    ItemList items;
    add(items, ItemKind::ErrorBars, 10.0, 20.0, -3.0, -4.0);
    expectExtent(extentOf(items, false, false).x, 7.0, 13.0);
}

TEST(DataExtent, ItemsThatAreNotFiniteDoNotCount)
{
    ItemList items;
    add(items, ItemKind::Line, NAN, 1.0);
    add(items, ItemKind::Line, 1.0, INFINITY);
    add(items, ItemKind::Segment, 1.0, 1.0, NAN, 1.0);
    EXPECT_TRUE(extentOf(items, false, false).x.isEmpty());
    add(items, ItemKind::Line, 2.0, 3.0);
    expectExtent(extentOf(items, false, false).x, 2.0, 2.0);
}

TEST(DataExtent, CoordinatesWithoutALogarithmDoNotCountOnALogarithmicAxis)
{
    ItemList items;
    add(items, ItemKind::Line, 0.0, -5.0);
    add(items, ItemKind::Line, 1e-100, 10.0);
    add(items, ItemKind::Line, 100.0, 1000.0);
    const DataExtent extent = extentOf(items, true, true);
    expectExtent(extent.x, 100.0, 100.0);
    expectExtent(extent.y, 10.0, 1000.0);
}

TEST(DataExtent, HalfWidthsBeyondTheDoublesStopAtTheirEnd)
{
    ItemList items;
    add(items, ItemKind::ErrorBars, 1.7e308, 0.0, 1.7e308, 1.0);
    expectExtent(extentOf(items, false, false).x, 0.0, chart::largestBound);
}

TEST(BoundsAround, MarginIsAPercentageOfTheWidthOnEachSide)
{
    const chart::Bounds bounds = boundsAround({10.0, 30.0}, 2.0, false);
    EXPECT_DOUBLE_EQ(static_cast<double>(bounds.low), 9.6);
    EXPECT_DOUBLE_EQ(static_cast<double>(bounds.high), 30.4);
}

TEST(BoundsAround, NothingGivesZeros)
{
    for (const bool logarithmic : {false, true}) {
        const chart::Bounds bounds = boundsAround({}, 2.0, logarithmic);
        EXPECT_EQ(bounds.low, 0.0L);
        EXPECT_EQ(bounds.high, 0.0L);
    }
}

TEST(BoundsAround, LogarithmicMarginIsAPowerOfTheRatio)
{
    // (1000 / 10) ^ 0.5 = 10 on each side.
    const chart::Bounds bounds = boundsAround({10.0, 1000.0}, 50.0, true);
    EXPECT_DOUBLE_EQ(static_cast<double>(bounds.low), 1.0);
    EXPECT_DOUBLE_EQ(static_cast<double>(bounds.high), 10000.0);
}

TEST(BoundsAround, NoMarginLeavesTheEndsAsTheyAre)
{
    for (const bool logarithmic : {false, true}) {
        for (const double margin : {0.0, double(NAN), double(INFINITY)}) {
            const chart::Bounds bounds = boundsAround({0.1, 0.7}, margin, logarithmic);
            EXPECT_EQ(bounds.low, 0.1);
            EXPECT_EQ(bounds.high, 0.7);
        }
    }
}

TEST(BoundsAround, BoundsStayWithinTheDoubles)
{
    const chart::Bounds linear = boundsAround({-1.7e308, 1.7e308}, 300.0, false);
    EXPECT_EQ(linear.low, -chart::largestBound);
    EXPECT_EQ(linear.high, chart::largestBound);
    const chart::Bounds logarithmic = boundsAround({1e-90, 1e300}, 300.0, true);
    EXPECT_TRUE(chart::hasLogarithm(logarithmic.low));
    EXPECT_EQ(logarithmic.high, chart::largestBound);
}
