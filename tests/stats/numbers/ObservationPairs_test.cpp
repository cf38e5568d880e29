// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationPairs.h"

#include "stats/numbers/Treatments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

using stats::ObservationPair;

namespace {

/// Labelled in their order, so that equal values show whether they kept it.
std::vector<ObservationPair> pairsOf(const std::vector<double>& values)
{
    std::vector<ObservationPair> pairs;
    for (const double value : values)
        pairs.push_back({value, static_cast<int>(pairs.size())});
    return pairs;
}

void expectSortedAsByMerging(const std::vector<double>& values)
{
    std::vector<ObservationPair> sorted = pairsOf(values);
    stats::sortByValue(sorted);
    std::vector<ObservationPair> merged = pairsOf(values);
    std::stable_sort(merged.begin(), merged.end(),
                     [](const auto& a, const auto& b) { return a.value < b.value; });
    for (std::size_t i = 0; i < merged.size(); ++i) {
        ASSERT_EQ(sorted[i].value, merged[i].value) << i;
        ASSERT_EQ(sorted[i].label, merged[i].label) << i;
    }
}

/// On both sides of where the sorting changes.
constexpr std::array<std::size_t, 5> counts{0, 1, 999, 1000, 5000};

template <typename Next>
void expectAllCountsSorted(const Next& next)
{
    for (const std::size_t count : counts) {
        std::vector<double> values(count);
        std::generate(values.begin(), values.end(), next);
        expectSortedAsByMerging(values);
    }
}

} // namespace

TEST(ObservationPairs, AreSortedWhateverTheirMagnitudes)
{
    std::mt19937_64 generator(3);
    std::uniform_real_distribution<double> fraction(-1.0, 1.0);
    expectAllCountsSorted([&] {
        return std::ldexp(fraction(generator), static_cast<int>(generator() % 2000) - 1000);
    });
}

TEST(ObservationPairs, EqualValuesKeepTheirOrder)
{
    std::mt19937_64 generator(4);
    expectAllCountsSorted([&] { return static_cast<double>(generator() % 7) - 3.0; });
    expectAllCountsSorted([] { return 2.5; });
}

TEST(ObservationPairs, BothZerosAreOneValue)
{
    std::mt19937_64 generator(5);
    constexpr std::array values{0.0,
                                -0.0,
                                1.0,
                                -1.0,
                                std::numeric_limits<double>::denorm_min(),
                                -std::numeric_limits<double>::denorm_min(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()};
    expectAllCountsSorted([&] { return values.at(generator() % values.size()); });
}

TEST(ObservationPairs, CellsAreVisitedWithTheirTreatments)
{
    for (int n = 0; n <= 7; ++n) {
        int next = 0;
        stats::visitCells(n, [&](int column, int row, int treatment) {
            EXPECT_EQ(column, next % n + 1);
            EXPECT_EQ(row, next / n + 1);
            EXPECT_EQ(treatment, stats::treatmentOf(column, row, n));
            ++next;
        });
        EXPECT_EQ(next, n * n);
    }
}
