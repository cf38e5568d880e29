// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/SimulatedSquares.h"

#include "stats/numbers/Sequences.h"

#include <gtest/gtest.h>

namespace stats {
namespace {

/// The same squares one by one, with the values that the method multiplies.
std::vector<double> plainValues(int n, int squares, RandomIntegers& integers)
{
    TMatrix square = TMatrix::Create(n, n);
    std::vector<double> values;
    for (int k = 0; k < squares; ++k) {
        for (int row = 1; row <= n; ++row) {
            for (int column = 1; column <= n; ++column)
                square.Elem(column, row, integers.next() * 5.0);
        }
        values.push_back(SequenceC(square, n));
    }
    return values;
}

/// Of 20000 squares of order 6 some 380 have ties.
TEST(SquareDraws, GiveTheStatisticOfEachSquare)
{
    constexpr int squares = 20000;
    for (int n = 1; n <= 8; ++n) {
        RandomIntegers integers;
        RandomIntegers plainIntegers;
        const std::vector<double> values = sequenceCOfRandomSquares(n, squares, integers);
        ASSERT_EQ(values, plainValues(n, squares, plainIntegers)) << n;
        EXPECT_EQ(integers.next(), plainIntegers.next()) << n;
    }
}

TEST(SquareDraws, DrawNoMoreThanTheyNeed)
{
    for (const int squares : {0, 1, 15, 16, 17}) {
        RandomIntegers integers;
        RandomIntegers plainIntegers;
        EXPECT_EQ(sequenceCOfRandomSquares(5, squares, integers),
                  plainValues(5, squares, plainIntegers));
        EXPECT_EQ(integers.next(), plainIntegers.next());
    }
}

} // namespace
} // namespace stats
