// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/CyclicArrangement.h"
#include "experiment/LabelOrder.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <random>

namespace {

using Layout = std::vector<int>;

/// A square with this layout, labels by number and values that tell every cell from the others.
experiment::LatinSquare squareIn(const Layout& layout)
{
    experiment::LatinSquare square;
    const int n = static_cast<int>(std::lround(std::sqrt(static_cast<double>(layout.size()))));
    for (int i = 0; i < n; ++i) {
        square.rows += QStringLiteral("r%1").arg(i);
        square.columns += QStringLiteral("c%1").arg(i);
        square.treatments += QStringLiteral("t%1").arg(i);
    }
    square.layout = layout;
    for (std::size_t i = 0; i < layout.size(); ++i)
        square.values.push_back(static_cast<double>(i));
    return square;
}

/// The table of an operation on 0..n-1.
Layout tableOf(int n, const std::function<int(int, int)>& operation)
{
    Layout layout;
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column)
            layout.push_back(operation(row, column));
    }
    return layout;
}

Layout cyclicLayout(int n)
{
    return tableOf(n, [n](int row, int column) { return (row + column) % n; });
}

/// A layout with rows, columns and treatments in random order.
Layout shuffled(const Layout& layout, int n, std::mt19937& random)
{
    std::vector<int> rows(static_cast<std::size_t>(n));
    std::iota(rows.begin(), rows.end(), 0);
    std::vector<int> columns = rows;
    std::vector<int> treatments = rows;
    for (std::vector<int>* order : {&rows, &columns, &treatments})
        std::shuffle(order->begin(), order->end(), random);
    return tableOf(n, [&](int row, int column) {
        const auto from =
            rows[static_cast<std::size_t>(row)] * n + columns[static_cast<std::size_t>(column)];
        return treatments[static_cast<std::size_t>(layout[static_cast<std::size_t>(from)])];
    });
}

enum class FirstRow { Any, InOrder };

/// Calls `visit` with every Latin square of order n, or with those whose first row is 0, 1, 2, ...
void forEachLatinSquare(int n, FirstRow firstRow, const std::function<void(const Layout&)>& visit)
{
    Layout layout(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    std::vector<unsigned> usedInRow(static_cast<std::size_t>(n));
    std::vector<unsigned> usedInColumn(static_cast<std::size_t>(n));
    const std::function<void(std::size_t)> fill = [&](std::size_t cell) {
        if (cell == layout.size()) {
            visit(layout);
            return;
        }
        const std::size_t row = cell / static_cast<std::size_t>(n);
        const std::size_t column = cell % static_cast<std::size_t>(n);
        for (int treatment = 0; treatment < n; ++treatment) {
            const unsigned bit = 1U << static_cast<unsigned>(treatment);
            if (row == 0 && firstRow == FirstRow::InOrder && treatment != static_cast<int>(column))
                continue;
            if (((usedInRow[row] | usedInColumn[column]) & bit) != 0)
                continue;
            usedInRow[row] |= bit;
            usedInColumn[column] |= bit;
            layout[cell] = treatment;
            fill(cell + 1);
            usedInRow[row] &= ~bit;
            usedInColumn[column] &= ~bit;
        }
    };
    fill(0);
}

/// That an arrangement is cyclic, and that every value is still at its row, column and treatment.
void expectCyclicArrangement(const experiment::LatinSquare& before,
                             const experiment::LatinSquare& after)
{
    const int n = before.order();
    ASSERT_EQ(after.order(), n);
    EXPECT_EQ(after.layout, cyclicLayout(n));
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            const std::size_t from = before.place(column, row);
            const std::size_t to =
                after.place(static_cast<int>(after.columns.indexOf(before.columns[column])),
                            static_cast<int>(after.rows.indexOf(before.rows[row])));
            ASSERT_EQ(after.values[to], before.values[from]);
            ASSERT_EQ(after.treatments[after.layout[to]], before.treatments[before.layout[from]]);
        }
    }
}

int countKept(const QStringList& before, const QStringList& after)
{
    int kept = 0;
    for (qsizetype i = 0; i < before.size(); ++i)
        kept += before[i] == after[i] ? 1 : 0;
    return kept;
}

/// The best that any cyclic arrangement comes to.
struct Best {
    std::pair<int, int> kept = {-1, -1}; ///< Rows and columns in place; -1 for no arrangement.
    std::vector<int> treatments;         ///< Their indexes in the order of their numbers.
};

/// By trying all orders of rows and columns: most rows, with them most columns, and with these the
/// treatments in the smallest order.
Best bestOf(const Layout& layout, int n)
{
    Best best;
    std::vector<int> rows(static_cast<std::size_t>(n));
    std::iota(rows.begin(), rows.end(), 0);
    do {
        std::vector<int> columns(static_cast<std::size_t>(n));
        std::iota(columns.begin(), columns.end(), 0);
        do {
            std::vector<int> numbers(static_cast<std::size_t>(n), -1);
            bool cyclic = true;
            for (int r = 0; r < n && cyclic; ++r) {
                for (int c = 0; c < n && cyclic; ++c) {
                    const auto cell = rows[static_cast<std::size_t>(r)] * n +
                                      columns[static_cast<std::size_t>(c)];
                    int& number =
                        numbers[static_cast<std::size_t>(layout[static_cast<std::size_t>(cell)])];
                    cyclic = number < 0 || number == (r + c) % n;
                    number = (r + c) % n;
                }
            }
            if (!cyclic)
                continue;
            int keptRows = 0;
            int keptColumns = 0;
            for (int i = 0; i < n; ++i) {
                keptRows += rows[static_cast<std::size_t>(i)] == i ? 1 : 0;
                keptColumns += columns[static_cast<std::size_t>(i)] == i ? 1 : 0;
            }
            std::vector<int> treatments(numbers.size());
            for (std::size_t treatment = 0; treatment < numbers.size(); ++treatment)
                treatments[static_cast<std::size_t>(numbers[treatment])] =
                    static_cast<int>(treatment);
            const std::pair kept(keptRows, keptColumns);
            if (kept > best.kept || (kept == best.kept && treatments < best.treatments))
                best = {kept, treatments};
        } while (std::next_permutation(columns.begin(), columns.end()));
    } while (std::next_permutation(rows.begin(), rows.end()));
    return best;
}

} // namespace

TEST(CyclicArrangement, FindsTheKnownNumbersOfSquares)
{
    // n!^3 / (n^2 phi(n)) squares can be made cyclic: the squares isotopic to the group, the order
    // of whose autotopism group is n^2 phi(n). For n = 4 the other 144 belong to the Klein group.
    // With the first row in order there are n! times fewer of either.
    const struct {
        int n;
        FirstRow firstRow;
        int all;
        int cyclic;
    } cases[] = {{2, FirstRow::Any, 2, 2},
                 {3, FirstRow::Any, 12, 12},
                 {4, FirstRow::Any, 576, 432},
                 {5, FirstRow::InOrder, 161280 / 120, 17280 / 120}};
    for (const auto& [n, firstRow, all, cyclic] : cases) {
        int squares = 0;
        int arranged = 0;
        forEachLatinSquare(n, firstRow, [&](const Layout& layout) {
            ++squares;
            const experiment::LatinSquare square = squareIn(layout);
            if (const auto result = experiment::cyclicArrangement(square)) {
                ++arranged;
                expectCyclicArrangement(square, *result);
            }
        });
        EXPECT_EQ(squares, all);
        EXPECT_EQ(arranged, cyclic);
    }
}

TEST(CyclicArrangement, KeepsMostRowsThenMostColumnsInPlaceThenTreatmentsInOrder)
{
    const auto expectBest = [](const Layout& layout, int n) {
        const experiment::LatinSquare square = squareIn(layout);
        const auto result = experiment::cyclicArrangement(square);
        const Best best = bestOf(layout, n);
        ASSERT_EQ(result.has_value(), best.kept.first >= 0);
        if (!result)
            return;
        EXPECT_EQ(std::pair(countKept(square.rows, result->rows),
                            countKept(square.columns, result->columns)),
                  best.kept);
        QStringList treatments;
        for (const int treatment : best.treatments)
            treatments += square.treatments[treatment];
        EXPECT_EQ(result->treatments, treatments);
    };
    forEachLatinSquare(3, FirstRow::Any, [&](const Layout& layout) { expectBest(layout, 3); });
    forEachLatinSquare(4, FirstRow::Any, [&](const Layout& layout) { expectBest(layout, 4); });
    std::mt19937 random(5);
    for (int i = 0; i < 40; ++i)
        expectBest(shuffled(cyclicLayout(5), 5, random), 5);
}

TEST(CyclicArrangement, LabelsComeInTheOrderOfPeople)
{
    using Ranks = std::vector<int>;
    const auto ranks = [](const char* labels) {
        return experiment::ranksOf(QString::fromUtf8(labels).split(QLatin1Char('|')));
    };
    EXPECT_EQ(ranks("C|A|B"), (Ranks{2, 0, 1}));
    EXPECT_EQ(ranks("T10|T9|t2"), (Ranks{2, 1, 0}));
    EXPECT_EQ(ranks("100 kg|50 kg|0 kg|050 kg"), (Ranks{3, 2, 0, 1}));
    EXPECT_EQ(ranks("b|B|a"), (Ranks{2, 1, 0}));
    EXPECT_EQ(ranks(""), Ranks{0});
}

TEST(CyclicArrangement, LeavesACyclicSquareAsItIs)
{
    for (int n = 2; n <= 12; ++n) {
        const experiment::LatinSquare square = squareIn(cyclicLayout(n));
        const auto result = experiment::cyclicArrangement(square);
        ASSERT_TRUE(result);
        EXPECT_EQ(result->rows, square.rows);
        EXPECT_EQ(result->columns, square.columns);
        EXPECT_EQ(result->treatments, square.treatments);
        EXPECT_EQ(result->values, square.values);
    }
}

TEST(CyclicArrangement, FindsShuffledCyclicSquaresOfAnyOrder)
{
    std::mt19937 random(17);
    for (const int n : {6, 7, 8, 9, 12, 20, 60, 101}) {
        for (int i = 0; i < 5; ++i) {
            const experiment::LatinSquare square = squareIn(shuffled(cyclicLayout(n), n, random));
            const auto result = experiment::cyclicArrangement(square);
            ASSERT_TRUE(result) << n;
            expectCyclicArrangement(square, *result);
        }
    }
}

TEST(CyclicArrangement, FindsNoneForOtherGroupsHoweverShuffled)
{
    const auto symmetricGroup = [](int a, int b) {
        // Rotations 0..2 and reflections 3..5 of a triangle.
        const int rotation = a < 3 ? (a + b % 3) % 3 : (a % 3 - b % 3 + 3) % 3;
        return (a < 3) == (b < 3) ? rotation : rotation + 3;
    };
    const struct {
        int n;
        Layout layout;
    } cases[] = {
        {4, tableOf(4, [](int a, int b) { return a ^ b; })},
        {8, tableOf(8, [](int a, int b) { return a ^ b; })},
        {8, tableOf(8, [](int a, int b) { return (a / 4 ^ b / 4) * 4 + (a % 4 + b % 4) % 4; })},
        {9, tableOf(9, [](int a, int b) { return (a / 3 + b / 3) % 3 * 3 + (a % 3 + b % 3) % 3; })},
        {6, tableOf(6, symmetricGroup)},
    };
    std::mt19937 random(23);
    for (const auto& [n, layout] : cases) {
        EXPECT_FALSE(experiment::cyclicArrangement(squareIn(layout)));
        for (int i = 0; i < 10; ++i)
            EXPECT_FALSE(experiment::cyclicArrangement(squareIn(shuffled(layout, n, random))));
    }
}

TEST(CyclicArrangement, FindsNoneOnceOneCornerOfACyclicSquareIsTurned)
{
    // In the cyclic square of even order n the cells (0, 0), (0, n/2), (n/2, 0), (n/2, n/2) hold
    // two treatments, which can change places; from n = 6 on no cyclic square is left.
    std::mt19937 random(29);
    for (const int n : {6, 8, 20}) {
        Layout layout = cyclicLayout(n);
        const auto half = static_cast<std::size_t>(n / 2);
        const auto width = static_cast<std::size_t>(n);
        std::swap(layout[0], layout[half]);
        std::swap(layout[half * width], layout[half * width + half]);
        for (int i = 0; i < 10; ++i)
            EXPECT_FALSE(experiment::cyclicArrangement(squareIn(shuffled(layout, n, random)))) << n;
    }
}
