// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/SequenceTests.h"

#include "stats/numbers/Near.h"
#include "stats/numbers/STATIS.h"
#include "stats/numbers/Sequences.h"
#include "stats/numbers/Squares.h"

#include <gtest/gtest.h>

using stats::RandomIntegers;

namespace {

stats::TMatrix squareOfOrderThree()
{
    return squareOf({{12.5, 14, 9.75}, {11, 10.2, 16.1}, {8.3, 12, 13}});
}

/// Labels whose C (or M) is the value at which exactly 1596 of 1680 arrangements are reached.
template <typename Statistic>
std::vector<int> labelsWith(double value, const Statistic& statistic)
{
    std::vector<int> labels{1, 1, 1, 2, 2, 2, 3, 3, 3};
    do {
        std::vector<stats::ObservationPair> pairs;
        for (const int label : labels)
            pairs.push_back({0.0, label});
        if (statistic(pairs, 3) == value)
            return labels;
    } while (std::next_permutation(labels.begin(), labels.end()));
    ADD_FAILURE() << "no arrangement gives " << value;
    return labels;
}

} // namespace

TEST(RandomIntegers, AreThoseOfTheStandardsExample)
{
    // ISO/IEC 9899:1990, 7.10.2.2, started from 1.
    RandomIntegers integers;
    for (const int expected : {16838, 5758, 10113, 17515, 31051, 5627, 23010, 7419, 16212, 4086})
        EXPECT_EQ(integers.next(), expected);
}

TEST(RandomIntegers, FillTheirRange)
{
    RandomIntegers integers;
    int least = 32767;
    int most = 0;
    double sum = 0.0;
    constexpr int draws = 1000000;
    for (int k = 0; k < draws; ++k) {
        const int drawn = integers.next();
        least = std::min(least, drawn);
        most = std::max(most, drawn);
        sum += drawn;
    }
    EXPECT_EQ(least, 0);
    EXPECT_EQ(most, 32767);
    EXPECT_TRUE(isNear(sum / draws, 16383.5, 4 * 9459.0 / 1000.0)); // four standard errors
}

TEST(SequenceTests, TheProgramHasOneGeneratorThatGoesOn)
{
    RandomIntegers fresh;
    stats::programIntegers() = RandomIntegers();
    for (int k = 0; k < 3; ++k)
        EXPECT_EQ(stats::programIntegers().next(), fresh.next());
}

TEST(SequenceTests, ExactC)
{
    RandomIntegers integers;
    const stats::TestCResult result = stats::testC(squareOfOrderThree(), 3, 0.05, integers);
    EXPECT_TRUE(isNear(result.statistic, 0.151851851851852, 5e-16));
    EXPECT_EQ(result.cumulative, 1584.0 / 1680.0); // 0.942857142857143
    EXPECT_FALSE(result.rejected);
    EXPECT_TRUE(result.exact.has_value());
    EXPECT_FALSE(result.simulated.has_value());
    EXPECT_TRUE(stats::testC(squareOfOrderThree(), 3, 0.06, integers).rejected);
    EXPECT_EQ(integers.next(), 16838) << "the exact test drew numbers";
}

TEST(SequenceTests, ExactM)
{
    const stats::TestMResult result = stats::testM(squareOfOrderThree(), 3, 0.05);
    EXPECT_TRUE(isNear(result.statistic, 0.919354838709677, 5e-16));
    EXPECT_EQ(result.cumulative, 1620.0 / 1680.0); // 0.964285714285714
    EXPECT_TRUE(result.rejected);
    EXPECT_FALSE(stats::testM(squareOfOrderThree(), 3, 0.03).rejected);
}

TEST(SequenceTests, AcceptWhenOneLessAlphaIsReachedExactly)
{
    RandomIntegers integers;
    const auto forC = squareWithLabels(labelsWith(235.0 / 1512.0, stats::SequenceCFromLabels), 3);
    const stats::TestCResult c = stats::testC(forC, 3, 0.05, integers);
    EXPECT_EQ(c.cumulative, 0.95);
    EXPECT_FALSE(c.rejected);
    EXPECT_TRUE(stats::testC(forC, 3, 0.06, integers).rejected);
    const auto forM = squareWithLabels(labelsWith(273.0 / 326.0, stats::SequenceMFromLabels), 3);
    const stats::TestMResult m = stats::testM(forM, 3, 0.05);
    EXPECT_EQ(m.cumulative, 0.95);
    EXPECT_FALSE(m.rejected);
    EXPECT_TRUE(stats::testM(forM, 3, 0.06).rejected);
}

namespace {

/// At every level of the bar and for every value, the decision in whole numbers: reject when fewer
/// than (100 - level) in 100 arrangements lie above.
void expectDecisionsOfWholeNumbers(const stats::ExactDistribution& distribution, int values)
{
    ASSERT_EQ(distribution.count(), values);
    const std::int64_t all = distribution.arrangements();
    std::int64_t upTo = 0;
    int equalities = 0;
    for (int index = 0; index < values; ++index) {
        upTo += std::llround(distribution.probability(index) * static_cast<double>(all));
        for (int level = 1; level <= 99; ++level) {
            const double alpha = (100 - level) / 100.0;
            EXPECT_EQ(stats::rejects(distribution, distribution.value(index), alpha),
                      (all - upTo) * 100 < (100 - level) * all)
                << "value " << index << ", level " << level;
            equalities += upTo * 100 == level * all ? 1 : 0;
        }
    }
    EXPECT_EQ(upTo, all);
    EXPECT_GT(equalities, 0) << "no value reaches a level exactly: the test says little";
}

} // namespace

TEST(SequenceTests, DecideAtAllLevelsAsWholeNumbersDo)
{
    expectDecisionsOfWholeNumbers(stats::exactDistributionOfC(3), 86);
    expectDecisionsOfWholeNumbers(stats::exactDistributionOfM(3), 112);
}

TEST(SequenceTests, ALevelThatIsReachedExactlyAccepts)
{
    // P = 0.2, and 1.0 - 0.8 is less than 0.2 in doubles.
    const stats::TMatrix square =
        squareOf({{41.615, 13.892, 25.721}, {75.286, 53.283, 35.347}, {59.287, 22.279, 32.988}});
    const stats::TestMResult m = stats::testM(square, 3, 0.8);
    EXPECT_EQ(m.cumulative, 0.2);
    EXPECT_FALSE(m.rejected);
    EXPECT_TRUE(stats::testM(square, 3, 0.81).rejected);
}

TEST(SequenceTests, OneObservationIsNeverRejected)
{
    RandomIntegers integers;
    const stats::TMatrix square = squareFrom(1, [](int, int) { return 2.0; });
    for (const double alpha : {0.01, 0.5, 0.99}) {
        const stats::TestCResult result = stats::testC(square, 1, alpha, integers);
        EXPECT_EQ(result.statistic, 0.0);
        EXPECT_FALSE(result.rejected);
    }
}

TEST(SequenceTests, CIsNotApproximatedBeyondItsLargestOrder)
{
    RandomIntegers integers;
    const auto squareOfOrder = [](int n) {
        return squareFrom(n, [](int column, int row) { return column * 37 % 11 + row; });
    };
    const int largest = stats::largestSimulatedOrder;
    EXPECT_TRUE(stats::testC(squareOfOrder(7), 7, 0.05, integers).simulated.has_value());
    integers = RandomIntegers();
    const stats::TestCResult result =
        stats::testC(squareOfOrder(largest + 1), largest + 1, 0.99, integers);
    EXPECT_GT(result.statistic, 0.0);
    EXPECT_FALSE(result.exact.has_value());
    EXPECT_FALSE(result.simulated.has_value());
    EXPECT_TRUE(std::isnan(result.cumulative));
    EXPECT_FALSE(result.rejected);
    EXPECT_EQ(integers.next(), 16838) << "numbers were drawn for nothing";
}

TEST(SequenceTests, ApproximatedM)
{
    const stats::TestMResult result = stats::testM(propellantSquare(), 5, 0.05);
    EXPECT_FALSE(result.exact.has_value());
    EXPECT_TRUE(isRelativelyNear(result.criticalValue, 2.86608148776, 1e-12));
    EXPECT_FALSE(result.rejected);
}

TEST(SequenceTests, ApproximatedMRejectsAtEquality)
{
    // alpha = 1 leaves a critical value of 0.
    const stats::TestMResult result = stats::testM(balancedSquare(), 4, 1.0);
    ASSERT_EQ(result.criticalValue, 0.0);
    ASSERT_EQ(result.statistic, 0.0);
    EXPECT_TRUE(result.rejected);
}

TEST(SequenceTests, SimulatedCHasTheMomentsOfManySquares)
{
    // Of each order: two streams of 5000 squares agree within four standard errors, and what is
    // reported belongs together.
    for (int n = 4; n <= 6; ++n) {
        RandomIntegers integers;
        const stats::SimulatedC first = stats::simulateC(n, integers);
        const stats::SimulatedC second = stats::simulateC(n, integers);
        EXPECT_NE(first.mean, second.mean);
        EXPECT_TRUE(isNear(first.mean, second.mean, 4 * std::sqrt(2.0 / 5000.0) * first.deviation));
        EXPECT_TRUE(isRelativelyNear(second.deviation, first.deviation, 0.1));
        EXPECT_TRUE(isRelativelyNear(first.deviation * first.deviation, first.variance, 1e-15));
    }
}

TEST(SequenceTests, SquaresAreFilledRowByRow)
{
    RandomIntegers integers;
    RandomIntegers same;
    const stats::SimulatedC simulated = stats::simulateC(4, integers);
    double sum = 0.0;
    for (int k = 0; k < stats::SimulatedC::squares; ++k) {
        stats::TMatrix square = stats::TMatrix::Create(4, 4);
        for (int row = 1; row <= 4; ++row) {
            for (int column = 1; column <= 4; ++column)
                square.Elem(column, row, same.next());
        }
        sum += stats::SequenceC(square, 4);
    }
    EXPECT_EQ(simulated.mean, sum / stats::SimulatedC::squares);
    EXPECT_EQ(integers.next(), same.next());
}

TEST(SequenceTests, ApproximatedCDividesByTheVariance)
{
    RandomIntegers integers;
    RandomIntegers same;
    const stats::TestCResult result = stats::testC(propellantSquare(), 5, 0.05, integers);
    const stats::SimulatedC simulated = stats::simulateC(5, same);
    ASSERT_TRUE(result.simulated.has_value());
    EXPECT_FALSE(result.exact.has_value());
    EXPECT_EQ(result.simulated->mean, simulated.mean);
    EXPECT_EQ(result.normalised, (result.statistic - simulated.mean) / simulated.variance);
    EXPECT_EQ(result.cumulative, stats::NormalCdf(result.normalised));
    EXPECT_EQ(result.rejected, result.cumulative > 0.95);
}

TEST(SequenceTests, WhatIsNotANumberIsNeverRejected)
{
    const stats::TMatrix square = squareFrom(1, [](int, int) { return 2.0; });
    for (const double alpha : {0.01, 0.5, 0.99}) {
        const stats::TestMResult result = stats::testM(square, 1, alpha);
        EXPECT_TRUE(std::isnan(result.cumulative));
        EXPECT_FALSE(result.rejected);
    }
}
