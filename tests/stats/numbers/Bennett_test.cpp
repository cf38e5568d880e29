// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/RankStatistics.h"

#include "stats/numbers/Near.h"
#include "stats/numbers/RandomSquares.h"
#include "stats/numbers/Squares.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using stats::TMatrix;

namespace {

/// The formula in doubles, from the rank sums by counting.
double transcribedB(const TMatrix& observations, int n)
{
    const double cells = n * n;
    double s = 0.0;
    for (int k = 1; k <= n; ++k) {
        const auto rankSum = static_cast<double>(stats::TreatmentRankSum(observations, k, n));
        s += rankSum * rankSum;
    }
    return s / n * 12 / (cells * (cells + 1)) - 3 * (cells + 1);
}

/// Rounding of a difference of numbers of up to some 400.
constexpr double toleranceOfB = 1e-12;

/// A square of the numbers 1 to n^2 in random order.
class Permutations {
public:
    explicit Permutations(int n)
        : m_n(n)
        , m_values(static_cast<std::size_t>(n * n))
    {
        std::iota(m_values.begin(), m_values.end(), 1);
    }

    TMatrix next()
    {
        std::shuffle(m_values.begin(), m_values.end(), m_generator);
        return squareFrom(m_n, [this](int column, int row) {
            return m_values[static_cast<std::size_t>((row - 1) * m_n + column - 1)];
        });
    }

private:
    int m_n;
    std::vector<int> m_values;
    std::mt19937 m_generator{99};
};

} // namespace

TEST(Bennett, OverallRanksCountWhatIsAtMostAsLarge)
{
    const TMatrix square = squareOf({{5, 7, 5}, {1, 2, 3}, {9, 9, 9}});
    EXPECT_EQ(stats::OverallRank(square, 1, 1, 3), 5);
    EXPECT_EQ(stats::OverallRank(square, 3, 1, 3), 5);
    EXPECT_EQ(stats::OverallRank(square, 2, 1, 3), 6);
    EXPECT_EQ(stats::OverallRank(square, 1, 2, 3), 1);
    EXPECT_EQ(stats::OverallRank(square, 2, 3, 3), 9);
    EXPECT_EQ(stats::TreatmentRankSum(square, 1, 3), 5 + 3 + 9);
    EXPECT_EQ(stats::TreatmentRankSum(square, 2, 3), 6 + 1 + 9);
    EXPECT_EQ(stats::TreatmentRankSum(square, 3, 3), 5 + 2 + 9);
}

TEST(Bennett, PropellantSquare)
{
    EXPECT_TRUE(isNear(stats::BennettStatistic(propellantSquare(), 5), 21.1495384615385, 5e-14));
}

TEST(Bennett, IsKruskalWallisWithoutTies)
{
    // Treatments 1, 2, 3 hold the ranks 1 2 3, 4 5 6 and 7 8 9: H = 7.2, the textbook's largest
    // value for three groups of three.
    const TMatrix square = squareOf({{1, 4, 7}, {5, 8, 2}, {9, 3, 6}});
    EXPECT_EQ(stats::BennettStatistic(square, 3), 7.2);
}

TEST(Bennett, EqualObservationsHaveTheLargestValue)
{
    EXPECT_EQ(stats::BennettStatistic(squareFrom(3, [](int, int) { return 8.0; }), 3), 67.2);
    for (int n = 1; n <= 8; ++n) {
        const double cells = n * n;
        EXPECT_TRUE(isNear(stats::BennettStatistic(squareFrom(n, [](int, int) { return 8.0; }), n),
                           12 * cells * cells / (cells + 1) - 3 * (cells + 1), toleranceOfB));
    }
}

TEST(Bennett, LargeSquaresAgreeWithCounting)
{
    for (const int n : {9, 12, 20}) {
        RandomSquares squares(n);
        for (int k = 0; k < 12; ++k) {
            const TMatrix square = squares.next();
            EXPECT_TRUE(isRelativelyNear(stats::BennettStatistic(square, n),
                                         transcribedB(square, n), toleranceOfB));
        }
    }
}

class BennettOfOrder : public ::testing::TestWithParam<int> {};

TEST_P(BennettOfOrder, PropertiesOnRandomSquares)
{
    const int n = GetParam();
    RandomSquares squares(n);
    for (int k = 0; k < propertySquares; ++k) {
        const TMatrix square = squares.next();
        const double b = stats::BennettStatistic(square, n);
        ASSERT_GE(b, 0.0);
        ASSERT_EQ(stats::BennettStatistic(
                      mapped(square, [](double x) { return x * x * x * 0.37 - 1000.5; }), n),
                  b);
        ASSERT_EQ(
            stats::BennettStatistic(
                squareFrom(n, [&](int column, int row) { return square.Elem(row, column); }), n),
            b);
        // The plain counting costs N^2 comparisons: every tenth square.
        if (k % 10 == 0) {
            ASSERT_TRUE(isNear(b, transcribedB(square, n), toleranceOfB));
        }
    }
}

TEST_P(BennettOfOrder, RankSumsWithoutTiesAddUp)
{
    const int n = GetParam();
    const int cells = n * n;
    Permutations squares(n);
    for (int k = 0; k < 1000; ++k) {
        const TMatrix square = squares.next();
        std::int64_t all = 0;
        for (int treatment = 1; treatment <= n; ++treatment)
            all += stats::TreatmentRankSum(square, treatment, n);
        ASSERT_EQ(all, cells * (cells + 1) / 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, BennettOfOrder, ::testing::Range(3, 7));
