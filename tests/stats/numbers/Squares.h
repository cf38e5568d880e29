// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"
#include "stats/numbers/Treatments.h"
#include "support/Propellant.h"

#include <utility>
#include <vector>

/// Squares for the tests.

/// The matrix of a square that is written as it is read: a list of rows.
inline stats::TMatrix squareOf(const std::vector<std::vector<double>>& rows)
{
    const int n = static_cast<int>(rows.size());
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            square.Elem(column, row,
                        rows.at(static_cast<std::size_t>(row - 1))
                            .at(static_cast<std::size_t>(column - 1)));
        }
    }
    return square;
}

/// A square whose cell (column, row) is cell(column, row).
template <typename Cell>
stats::TMatrix squareFrom(int n, Cell cell)
{
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column)
            square.Elem(column, row, cell(column, row));
    }
    return square;
}

/// A square of order n of the observations 1, 2, ..., n^2, whose treatments in ascending order of
/// the observations are the given labels.
inline stats::TMatrix squareWithLabels(const std::vector<int>& labels, int n)
{
    using Cell = std::pair<int, int>;
    std::vector<std::vector<Cell>> free(static_cast<std::size_t>(n)); // of each treatment
    for (int column = 1; column <= n; ++column) {
        for (int row = 1; row <= n; ++row)
            free[static_cast<std::size_t>(stats::treatmentOf(column, row, n) - 1)].push_back(
                {column, row});
    }
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    double value = 0.0;
    for (const int label : labels) {
        std::vector<Cell>& ofTreatment = free.at(static_cast<std::size_t>(label - 1));
        square.Elem(ofTreatment.back().first, ofTreatment.back().second, ++value);
        ofTreatment.pop_back();
    }
    return square;
}

/// The treatments of four in ascending order of the observations, there and back twice: equal sums
/// of ranks and of run indices, so that B and M are exactly 0.
inline stats::TMatrix balancedSquare()
{
    return squareWithLabels({1, 2, 3, 4, 4, 3, 2, 1, 1, 2, 3, 4, 4, 3, 2, 1}, 4);
}

inline stats::TMatrix propellantSquare()
{
    return squareOf(propellantRows);
}

/// Assembly times of the same book's exercise on four assembly methods: C 10, D 14, A 7, B 8 / B 7,
/// C 18, D 11, A 8 / A 5, B 10, C 11, D 9 / D 10, A 10, B 12, C 14 in the field (order of assembly
/// in rows, operators in columns). The columns are as they stand and the rows in the order 1, 4, 3,
/// 2, which reads C D A B / D A B C / A B C D / B C D A: the cyclic layout, C being treatment 1.
inline stats::TMatrix assemblySquare()
{
    return squareOf({{10, 14, 7, 8}, {10, 10, 12, 14}, {5, 10, 11, 9}, {7, 18, 11, 8}});
}
