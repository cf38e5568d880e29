// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ChartView.h"

#include "chart/scale/DateTimeScale.h"

#include <gtest/gtest.h>

using chart::Axis;
using chart::AxisRange;
using chart::ChartError;
using chart::ChartView;
using chart::View;
using chart::ZoomHistory;

namespace {

AxisRange range(double low, double high)
{
    AxisRange made;
    made.setBounds(low, high);
    return made;
}

View viewUpTo(double high)
{
    View view;
    view.x.setBounds(0.0L, high);
    return view;
}

/// A view on a plot twice as wide as high.
class ChartViewTest : public ::testing::Test {
protected:
    void expectShown(const AxisRange& x, const AxisRange& y) const
    {
        EXPECT_EQ(view.shown(), (View{x, y}));
    }

    std::optional<long double> unitRatio = 0.5L;
    ChartView view{[this](const View&) { return unitRatio; }};
};

} // namespace

TEST(ZoomHistory, GoesBackStepByStepAndStopsAtTheFullView)
{
    ZoomHistory history(viewUpTo(10.0));
    history.record(viewUpTo(5.0));
    history.record(viewUpTo(2.0));
    EXPECT_TRUE(history.canGoBack());
    EXPECT_EQ(history.goBack(), viewUpTo(5.0));
    EXPECT_EQ(history.goBack(), viewUpTo(10.0));
    EXPECT_FALSE(history.canGoBack());
    EXPECT_EQ(history.goBack(), viewUpTo(10.0));
}

TEST(ZoomHistory, GoesToTheFullViewAtOnce)
{
    ZoomHistory history(viewUpTo(10.0));
    history.record(viewUpTo(5.0));
    history.record(viewUpTo(2.0));
    EXPECT_EQ(history.goToFull(), viewUpTo(10.0));
    EXPECT_EQ(history.size(), 1U);
}

TEST(ZoomHistory, SameViewIsNoNewEntry)
{
    ZoomHistory history(viewUpTo(10.0));
    history.record(viewUpTo(10.0));
    EXPECT_EQ(history.size(), 1U);
}

TEST(ZoomHistory, FullHistoryForgetsItsOldStepsButNotTheFullView)
{
    ZoomHistory history(viewUpTo(1000.0));
    for (int i = 1; i <= 500; ++i)
        history.record(viewUpTo(i));
    EXPECT_EQ(history.size(), ZoomHistory::depth);
    EXPECT_EQ(history.newest(), viewUpTo(500.0));
    EXPECT_EQ(history.goBack(), viewUpTo(499.0));
    EXPECT_EQ(history.goToFull(), viewUpTo(1000.0));
}

TEST(ZoomHistory, RestartMakesANewFullView)
{
    ZoomHistory history(viewUpTo(10.0));
    history.record(viewUpTo(5.0));
    history.restart(viewUpTo(7.0));
    EXPECT_EQ(history.goToFull(), viewUpTo(7.0));
}

TEST_F(ChartViewTest, EqualUnitsMoveTheHighBoundOfTheOtherAxis)
{
    view.setIsometric(true);
    expectShown(range(0.0, 10.0), range(0.0, 5.0));
    view.setRange(Axis::Y, range(0.0, 20.0));
    expectShown(range(0.0, 40.0), range(0.0, 20.0));
    view.setRange(Axis::X, range(0.0, 8.0));
    expectShown(range(0.0, 8.0), range(0.0, 4.0));
    EXPECT_EQ(view.history().size(), 4U);
    unitRatio.reset();
    view.setRange(Axis::X, range(0.0, 3.0));
    expectShown(range(0.0, 3.0), range(0.0, 4.0));
}

TEST_F(ChartViewTest, FitShowsAllThatWasAskedForAndIsTheFullView)
{
    view.setIsometric(true);
    view.fit({0.0L, 10.0L}, {0.0L, 10.0L});
    expectShown(range(0.0, 20.0), range(0.0, 10.0));
    view.fit({0.0L, 30.0L}, {0.0L, 10.0L});
    expectShown(range(0.0, 30.0), range(0.0, 15.0));
    EXPECT_FALSE(view.history().canGoBack());
}

TEST_F(ChartViewTest, MovesAreRecordedAtTheirEnd)
{
    view.moveTo({1.0L, 11.0L}, {0.0L, 10.0L});
    view.moveTo({2.0L, 12.0L}, {0.0L, 10.0L});
    EXPECT_EQ(view.history().size(), 1U);
    view.record();
    EXPECT_EQ(view.history().newest(), view.shown());
    view.goBack();
    expectShown(range(0.0, 10.0), range(0.0, 10.0));
}

TEST_F(ChartViewTest, AViewOfTheLeastWidthIsGoneBackToToItsLastDigit)
{
    // The low bound gives way; from there to the high one it is less than the least width by a
    // rounding.
    AxisRange narrow;
    narrow.setBounds(-1.2e-10L, -2e-11L);
    narrow.setHigh(-3.33058260439016351538e-11L);
    AxisRange again;
    again.setBounds(narrow.low(), narrow.high());
    ASSERT_FALSE(again == narrow); // without its bytes, some of which mean nothing

    view.setRange(Axis::Y, narrow);
    const View before = view.shown();
    view.zoomTo({0.0L, 5.0L}, {0.0L, 5.0L});
    view.goBack();
    EXPECT_EQ(view.shown(), before);
    EXPECT_TRUE(view.isStep());
}

TEST_F(ChartViewTest, DatesAreRefusedAloudOrPassedOver)
{
    EXPECT_NO_THROW(view.setDates(Axis::X, true));
    EXPECT_THROW(view.setRange(Axis::X, range(0.0, 1e-6)), ChartError);
    EXPECT_THROW(view.fit({0.0L, 1e-6L}, {0.0L, 1.0L}), ChartError);
    view.zoomTo({0.0L, 1e-6L}, {0.0L, 1.0L});
    view.moveTo({1e9L, 2e9L}, {0.0L, 1.0L});
    expectShown(range(0.0, 10.0), range(0.0, 10.0));
    EXPECT_EQ(view.history().size(), 1U);
    view.setDates(Axis::X, false);
    view.setRange(Axis::X, range(0.0, 1e9));
    EXPECT_THROW(view.setDates(Axis::X, true), ChartError);
    EXPECT_NO_THROW(view.setRange(Axis::X, range(0.0, 1e-6)));
}
