// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/RankStatistics.h"

#include "stats/numbers/Near.h"
#include "stats/numbers/RandomSquares.h"
#include "stats/numbers/Squares.h"
#include "stats/numbers/Treatments.h"

#include <gtest/gtest.h>

using stats::TMatrix;

namespace {

/// The published steps, in doubles.
struct Transcribed {
    double t = 0.0;
    double z = 0.0;
};

Transcribed transcription(const TMatrix& observations, int n)
{
    TMatrix ranks = TMatrix::Create(n, n);
    ranks.Fill(0.0);
    stats::AddRowRanks(observations, ranks, n);
    stats::AddColumnRanks(observations, ranks, n);
    const double mean = ranks.SumOfRegion(1, 1, n, n) / (n * n);
    double between = 0.0;
    for (int k = 1; k <= n; ++k)
        between += std::pow(stats::TreatmentMean(ranks, k, n) - mean, 2);
    double total = 0.0;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column)
            total += std::pow(ranks.Elem(column, row) - mean, 2);
    }
    const double t = between / total;
    return {t, n * t / (1 - t) * ((n - 1.0) / (n + 1.0))};
}

/// The rank of a cell within its row plus its rank within its column, by counting.
double countedRankSum(const TMatrix& observations, int column, int row, int n)
{
    int rank = 0;
    for (int other = 1; other <= n; ++other) {
        rank += observations.Elem(other, row) <= observations.Elem(column, row) ? 1 : 0;
        rank += observations.Elem(column, other) <= observations.Elem(column, row) ? 1 : 0;
    }
    return rank;
}

/// Rounding of the transcription's dozens of steps, on values of about 1.
constexpr double transcriptionTolerance = 1e-13;

} // namespace

TEST(Zimmerman, RanksCountWhatIsAtMostAsLarge)
{
    const TMatrix square = squareOf({{5, 7, 5}, {1, 2, 3}, {9, 9, 9}});
    TMatrix ranks = TMatrix::Create(3, 3);
    stats::AddRowRanks(square, ranks, 3);
    const std::vector<std::vector<double>> expectedRows{{2, 3, 2}, {1, 2, 3}, {3, 3, 3}};
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column)
            EXPECT_EQ(ranks.Elem(column, row), squareOf(expectedRows).Elem(column, row));
    }
    stats::AddColumnRanks(square, ranks, 3); // columns 5 1 9, 7 2 9, 5 3 9: ranks 2 1 3 each
    const std::vector<std::vector<double>> expectedSums{{4, 5, 4}, {2, 3, 4}, {6, 6, 6}};
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column)
            EXPECT_EQ(ranks.Elem(column, row), squareOf(expectedSums).Elem(column, row));
    }
}

TEST(Zimmerman, SortingRanksAsCountingDoes)
{
    for (const int n : {1, 2, 3, 6, 8, 9, 64, 65, 100}) { // lines are sorted in two ways
        RandomSquares squares(n);
        for (int k = 0; k < 12; ++k) {
            const TMatrix square = squares.next();
            TMatrix ranks = TMatrix::Create(n, n);
            stats::AddRowRanks(square, ranks, n);
            stats::AddColumnRanks(square, ranks, n);
            for (int row = 1; row <= n; ++row) {
                for (int column = 1; column <= n; ++column)
                    ASSERT_EQ(ranks.Elem(column, row), countedRankSum(square, column, row, n));
            }
        }
    }
}

TEST(Zimmerman, TreatmentMeanFollowsTheCyclicLayout)
{
    const TMatrix square = squareOf({{1, 2, 3}, {20, 30, 10}, {300, 100, 200}});
    EXPECT_EQ(stats::TreatmentMean(square, 1, 3), 111.0 / 3.0);
    EXPECT_EQ(stats::TreatmentMean(square, 2, 3), 222.0 / 3.0);
    EXPECT_EQ(stats::TreatmentMean(square, 3, 3), 333.0 / 3.0);
}

TEST(Zimmerman, PropellantSquare)
{
    const double z = stats::ZimmermanStatistic(propellantSquare(), 5);
    EXPECT_TRUE(isNear(z, 0.613322502030869, 5e-16)); // printed with 15 digits
}

TEST(Zimmerman, LargestShareIsOneNth)
{
    // Treatments 1 < 2 < 3 and nothing else: every row and column ranks them alike.
    const TMatrix square =
        squareFrom(3, [](int column, int row) { return stats::treatmentOf(column, row, 3); });
    const stats::ZimmermanResult result = stats::zimmermanResult(square, 3);
    EXPECT_EQ(result.t, 1.0 / 3.0);
    EXPECT_EQ(result.z, 0.75); // n / (n + 1): below every critical value
}

TEST(Zimmerman, NoDifferenceBetweenTreatmentsIsExactlyZero)
{
    // Only the rows differ, and every treatment meets each row once.
    const TMatrix square = squareOf({{1, 1, 1}, {2, 2, 2}, {3, 3, 3}});
    const stats::ZimmermanResult result = stats::zimmermanResult(square, 3);
    EXPECT_EQ(result.t, 0.0);
    EXPECT_EQ(result.z, 0.0);
}

TEST(Zimmerman, EqualObservationsHaveNoStatistic)
{
    for (int n = 1; n <= 8; ++n) {
        const stats::ZimmermanResult result =
            stats::zimmermanResult(squareFrom(n, [](int, int) { return 4.0; }), n);
        EXPECT_TRUE(std::isnan(result.t)) << n;
        EXPECT_TRUE(std::isnan(result.z)) << n;
    }
}

class ZimmermanOfOrder : public ::testing::TestWithParam<int> {};

TEST_P(ZimmermanOfOrder, PropertiesOnRandomSquares)
{
    const int n = GetParam();
    RandomSquares squares(n);
    int defined = 0;
    for (int k = 0; k < propertySquares; ++k) {
        const TMatrix square = squares.next();
        const stats::ZimmermanResult result = stats::zimmermanResult(square, n);
        if (std::isnan(result.t))
            continue;
        ++defined;
        ASSERT_GE(result.z, 0.0);
        ASSERT_LE(result.t, 1.0 / n);
        ASSERT_LE(result.z, n / (n + 1.0));
        const Transcribed slow = transcription(square, n);
        ASSERT_TRUE(isNear(result.t, slow.t, transcriptionTolerance));
        ASSERT_TRUE(isNear(result.z, slow.z, transcriptionTolerance));
        // No monotone map is noticed, a constant or a positive scale least of all.
        ASSERT_EQ(stats::ZimmermanStatistic(
                      mapped(square, [](double x) { return x * x * x * 0.37 - 1000.5; }), n),
                  result.z);
        // Reading the square by columns exchanges rows and columns, and keeps the treatments.
        ASSERT_EQ(
            stats::ZimmermanStatistic(
                squareFrom(n, [&](int column, int row) { return square.Elem(row, column); }), n),
            result.z);
    }
    EXPECT_GT(defined, propertySquares * 99 / 100);
}

INSTANTIATE_TEST_SUITE_P(Orders, ZimmermanOfOrder, ::testing::Range(3, 7));
