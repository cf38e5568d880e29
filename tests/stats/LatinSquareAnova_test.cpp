// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/LatinSquareAnova.h"

#include "stats/CyclicLayout.h"
#include "stats/Near.h"
#include "stats/STATIS.h"
#include "stats/Squares.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>

#include <limits>
#include <random>

using boost::multiprecision::cpp_int;
using boost::multiprecision::cpp_rational;
using stats::LatinSquareAnova;
using stats::latinSquareAnova;
using stats::TMatrix;

namespace {

constexpr double alpha = 0.05;

/// The sums of squares of the textbook in exact arithmetic on the doubles as they are.
struct ExactAnova {
    cpp_rational rows;
    cpp_rational columns;
    cpp_rational treatments;
    cpp_rational error;
    cpp_rational total;
};

cpp_rational sumOfSquares(const std::vector<cpp_rational>& values)
{
    cpp_rational sum = 0;
    for (const cpp_rational& value : values)
        sum += value * value;
    return sum;
}

ExactAnova exactAnova(const TMatrix& square, int n)
{
    const auto count = static_cast<std::size_t>(n);
    std::vector<cpp_rational> rows(count);
    std::vector<cpp_rational> columns(count);
    std::vector<cpp_rational> treatments(count);
    std::vector<cpp_rational> cells;
    cpp_rational all = 0;
    for (std::size_t row = 0; row < count; ++row) {
        for (std::size_t column = 0; column < count; ++column) {
            const cpp_rational x(
                square.Elem(static_cast<int>(column) + 1, static_cast<int>(row) + 1));
            rows[row] += x;
            columns[column] += x;
            treatments[(row + column) % count] += x;
            cells.push_back(x);
            all += x;
        }
    }
    const cpp_rational correction = all * all / (n * n);
    ExactAnova exact;
    exact.rows = sumOfSquares(rows) / n - correction;
    exact.columns = sumOfSquares(columns) / n - correction;
    exact.treatments = sumOfSquares(treatments) / n - correction;
    exact.total = sumOfSquares(cells) - correction;
    exact.error = exact.total - exact.rows - exact.columns - exact.treatments;
    return exact;
}

/// -log10 of the relative error: the number of right digits, the measure of NIST's reference data
/// sets. Infinite for the very value.
double logRelativeError(double actual, const cpp_rational& exact)
{
    const cpp_rational error = abs(cpp_rational(actual) - exact);
    if (error == 0)
        return std::numeric_limits<double>::infinity();
    if (exact == 0)
        return 0.0;
    return -std::log10(static_cast<double>(error / abs(exact)));
}

/// Every sum of squares keeps `digits` digits.
void expectDigits(const TMatrix& square, int n, double digits)
{
    const LatinSquareAnova anova = latinSquareAnova(square, n, alpha);
    const ExactAnova exact = exactAnova(square, n);
    EXPECT_GE(logRelativeError(anova.rows.sumOfSquares, exact.rows), digits);
    EXPECT_GE(logRelativeError(anova.columns.sumOfSquares, exact.columns), digits);
    EXPECT_GE(logRelativeError(anova.treatments.sumOfSquares, exact.treatments), digits);
    EXPECT_GE(logRelativeError(anova.errorSumOfSquares, exact.error), digits);
    EXPECT_GE(logRelativeError(anova.totalSumOfSquares, exact.total), digits);
}

/// A correctly rounded double has 15.95 digits at least; the last roundings cost a little.
constexpr double keptDigits = 15.5;

/// 1, 3, 7, 9 and 12 constant leading digits in front of the first decimal.
const std::vector<double>& constantParts()
{
    static const std::vector<double> parts{1.0, 100.0, 1e6, 1e8, 1e11};
    return parts;
}

} // namespace

TEST(LatinSquareAnova, PropellantSquareAsPublished)
{
    const LatinSquareAnova anova = latinSquareAnova(propellantSquare(), 5, alpha);
    EXPECT_EQ(anova.rows.sumOfSquares, 68.0);
    EXPECT_EQ(anova.columns.sumOfSquares, 150.0);
    EXPECT_EQ(anova.treatments.sumOfSquares, 330.0);
    EXPECT_EQ(anova.errorSumOfSquares, 128.0);
    EXPECT_EQ(anova.totalSumOfSquares, 676.0);
    EXPECT_EQ(anova.sourceDegrees, 4);
    EXPECT_EQ(anova.errorDegrees, 12);
    EXPECT_EQ(anova.totalDegrees, 24);
    EXPECT_EQ(anova.treatments.meanSquare, 82.5);
    EXPECT_TRUE(isRelativelyNear(anova.errorMeanSquare, 128.0 / 12.0, 1e-15));
    EXPECT_TRUE(isRelativelyNear(anova.treatments.statistic, 7.734375, 1e-15)); // 990 / 128
    EXPECT_EQ(anova.criticalValue, stats::FQuantile(0.95, 4, 12));
    EXPECT_FALSE(anova.rows.significant);
    EXPECT_TRUE(anova.columns.significant);
    EXPECT_TRUE(anova.treatments.significant);
}

TEST(LatinSquareAnova, AssemblySquareAsPublished)
{
    const LatinSquareAnova anova = latinSquareAnova(assemblySquare(), 4, alpha);
    EXPECT_EQ(anova.rows.sumOfSquares, 18.5);
    EXPECT_EQ(anova.columns.sumOfSquares, 51.5);
    EXPECT_EQ(anova.treatments.sumOfSquares, 72.5);
    EXPECT_EQ(anova.errorSumOfSquares, 10.5);
    EXPECT_EQ(anova.totalSumOfSquares, 153.0);
    EXPECT_TRUE(isNear(anova.treatments.statistic, 13.81, 0.005));
    EXPECT_TRUE(anova.treatments.significant);
}

TEST(LatinSquareAnova, KeepsItsDigitsBehindConstantLeadingDigits)
{
    // The cells of NIST's SmLs sets in spirit: a constant part and one varying decimal.
    for (const double constant : constantParts()) {
        for (int n = 3; n <= 6; ++n) {
            SCOPED_TRACE(::testing::Message() << "constant " << constant << ", order " << n);
            const TMatrix square = squareFrom(n, [&](int column, int row) {
                const int tenths = 2 + (3 * column + 5 * row + column * row) % 7;
                return constant + tenths / 10.0;
            });
            expectDigits(square, n, keptDigits);
        }
    }
}

TEST(LatinSquareAnova, KeepsItsDigitsOnRandomSquares)
{
    std::mt19937 generator(20240229);
    for (const double constant : constantParts()) {
        for (int n = 3; n <= 6; ++n) {
            for (int k = 0; k < 20; ++k) {
                SCOPED_TRACE(::testing::Message() << constant << ", order " << n << ", no. " << k);
                std::uniform_real_distribution<double> uniform(-1.0, 1.0);
                const TMatrix square =
                    squareFrom(n, [&](int, int) { return constant + uniform(generator); });
                expectDigits(square, n, keptDigits);
            }
        }
    }
}

TEST(LatinSquareAnova, KeepsTheDigitsOfASmallErrorAmongLargeEffects)
{
    // An additive square in steps of 0.1: only the rounding of its doubles is left as error, some
    // 32 digits below the total, and even that comes out right.
    for (int n = 3; n <= 6; ++n) {
        SCOPED_TRACE(n);
        const TMatrix square =
            squareFrom(n, [](int column, int row) { return 0.1 * column + 0.7 * row; });
        const ExactAnova exact = exactAnova(square, n);
        const LatinSquareAnova anova = latinSquareAnova(square, n, alpha);
        ASSERT_LT(exact.error, cpp_rational(1e-25));
        ASSERT_NE(exact.error, 0);
        EXPECT_GE(logRelativeError(anova.errorSumOfSquares, exact.error), keptDigits);
        EXPECT_FALSE(anova.errorIsZero);
    }
}

TEST(LatinSquareAnova, KeepsItsDigitsOnDataOfMixedMagnitudes)
{
    std::mt19937 generator(7);
    std::uniform_int_distribution<int> exponent(-10, 10);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    for (int n = 3; n <= 6; ++n) {
        for (int k = 0; k < 20; ++k) {
            SCOPED_TRACE(::testing::Message() << "order " << n << ", no. " << k);
            expectDigits(squareFrom(n,
                                    [&](int, int) {
                                        return mantissa(generator) *
                                               std::pow(10.0, exponent(generator));
                                    }),
                         n, keptDigits);
        }
    }
}

TEST(LatinSquareAnova, EqualObservationsHaveExactlyNoVariation)
{
    for (const double value : {0.0, 7.0, -12345.0, 0.1, 1e300, 5e-324}) {
        for (int n = 3; n <= 6; ++n) {
            const LatinSquareAnova anova =
                latinSquareAnova(squareFrom(n, [&](int, int) { return value; }), n, alpha);
            EXPECT_EQ(anova.rows.sumOfSquares, 0.0);
            EXPECT_EQ(anova.columns.sumOfSquares, 0.0);
            EXPECT_EQ(anova.treatments.sumOfSquares, 0.0);
            EXPECT_EQ(anova.errorSumOfSquares, 0.0);
            EXPECT_EQ(anova.totalSumOfSquares, 0.0);
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
        EXPECT_EQ(anova.errorSumOfSquares, 0.0) << n;
        EXPECT_TRUE(anova.errorIsZero) << n;
        EXPECT_GT(anova.treatments.sumOfSquares, 0.0) << n;
    }
}

TEST(LatinSquareAnova, SumsOfSquaresAddUpAndAreNeverNegative)
{
    std::mt19937 generator(11);
    std::normal_distribution<double> normal(50.0, 10.0);
    for (int n = 3; n <= 8; ++n) {
        for (int k = 0; k < 500; ++k) {
            const LatinSquareAnova anova = latinSquareAnova(
                squareFrom(n, [&](int, int) { return normal(generator); }), n, alpha);
            const double sum = anova.rows.sumOfSquares + anova.columns.sumOfSquares +
                               anova.treatments.sumOfSquares + anova.errorSumOfSquares;
            EXPECT_TRUE(isRelativelyNear(sum, anova.totalSumOfSquares, 1e-14));
            EXPECT_GE(anova.errorSumOfSquares, 0.0);
        }
    }
}

TEST(LatinSquareAnova, StaysRightAtTheLimitsOfDouble)
{
    const LatinSquareAnova usual = latinSquareAnova(propellantSquare(), 5, alpha);
    for (const int exponent : {1015, 700, -700, -1060}) {
        // Whole numbers times a power of two keep every bit.
        const LatinSquareAnova scaled = latinSquareAnova(
            squareFrom(5,
                       [&](int column, int row) {
                           return std::ldexp(propellantSquare().Elem(column, row), exponent);
                       }),
            5, alpha);
        EXPECT_EQ(scaled.rows.statistic, usual.rows.statistic) << exponent;
        EXPECT_EQ(scaled.columns.statistic, usual.columns.statistic) << exponent;
        EXPECT_EQ(scaled.treatments.statistic, usual.treatments.statistic) << exponent;
        EXPECT_TRUE(scaled.treatments.significant) << exponent;
        EXPECT_FALSE(scaled.errorIsZero) << exponent;
        // The sums themselves are beyond the range, and say so.
        EXPECT_EQ(scaled.totalSumOfSquares,
                  exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0);
    }
}

TEST(LatinSquareAnova, SurvivesDifferencesLargerThanTheLargestDouble)
{
    constexpr double most = std::numeric_limits<double>::max();
    const LatinSquareAnova anova = latinSquareAnova(
        squareOf({{most, -most, 0.0}, {-most, most, most}, {0.0, most, -most}}), 3, alpha);
    const LatinSquareAnova small = latinSquareAnova(
        squareOf({{1.0, -1.0, 0.0}, {-1.0, 1.0, 1.0}, {0.0, 1.0, -1.0}}), 3, alpha);
    EXPECT_TRUE(isRelativelyNear(anova.rows.statistic, small.rows.statistic, 1e-14));
    EXPECT_TRUE(isRelativelyNear(anova.treatments.statistic, small.treatments.statistic, 1e-14));
}

TEST(LatinSquareAnova, WhatIsNotFiniteGivesNoNumbers)
{
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (const int at : {1, 2}) {
            TMatrix square = propellantSquare();
            square.Elem(at, at, bad);
            const LatinSquareAnova anova = latinSquareAnova(square, 5, alpha);
            EXPECT_TRUE(std::isnan(anova.totalSumOfSquares));
            EXPECT_TRUE(std::isnan(anova.treatments.statistic));
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
        EXPECT_EQ(anova.errorSumOfSquares, 0.0) << n;
        EXPECT_TRUE(std::isnan(anova.errorMeanSquare)) << n;
        EXPECT_TRUE(std::isnan(anova.treatments.statistic)) << n;
        EXPECT_FALSE(anova.treatments.significant) << n;
        EXPECT_FALSE(anova.errorIsZero) << n;
        EXPECT_EQ(anova.criticalValue, 0.0) << n;
    }
    EXPECT_TRUE(std::isnan(
        latinSquareAnova(squareFrom(1, [](int, int) { return 4.0; }), 1, alpha).rows.meanSquare));
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
    ASSERT_EQ(anova.rows.statistic, 0.0);
    EXPECT_FALSE(anova.rows.significant);
    EXPECT_TRUE(anova.columns.significant);
}
