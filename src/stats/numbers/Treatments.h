// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Where the treatments of a square stand, and how whole numbers (ranks, run indices) fall to them.
///
/// The rank and sequence statistics are fractions of integers. Evaluated as such, with one rounding
/// at the end, equal outcomes give equal doubles, on every machine; step by step in doubles they
/// would fall apart into neighbouring values.
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
        for (int column = 1; column <= n; ++column)
            visit(column, row, treatmentOf(column, row, n));
    }
}

/// 128 bits hold every product for squares of any order that fits into memory.
__extension__ typedef __int128 WideInteger;

constexpr WideInteger squaredInteger(WideInteger value)
{
    return value * value;
}

/// The fraction as a double: correctly rounded while both parts are below 2^53, which holds far
/// beyond order 6, and within three roundings above. Not a number for 0 / 0.
inline double ratio(WideInteger numerator, WideInteger denominator)
{
    return static_cast<double>(numerator) / static_cast<double>(denominator);
}

/// n^2 whole numbers, n of each of n treatments, summed up. Below, S_t is the sum of treatment t, S
/// that of all numbers and Q the sum of their squares.
class TreatmentSums {
public:
    explicit TreatmentSums(int n)
        : m_n(n)
        , m_sums(static_cast<std::size_t>(n))
    {
    }

    /// One more number of a treatment (1 to n).
    void add(int treatment, std::int64_t number)
    {
        m_sums[static_cast<std::size_t>(treatment - 1)] += number;
        m_sum += number;
        m_squares += squaredInteger(number);
    }

    /// The sum over t of (scale S_t - centre)^2.
    WideInteger squaredDeviations(WideInteger scale, WideInteger centre) const
    {
        WideInteger deviations = 0;
        for (const std::int64_t sum : m_sums)
            deviations += squaredInteger(scale * sum - centre);
        return deviations;
    }

    /// n^4 times the sum of squares of the treatment means: the sum over t of (n S_t - S)^2. It is
    /// not weighted by n, so at most total() / n.
    WideInteger between() const { return squaredDeviations(m_n, m_sum); }

    /// n^4 times the total sum of squares: n^2 (n^2 Q - S^2).
    WideInteger total() const
    {
        const WideInteger cells = squaredInteger(m_n);
        return cells * (cells * m_squares - squaredInteger(m_sum));
    }

private:
    int m_n;
    std::vector<std::int64_t> m_sums;
    WideInteger m_sum = 0;
    WideInteger m_squares = 0;
};

} // namespace stats
