// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/StatisticFormulas.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Where the treatments of a square stand, and how whole numbers (ranks, run indices) fall to them.
namespace stats {

/// The treatment (1 to n) of a cell in the one layout there is, the cyclic standard square; column,
/// row from 1. Row 1 reads 1, 2, ..., n from left to right, and each further row is the one above
/// shifted by one place. Column and row may be exchanged.
constexpr int treatmentOf(int column, int row, int n)
{
    const int remainder = (column + row - 1) % n;
    return remainder == 0 ? n : remainder;
}

/// Calls visit(column, row, treatment) for each cell of a square of order n, row after row.
template <typename Visit>
void visitCells(int n, const Visit& visit)
{
    for (int row = 1; row <= n; ++row) {
        int treatment = row;
        for (int column = 1; column <= n; ++column) {
            visit(column, row, treatment);
            treatment = treatment < n ? treatment + 1 : 1;
        }
    }
}

/// 128 bits hold every product up to order 8530, the square of which no file can bring; the largest
/// is that of M, n^6 (n^4 - 1) / 12.
__extension__ typedef __int128 WideInteger;

/// n^2 whole numbers, n of each of n treatments, summed up.
class TreatmentSums {
public:
    explicit TreatmentSums(int n)
        : m_sums(static_cast<std::size_t>(n))
    {
    }

    /// One more number of a treatment (1 to n).
    void add(int treatment, std::int64_t number)
    {
        m_sums[static_cast<std::size_t>(treatment - 1)] += number;
        m_squares += WideInteger{number} * number;
    }

    Moments<WideInteger> moments() const
    {
        Moments<WideInteger> moments{0, 0, m_squares};
        for (const WideInteger sum : m_sums) {
            moments.sum += sum;
            moments.squaredSums += sum * sum;
        }
        return moments;
    }

private:
    std::vector<std::int64_t> m_sums;
    WideInteger m_squares = 0;
};

} // namespace stats
