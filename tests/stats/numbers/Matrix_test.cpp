// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/MATRIX.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using stats::EMatrixError;
using stats::TMatrix;

namespace {

std::string creationError(int columns, int rows)
{
    try {
        TMatrix::Create(columns, rows);
    } catch (const EMatrixError& error) {
        return error.what();
    }
    return "none";
}

/// 3 columns, 2 rows; the element is 10 column + row.
TMatrix numbered()
{
    TMatrix matrix = TMatrix::Create(3, 2);
    for (int column = 1; column <= 3; ++column) {
        for (int row = 1; row <= 2; ++row)
            matrix.Elem(column, row, 10.0 * column + row);
    }
    return matrix;
}

} // namespace

TEST(Matrix, IsCreatedWithItsCountsSettingsAndZeros)
{
    const TMatrix matrix = TMatrix::Create(3, 2);
    EXPECT_EQ(matrix.NrOfColumns(), 3);
    EXPECT_EQ(matrix.NrOfRows(), 2);
    EXPECT_EQ(matrix.Precision, 15);
    EXPECT_EQ(matrix.Setting, -1);
    for (int column = 1; column <= 3; ++column) {
        for (int row = 1; row <= 2; ++row)
            EXPECT_EQ(matrix.Elem(column, row), 0.0);
    }
}

TEST(Matrix, RefusesCountsBelowOne)
{
    for (const int bad : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(creationError(bad, 5), "array dimensions zero or negative") << bad;
        EXPECT_EQ(creationError(5, bad), "array dimensions zero or negative") << bad;
    }
}

TEST(Matrix, SaysSoWhenTheBlockCannotBeHad)
{
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(creationError(most, most), "not enough memory on heap");
}

TEST(Matrix, AddressesByColumnThenRow)
{
    const TMatrix matrix = numbered();
    EXPECT_EQ(matrix.Elem(3, 1), 31.0);
    EXPECT_EQ(matrix.Elem(1, 2), 12.0);
}

TEST(Matrix, ReadsZeroAndIgnoresWritesOutside)
{
    TMatrix matrix = numbered();
    int notified = 0;
    matrix.OnChange = [&notified](TMatrix&) { ++notified; };
    for (const auto& [column, row] :
         {std::pair(0, 1), std::pair(4, 1), std::pair(1, 0), std::pair(1, 3), std::pair(-1, -1)}) {
        matrix.Elem(column, row, 99.0);
        EXPECT_EQ(matrix.Elem(column, row), 0.0) << column << ' ' << row;
    }
    EXPECT_EQ(notified, 0);
    EXPECT_EQ(matrix.SumOfRegion(1, 1, 3, 2), numbered().SumOfRegion(1, 1, 3, 2));
}

TEST(Matrix, NotifiesAfterEachWrite)
{
    TMatrix matrix = TMatrix::Create(2, 2);
    int notified = 0;
    double seen = 0.0;
    matrix.OnChange = [&](TMatrix& changed) {
        ++notified;
        seen = changed.Elem(2, 1);
    };
    matrix.Elem(2, 1, 7.0);
    EXPECT_EQ(notified, 1);
    EXPECT_EQ(seen, 7.0);
    matrix.Fill(3.0);
    EXPECT_EQ(notified, 2);
    EXPECT_EQ(seen, 3.0);
    EXPECT_EQ(matrix.SumOfRegion(1, 1, 2, 2), 12.0);
}

TEST(Matrix, SumsRegionsClampedAndInAnyOrderOfCorners)
{
    const TMatrix matrix = numbered(); // 11 21 31 / 12 22 32
    EXPECT_EQ(matrix.SumOfRegion(0, 0, 99, 99), 129.0);
    EXPECT_EQ(matrix.SumOfRegion(3, 2, 1, 1), 129.0);
    EXPECT_EQ(matrix.SumOfRegion(3, 1, 1, 2), 129.0);
    EXPECT_EQ(matrix.SumOfRegion(2, 2, 3, 2), 54.0);
    EXPECT_EQ(matrix.SumOfRegion(2, 1, 2, 1), 21.0);
    EXPECT_EQ(matrix.SumOfRegion(-5, -5, -1, -1), 11.0);
}

TEST(Matrix, SumsColumnByColumn)
{
    // In the order of the columns 1e16 + 1 + 1 loses both ones, 1 + 1 + 1e16 neither.
    TMatrix matrix = TMatrix::Create(2, 2);
    matrix.Elem(1, 1, 1.0);
    matrix.Elem(1, 2, 1.0);
    matrix.Elem(2, 1, 1e16);
    EXPECT_EQ(matrix.SumOfRegion(1, 1, 2, 2), 1e16 + 2.0);
    matrix.Elem(1, 1, 1e16);
    matrix.Elem(2, 1, 1.0);
    EXPECT_EQ(matrix.SumOfRegion(1, 1, 2, 2), 1e16);
}

TEST(Matrix, ItsSettingsTravelWithIt)
{
    TMatrix from = TMatrix::Create(2, 2);
    from.Precision = 7;
    from.Setting = 3;
    const TMatrix to = std::move(from);
    EXPECT_EQ(to.Precision, 7);
    EXPECT_EQ(to.Setting, 3);
}

TEST(Matrix, MovedFromHasNoElements)
{
    TMatrix from = numbered();
    const TMatrix to = std::move(from);
    EXPECT_EQ(to.Elem(3, 2), 32.0);
    // NOLINTNEXTLINE(bugprone-use-after-move): what is left is stated
    EXPECT_EQ(from.NrOfColumns(), 0);
    EXPECT_EQ(from.NrOfRows(), 0);
    EXPECT_EQ(from.Elem(1, 1), 0.0);
    EXPECT_EQ(from.SumOfRegion(1, 1, 3, 2), 0.0);
    from = numbered();
    EXPECT_EQ(from.Elem(1, 2), 12.0);
}
