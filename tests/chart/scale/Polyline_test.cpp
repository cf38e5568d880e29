// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/Polyline.h"

#include <gtest/gtest.h>

#include <random>

using chart::cutToRect;
using chart::Polyline;

namespace {

const QRectF plot(0.0, 0.0, 100.0, 50.0);

std::vector<QPointF> reduced(const std::vector<QPointF>& points, double columnWidth = 1.0)
{
    Polyline polyline(columnWidth);
    for (const QPointF& point : points)
        polyline.add(point);
    return polyline.take();
}

} // namespace

TEST(CutToRect, KeepsWhatIsInside)
{
    const QLineF inside(10.0, 10.0, 90.0, 40.0);
    EXPECT_EQ(cutToRect(inside, plot), inside);
    EXPECT_EQ(cutToRect(QLineF(-100.0, 25.0, 300.0, 25.0), plot), QLineF(0.0, 25.0, 100.0, 25.0));
    EXPECT_EQ(cutToRect(QLineF(50.0, 25.0, 50.0, -75.0), plot), QLineF(50.0, 25.0, 50.0, 0.0));
    EXPECT_EQ(cutToRect(QLineF(3.0, 3.0, 3.0, 3.0), plot), QLineF(3.0, 3.0, 3.0, 3.0));
}

TEST(CutToRect, DropsWhatIsOutside)
{
    EXPECT_FALSE(cutToRect(QLineF(-10.0, 0.0, -5.0, 50.0), plot));
    EXPECT_FALSE(cutToRect(QLineF(0.0, 60.0, 100.0, 51.0), plot));
    EXPECT_FALSE(cutToRect(QLineF(-30.0, 20.0, 20.0, -30.0), plot)); // passes the corner
}

TEST(CutToRect, KeepsTheSlopeOfLinesFromTheEndOfThePixels)
{
    const double far = 2147483647.0;
    const auto cut = cutToRect(QLineF(-far, -far / 2, far, far / 2), plot);
    ASSERT_TRUE(cut);
    // 2e9 leaves a double digits of 5e-7.
    EXPECT_NEAR(cut->x1(), 0.0, 1e-6);
    EXPECT_NEAR(cut->y1(), 0.0, 1e-6);
    EXPECT_NEAR(cut->x2(), 100.0, 1e-6);
    EXPECT_NEAR(cut->y2(), 50.0, 1e-6);
}

TEST(PiecesInside, OfACurveThatLeavesAndComesBack)
{
    const auto pieces = chart::piecesInside(
        {{10.0, 10.0}, {20.0, 20.0}, {20.0, 100.0}, {40.0, 100.0}, {40.0, 20.0}, {50.0, 20.0}},
        plot);
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[0], (std::vector<QPointF>{{10.0, 10.0}, {20.0, 20.0}, {20.0, 50.0}}));
    EXPECT_EQ(pieces[1], (std::vector<QPointF>{{40.0, 50.0}, {40.0, 20.0}, {50.0, 20.0}}));
}

TEST(Polyline, FewPointsPerColumnAreKeptAsTheyAre)
{
    const std::vector<QPointF> points{{0.0, 1.0}, {0.5, 9.0}, {0.6, 2.0}, {3.0, 4.0}, {2.0, 5.0}};
    EXPECT_EQ(reduced(points), points);
    EXPECT_EQ(reduced({{7.0, 7.0}}), (std::vector<QPointF>{{7.0, 7.0}}));
}

TEST(Polyline, OfManyPointsInAColumnFourAreKept)
{
    EXPECT_EQ(reduced({{0.0, 5.0},
                       {0.1, 6.0},
                       {0.2, 9.0},
                       {0.3, 7.0},
                       {0.4, 1.0},
                       {0.5, 3.0},
                       {0.6, 4.0},
                       {1.0, 4.0}}),
              (std::vector<QPointF>{{0.0, 5.0}, {0.2, 9.0}, {0.4, 1.0}, {0.6, 4.0}, {1.0, 4.0}}));
}

TEST(Polyline, ReachesAsFarAsItsPointsInEveryColumn)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> height(0.0, 1000.0);
    constexpr int columns = 50;
    std::vector<QPointF> points;
    std::vector<double> lowest(columns, 1e9);
    std::vector<double> highest(columns, -1e9);
    for (int i = 0; i < 10000; ++i) {
        const QPointF point(i * columns / 10000.0, height(random));
        points.push_back(point);
        const auto column = static_cast<std::size_t>(point.x());
        lowest[column] = std::min(lowest[column], point.y());
        highest[column] = std::max(highest[column], point.y());
    }
    const std::vector<QPointF> kept = reduced(points);
    EXPECT_LE(kept.size(), 4U * columns);
    EXPECT_EQ(kept.front(), points.front());
    EXPECT_EQ(kept.back(), points.back());
    for (const QPointF& point : kept) {
        const auto column = static_cast<std::size_t>(point.x());
        if (point.y() == lowest[column])
            lowest[column] = -1;
        if (point.y() == highest[column])
            highest[column] = -1;
    }
    for (std::size_t column = 0; column < columns; ++column) {
        EXPECT_EQ(lowest[column], -1) << column;
        EXPECT_EQ(highest[column], -1) << column;
    }
}

TEST(Polyline, IsEmptyOnceTaken)
{
    Polyline polyline(1.0);
    polyline.add({1.0, 1.0});
    EXPECT_FALSE(polyline.isEmpty());
    EXPECT_EQ(polyline.take().size(), 1U);
    EXPECT_TRUE(polyline.isEmpty());
    EXPECT_TRUE(polyline.take().empty());
}
