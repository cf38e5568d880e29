// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationDecimal.h"

#include "stats/numbers/TypedSquares.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

using stats::observationDecimal;

namespace {

void expectDecimal(double value, std::int64_t coefficient, int exponent)
{
    const auto decimal = observationDecimal(value);
    ASSERT_TRUE(decimal.has_value()) << value;
    EXPECT_EQ(decimal->coefficient, coefficient) << value;
    EXPECT_EQ(decimal->exponent, exponent) << value;
}

} // namespace

TEST(ObservationDecimal, IsTheDecimalThatWasTyped)
{
    expectDecimal(41.3, 413, -1);
    expectDecimal(-0.1, -1, -1);
    expectDecimal(24.0, 24, 0);
    expectDecimal(1200.0, 12, 2);
    expectDecimal(1000000000000.4, 10000000000004, -1);
    expectDecimal(0.30000000000000004, 30000000000000004, -17);
}

TEST(ObservationDecimal, HoldsAtTheLimitsOfDouble)
{
    expectDecimal(0.0, 0, 0);
    expectDecimal(-0.0, 0, 0);
    expectDecimal(std::numeric_limits<double>::max(), 17976931348623157, 292);
    expectDecimal(std::numeric_limits<double>::denorm_min(), 5, -324);
    expectDecimal(-std::numeric_limits<double>::min(), -22250738585072014, -324);
}

TEST(ObservationDecimal, IsNothingForWhatIsNotFinite)
{
    for (const double value :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(observationDecimal(value).has_value());
}

TEST(ObservationDecimal, ReadsBackEveryDecimalOfFifteenDigits)
{
    std::mt19937_64 generator(5);
    for (int k = 0; k < 100000; ++k) {
        const int decimals = static_cast<int>(generator() % 16);
        const auto units =
            static_cast<std::int64_t>(generator() % 2000000000000000) - 1000000000000000 + 1;
        const auto decimal = observationDecimal(typedNumber(typedText(units, decimals)));
        ASSERT_TRUE(decimal.has_value());
        std::int64_t coefficient = decimal->coefficient;
        for (int zeros = decimal->exponent + decimals; zeros > 0 && coefficient != 0; --zeros)
            coefficient *= 10;
        ASSERT_EQ(coefficient, units) << typedText(units, decimals);
    }
}

TEST(ObservationDecimal, IsTheShortestTextWhateverTheMagnitude)
{
    std::mt19937_64 generator(6);
    for (int k = 0; k < 200000; ++k) {
        // Few digits and many, around where the powers of ten are doubles and beyond.
        const double digits = static_cast<double>(generator() % (k % 2 == 0 ? 1000 : 1ULL << 53U));
        const double value = digits * std::pow(10.0, static_cast<int>(generator() % 60) - 40);
        const auto decimal = observationDecimal(value);
        ASSERT_TRUE(decimal.has_value());
        std::array<char, 40> text{};
        char* const end = std::to_chars(text.data(), text.data() + text.size(), value,
                                        std::chars_format::scientific)
                              .ptr;
        std::int64_t coefficient = 0;
        int decimals = 0;
        bool isBehindPoint = false;
        const char* place = text.data();
        for (; *place != 'e'; ++place) {
            isBehindPoint = isBehindPoint || *place == '.';
            if (*place == '.')
                continue;
            coefficient = coefficient * 10 + (*place - '0');
            decimals += isBehindPoint ? 1 : 0;
        }
        int exponent = 0;
        std::from_chars(place + (place[1] == '+' ? 2 : 1), end, exponent);
        ASSERT_EQ(decimal->coefficient, coefficient) << value;
        ASSERT_EQ(decimal->exponent, exponent - decimals) << value;
    }
}

TEST(DecimalSums, AreExactForMagnitudesFarApart)
{
    stats::TMatrix square = stats::TMatrix::Create(2, 2);
    square.Elem(1, 1, 1e300);
    square.Elem(2, 1, -1e-300);
    square.Elem(1, 2, 12345678901234567.0);
    square.Elem(2, 2, -0.1);
    const auto sums = stats::decimalSums(square, 2);
    ASSERT_TRUE(sums.has_value());
    const auto power = [](int exponent) {
        return stats::WholeNumber(pow(stats::WholeNumber(10), static_cast<unsigned>(exponent)));
    };
    const int unit = -sums->exponent;
    const stats::WholeNumber a = power(300 + unit);
    const stats::WholeNumber b = -power(unit - 300);
    const stats::WholeNumber c = stats::WholeNumber(12345678901234568) * power(unit);
    const stats::WholeNumber d = -power(unit - 1);
    EXPECT_EQ(sums->rows, (std::vector<stats::WholeNumber>{a + b, c + d}));
    EXPECT_EQ(sums->columns, (std::vector<stats::WholeNumber>{a + c, b + d}));
    EXPECT_EQ(sums->treatments, (std::vector<stats::WholeNumber>{a + d, b + c}));
    EXPECT_EQ(sums->all, a + b + c + d);
    EXPECT_EQ(sums->squares, a * a + b * b + c * c + d * d);
}

TEST(DecimalSums, AreTheSameInBlocksOfColumns)
{
    constexpr int n = 260; // more than one block
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    std::vector<stats::WholeNumber> rows(n);
    std::vector<stats::WholeNumber> treatments(n);
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const int units = (column * 37 + row * row * 11) % 1009 - 500;
            square.Elem(column, row, units / 4.0);
            rows[static_cast<std::size_t>(row - 1)] += units;
            treatments[static_cast<std::size_t>((column + row - 2) % n)] += units;
        }
    }
    const auto sums = stats::decimalSums(square, n);
    ASSERT_TRUE(sums.has_value());
    stats::WholeNumber ten = 1;
    for (int exponent = sums->exponent; exponent < 0; ++exponent)
        ten *= 10;
    for (std::size_t line = 0; line < rows.size(); ++line) {
        EXPECT_EQ(4 * sums->rows[line], rows[line] * ten);
        EXPECT_EQ(4 * sums->treatments[line], treatments[line] * ten);
    }
}

TEST(DecimalSums, ThereAreNoneOfNothingAndOfWhatIsNoNumber)
{
    stats::TMatrix square = stats::TMatrix::Create(2, 2);
    EXPECT_FALSE(stats::decimalSums(square, 0).has_value());
    const auto zeros = stats::decimalSums(square, 2);
    ASSERT_TRUE(zeros.has_value());
    EXPECT_EQ(zeros->squares, 0);
    square.Elem(2, 2, std::numeric_limits<double>::infinity());
    EXPECT_FALSE(stats::decimalSums(square, 2).has_value());
}
