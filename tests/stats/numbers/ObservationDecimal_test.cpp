// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationDecimal.h"

#include "stats/numbers/TypedSquares.h"

#include <gtest/gtest.h>

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
