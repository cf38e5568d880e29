// SPDX-License-Identifier: GPL-3.0-or-later
#include "color/Contrast.h"

#include <gtest/gtest.h>

namespace color {

namespace {

TEST(Contrast, IsThatOfTheGuidelines)
{
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21.0);
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::black), 21.0);
    EXPECT_DOUBLE_EQ(contrast(Qt::red, Qt::red), 1.0);
    // The lightest grey, and the purest red, green and blue on white, as published tables have
    // them.
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
    EXPECT_NEAR(contrast(QColor(0x33, 0x33, 0x33), Qt::white), 12.63, 0.005);
    EXPECT_NEAR(contrast(QColor(0xff, 0, 0), Qt::white), 4.00, 0.005);
    EXPECT_NEAR(contrast(QColor(0, 0xff, 0), Qt::white), 1.37, 0.005);
    EXPECT_NEAR(contrast(QColor(0, 0, 0xff), Qt::white), 8.59, 0.005);
    // Below the bend, where luminance is in proportion to the colour.
    EXPECT_DOUBLE_EQ(contrast(QColor(10, 10, 10), Qt::black), 1.0 + 10 / 255.0F / 12.92 / 0.05);
}

TEST(Mixture, GoesFromOneColourToTheOther)
{
    const QColor dark(10, 20, 30);
    const QColor light(110, 220, 230);
    EXPECT_EQ(mixture(dark, light, 0.0).rgb(), dark.rgb());
    EXPECT_EQ(mixture(dark, light, 1.0).rgb(), light.rgb());
    EXPECT_EQ(mixture(dark, light, 0.5).rgb(), QColor(60, 120, 130).rgb());
    EXPECT_EQ(mixture(dark, light, 0.25).rgb(), QColor(35, 70, 80).rgb());
}

} // namespace

} // namespace color
