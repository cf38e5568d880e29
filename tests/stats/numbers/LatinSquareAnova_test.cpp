// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/LatinSquareAnova.h"

#include "stats/numbers/STATIS.h"
#include "stats/numbers/Squares.h"
#include "stats/numbers/Treatments.h"
#include "stats/numbers/TypedSquares.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using boost::multiprecision::cpp_rational;
using stats::LatinSquareAnova;
using stats::latinSquareAnova;
using stats::TMatrix;

namespace {

constexpr double alpha = 0.05;

/// The five sums of squares are those of the reference, to the last digit.
void expectExact(const TypedSquare& square)
{
    const LatinSquareAnova anova = latinSquareAnova(square.doubles, square.n, alpha);
    const ExactAnova exact(square);
    EXPECT_EQ(anova.rows.sumOfSquares, exact.rows);
    EXPECT_EQ(anova.columns.sumOfSquares, exact.columns);
    EXPECT_EQ(anova.treatments.sumOfSquares, exact.treatments);
    EXPECT_EQ(anova.errorSumOfSquares, exact.error);
    EXPECT_EQ(anova.totalSumOfSquares, exact.total);
    if (square.n < 3 || exact.error == 0)
        return;
    EXPECT_EQ(anova.rows.statistic, cpp_rational((square.n - 2) * exact.rows / exact.error));
    EXPECT_EQ(anova.treatments.statistic,
              cpp_rational((square.n - 2) * exact.treatments / exact.error));
}

/// Constant parts in tenths: 1, 3, 7, 9 and 12 constant leading digits in front of the decimal.
constexpr std::int64_t constantParts[] = {10, 1000, 10000000, 1000000000, 1000000000000};

} // namespace

TEST(LatinSquareAnova, PropellantSquareAsPublished)
{
    const LatinSquareAnova anova = latinSquareAnova(propellantSquare(), 5, alpha);
    EXPECT_EQ(anova.rows.sumOfSquares, 68);
    EXPECT_EQ(anova.columns.sumOfSquares, 150);
    EXPECT_EQ(anova.treatments.sumOfSquares, 330);
    EXPECT_EQ(anova.errorSumOfSquares, 128);
    EXPECT_EQ(anova.totalSumOfSquares, 676);
    EXPECT_EQ(anova.sourceDegrees, 4);
    EXPECT_EQ(anova.errorDegrees, 12);
    EXPECT_EQ(anova.totalDegrees, 24);
    EXPECT_EQ(anova.treatments.meanSquare, cpp_rational(165, 2));
    EXPECT_EQ(anova.errorMeanSquare, cpp_rational(128, 12));
    EXPECT_EQ(anova.treatments.statistic, cpp_rational(990, 128));
    EXPECT_EQ(anova.criticalValue, stats::FQuantile(0.95, 4, 12));
    EXPECT_FALSE(anova.rows.significant);
    EXPECT_TRUE(anova.columns.significant);
    EXPECT_TRUE(anova.treatments.significant);
}

TEST(LatinSquareAnova, AssemblySquareAsPublished)
{
    const LatinSquareAnova anova = latinSquareAnova(assemblySquare(), 4, alpha);
    EXPECT_EQ(anova.rows.sumOfSquares, cpp_rational(37, 2));
    EXPECT_EQ(anova.columns.sumOfSquares, cpp_rational(103, 2));
    EXPECT_EQ(anova.treatments.sumOfSquares, cpp_rational(145, 2));
    EXPECT_EQ(anova.errorSumOfSquares, cpp_rational(21, 2));
    EXPECT_EQ(anova.totalSumOfSquares, 153);
    EXPECT_EQ(anova.treatments.statistic, cpp_rational(2 * 145, 21)); // 13.81
    EXPECT_TRUE(anova.treatments.significant);
}

TEST(LatinSquareAnova, ComputesWithTheDecimalsThatWereTyped)
{
    const TypedSquare square = typedSquare(
        4, 1, {413, 347, 323, 175, 334, 289, 197, 135, 303, 304, 282, 222, 215, 274, 150, 89});
    const LatinSquareAnova anova = latinSquareAnova(square.doubles, 4, alpha);
    // On the doubles it is 65.40499999999997.
    EXPECT_EQ(anova.errorSumOfSquares, cpp_rational(65405, 1000));
    EXPECT_EQ(anova.rows.sumOfSquares, cpp_rational(385545, 1000));
    expectExact(square);
}

TEST(LatinSquareAnova, IsExactBehindConstantLeadingDigits)
{
    // In the spirit of NIST's SmLs sets: a constant part and one varying decimal.
    std::mt19937_64 generator(20240229);
    for (const std::int64_t constant : constantParts) {
        for (int n = 3; n <= 6; ++n) {
            for (int k = 0; k < 50; ++k) {
                SCOPED_TRACE(::testing::Message() << constant << ", order " << n << ", no. " << k);
                expectExact(randomTypedSquare(n, 1, constant, 10, generator));
                expectExact(randomTypedSquare(n, 3, constant, 1000, generator));
            }
        }
    }
}

TEST(LatinSquareAnova, IsExactOnRandomSquares)
{
    // From one digit to all that a double keeps of a decimal: sums in 128 bits and beyond.
    std::mt19937_64 generator(11);
    for (int n = 1; n <= 8; ++n) {
        for (std::int64_t range = 2; range < 1000000000000000; range *= 7) {
            SCOPED_TRACE(::testing::Message() << "order " << n << ", " << range);
            expectExact(randomTypedSquare(n, n % 4, -range / 2, range, generator));
        }
    }
}

TEST(LatinSquareAnova, IsExactOnDataOfMixedMagnitudes)
{
    // 1e-15 beside 1e15 and 0: sums of 30 digits, their squares of 60.
    std::mt19937_64 generator(7);
    for (int n = 3; n <= 6; ++n) {
        const int decimals = 15;
        const TMatrix exponents = squareFrom(
            n, [&](int, int) { return static_cast<double>(generator() % 31) - decimals; });
        TMatrix square = TMatrix::Create(n, n);
        cpp_rational squares = 0;
        cpp_rational all = 0;
        for (int row = 1; row <= n; ++row) {
            for (int column = 1; column <= n; ++column) {
                const int exponent = static_cast<int>(exponents.Elem(column, row));
                const int digit = static_cast<int>(generator() % 10);
                square.Elem(column, row,
                            typedNumber(std::to_string(digit) + 'e' + std::to_string(exponent)));
                cpp_rational exact = digit;
                for (int k = 0; k < std::abs(exponent); ++k)
                    exact *= exponent < 0 ? cpp_rational(1, 10) : cpp_rational(10);
                all += exact;
                squares += exact * exact;
            }
        }
        EXPECT_EQ(latinSquareAnova(square, n, alpha).totalSumOfSquares,
                  cpp_rational(squares - all * all / (n * n)));
    }
}

TEST(LatinSquareAnova, AdditiveDecimalsHaveExactlyNoError)
{
    // As doubles, steps of 0.1 and 0.7 are not quite additive.
    for (int n = 3; n <= 6; ++n) {
        std::vector<std::int64_t> units;
        for (int row = 1; row <= n; ++row) {
            for (int column = 1; column <= n; ++column)
                units.push_back(column + 7 * row + 3 * stats::treatmentOf(column, row, n));
        }
        const LatinSquareAnova anova = latinSquareAnova(typedSquare(n, 1, units).doubles, n, alpha);
        EXPECT_EQ(anova.errorSumOfSquares, 0) << n;
        EXPECT_TRUE(anova.errorIsZero) << n;
        EXPECT_FALSE(anova.treatments.statistic) << n;
        EXPECT_FALSE(anova.treatments.significant) << n;
    }
}

TEST(LatinSquareAnova, EqualObservationsHaveExactlyNoVariation)
{
    for (const double value : {0.0, 7.0, -12345.0, 0.1, 1e300, 5e-324}) {
        for (int n = 3; n <= 6; ++n) {
            const LatinSquareAnova anova =
                latinSquareAnova(squareFrom(n, [&](int, int) { return value; }), n, alpha);
            EXPECT_EQ(anova.rows.sumOfSquares, 0);
            EXPECT_EQ(anova.columns.sumOfSquares, 0);
            EXPECT_EQ(anova.treatments.sumOfSquares, 0);
            EXPECT_EQ(anova.errorSumOfSquares, 0);
            EXPECT_EQ(anova.totalSumOfSquares, 0);
            EXPECT_TRUE(anova.errorIsZero);
        }
    }
}

TEST(LatinSquareAnova, AdditiveWholeNumbersHaveExactlyNoError)
{
    for (int n = 3; n <= 6; ++n) {
        const LatinSquareAnova anova =
            latinSquareAnova(squareFrom(n,
                                        [n](int column, int row) {
                                            return 1e9 + 17.0 * column - 5.0 * row * row +
                                                   3.0 * stats::treatmentOf(column, row, n);
                                        }),
                             n, alpha);
        EXPECT_EQ(anova.errorSumOfSquares, 0) << n;
        EXPECT_TRUE(anova.errorIsZero) << n;
        EXPECT_GT(anova.treatments.sumOfSquares, 0) << n;
    }
}

TEST(LatinSquareAnova, TakesEachDoubleAsItsShortestText)
{
    // 17 digits that no shorter decimal names are 17 digits.
    const double seventeen = typedNumber("0.30000000000000004");
    const LatinSquareAnova anova = latinSquareAnova(
        squareOf({{seventeen, 0.0, 0.0}, {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}}), 3, alpha);
    const cpp_rational typed(30000000000000004, 100000000000000000);
    EXPECT_EQ(anova.totalSumOfSquares, cpp_rational(typed * typed * 8 / 9));
}

TEST(LatinSquareAnova, StaysRightAtTheLimitsOfDouble)
{
    const LatinSquareAnova usual = latinSquareAnova(propellantSquare(), 5, alpha);
    for (const int exponent : {306, 200, -200, -310}) {
        const LatinSquareAnova scaled = latinSquareAnova(
            squareFrom(
                5,
                [&](int column, int row) {
                    const auto digits = static_cast<int>(propellantSquare().Elem(column, row));
                    return typedNumber(std::to_string(digits) + 'e' + std::to_string(exponent));
                }),
            5, alpha);
        EXPECT_EQ(scaled.rows.statistic, usual.rows.statistic) << exponent;
        EXPECT_EQ(scaled.columns.statistic, usual.columns.statistic) << exponent;
        EXPECT_EQ(scaled.treatments.statistic, usual.treatments.statistic) << exponent;
        EXPECT_TRUE(scaled.treatments.significant) << exponent;
        EXPECT_FALSE(scaled.errorIsZero) << exponent;
        EXPECT_GT(scaled.totalSumOfSquares, 0) << exponent;
    }
}

TEST(LatinSquareAnova, SurvivesDifferencesLargerThanTheLargestDouble)
{
    constexpr double most = std::numeric_limits<double>::max();
    const LatinSquareAnova anova = latinSquareAnova(
        squareOf({{most, -most, 0.0}, {-most, most, most}, {0.0, most, -most}}), 3, alpha);
    const LatinSquareAnova small = latinSquareAnova(
        squareOf({{1.0, -1.0, 0.0}, {-1.0, 1.0, 1.0}, {0.0, 1.0, -1.0}}), 3, alpha);
    EXPECT_EQ(anova.rows.statistic, small.rows.statistic);
    EXPECT_EQ(anova.treatments.statistic, small.treatments.statistic);
}

TEST(LatinSquareAnova, WhatIsNotFiniteGivesNoNumbers)
{
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (const int at : {1, 2}) {
            TMatrix square = propellantSquare();
            square.Elem(at, at, bad);
            const LatinSquareAnova anova = latinSquareAnova(square, 5, alpha);
            EXPECT_FALSE(anova.totalSumOfSquares);
            EXPECT_FALSE(anova.treatments.sumOfSquares);
            EXPECT_FALSE(anova.treatments.statistic);
            EXPECT_FALSE(anova.treatments.significant);
            EXPECT_FALSE(anova.errorIsZero);
        }
    }
}

TEST(LatinSquareAnova, WithoutErrorDegreesThereIsNoErrorVariance)
{
    for (const int n : {1, 2}) {
        const LatinSquareAnova anova = latinSquareAnova(
            squareFrom(n, [](int column, int row) { return column * column + 10.0 * row; }), n,
            alpha);
        EXPECT_EQ(anova.errorDegrees, 0) << n;
        EXPECT_EQ(anova.errorSumOfSquares, 0) << n;
        EXPECT_FALSE(anova.errorMeanSquare) << n;
        EXPECT_FALSE(anova.treatments.statistic) << n;
        EXPECT_FALSE(anova.treatments.significant) << n;
        EXPECT_FALSE(anova.errorIsZero) << n;
        EXPECT_TRUE(std::isnan(anova.criticalValue)) << n;
    }
    EXPECT_FALSE(
        latinSquareAnova(squareFrom(1, [](int, int) { return 4.0; }), 1, alpha).rows.meanSquare);
}

TEST(LatinSquareAnova, TakesAnyOrder)
{
    for (const int n : {-3, 0, 7, 8, 20, 100}) {
        const LatinSquareAnova anova = latinSquareAnova(propellantSquare(), n, alpha);
        EXPECT_EQ(anova.sourceDegrees, n - 1);
    }
}

TEST(LatinSquareAnova, AStatisticEqualToTheCriticalValueIsNotSignificant)
{
    // alpha = 1 leaves a critical value of 0, and equal row sums an F of 0.
    const LatinSquareAnova anova =
        latinSquareAnova(squareOf({{1, 2, 4}, {2, 4, 1}, {2, 1, 4}}), 3, 1.0);
    ASSERT_EQ(anova.criticalValue, 0.0);
    ASSERT_EQ(anova.rows.statistic, 0);
    EXPECT_FALSE(anova.rows.significant);
    EXPECT_TRUE(anova.columns.significant);
}
