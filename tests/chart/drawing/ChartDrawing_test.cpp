// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/drawing/ChartDrawing.h"

#include <gtest/gtest.h>

using chart::readableOn;

TEST(ReadableColor, KeepsTheWantedColourWhereItCanBeRead)
{
    EXPECT_EQ(readableOn(Qt::white, Qt::black), QColor(Qt::black));
    EXPECT_EQ(readableOn(QColor(239, 239, 239), Qt::blue), QColor(Qt::blue));
    EXPECT_EQ(readableOn(QColor(50, 50, 50), Qt::yellow), QColor(Qt::yellow));
}

TEST(ReadableColor, TakesBlackOrWhiteWhereItCannot)
{
    EXPECT_EQ(readableOn(QColor(50, 50, 50), Qt::black), QColor(Qt::white));
    EXPECT_EQ(readableOn(QColor(240, 240, 240), Qt::white), QColor(Qt::black));
    EXPECT_EQ(readableOn(Qt::red, Qt::red), QColor(Qt::black)); // 5.3 against 4.0
}
