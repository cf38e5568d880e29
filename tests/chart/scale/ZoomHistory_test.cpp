// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ZoomHistory.h"

#include <gtest/gtest.h>

using chart::View;
using chart::ZoomHistory;

namespace {

View viewUpTo(double high)
{
    View view;
    view.x.setBounds(0.0L, high);
    return view;
}

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
