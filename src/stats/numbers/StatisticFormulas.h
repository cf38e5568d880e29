// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The rank and sequence statistics as what they are: fractions of whole numbers.
///
/// Evaluated as such, with one rounding at the end, equal outcomes give equal doubles, on every
/// machine; step by step in doubles they would fall apart into neighbouring values. `Number` is the
/// type that the whole numbers come in: WideInteger for a square of any order, double for squares
/// side by side, where up to order 6 all of them are far below 2^53, so that doubles hold them too.
namespace stats {

/// What the statistics take from n^2 numbers (ranks, run indices), n of each of n treatments.
template <typename Number>
struct Moments {
    Number sum{};         ///< S, the sum of all numbers
    Number squaredSums{}; ///< the sum over t of S_t^2, S_t being the sum of treatment t
    Number squares{};     ///< Q, the sum of the squared numbers
};

/// The fraction as a double: correctly rounded while both parts are below 2^53, which holds far
/// beyond order 6, and within three roundings above. Not a number for 0 / 0.
template <typename Number>
double ratio(Number numerator, Number denominator)
{
    return static_cast<double>(numerator) / static_cast<double>(denominator);
}

/// n^4 times the sum of squares of the treatment means: the sum over t of (n S_t - S)^2. It is not
/// weighted by n, so at most totalSpread() / n.
template <typename Number>
Number spreadBetween(const Moments<Number>& moments, Number n)
{
    return n * (n * moments.squaredSums - moments.sum * moments.sum);
}

/// n^4 times the total sum of squares: n^2 (n^2 Q - S^2).
template <typename Number>
Number totalSpread(const Moments<Number>& moments, Number n)
{
    return n * n * (n * n * moments.squares - moments.sum * moments.sum);
}

/// C, from the run indices and the number of runs: the sum over t of (2 S_t - n (runs + 1))^2 by
/// 4 n^2 runs (runs + 1).
template <typename Number>
double formulaOfC(const Moments<Number>& indices, Number runs, Number n)
{
    const Number centre = n * (runs + 1);
    return ratio(4 * (indices.squaredSums - centre * indices.sum) + n * centre * centre,
                 4 * n * n * runs * (runs + 1));
}

/// M, from the run indices.
template <typename Number>
double formulaOfM(const Moments<Number>& indices, Number n)
{
    const Number between = spreadBetween(indices, n);
    return ratio(n * between, totalSpread(indices, n) - between);
}

/// Bennett's B, from the overall ranks; their squares do not count.
template <typename Number>
double formulaOfB(const Moments<Number>& ranks, Number n)
{
    const Number cells = n * n;
    return ratio(12 * ranks.squaredSums - 3 * n * cells * (cells + 1) * (cells + 1),
                 n * cells * (cells + 1));
}

/// Zimmerman's T and Z, from the ranks within rows plus those within columns.
template <typename Number>
double formulaOfT(const Moments<Number>& ranks, Number n)
{
    return ratio(spreadBetween(ranks, n), totalSpread(ranks, n));
}

template <typename Number>
double formulaOfZ(const Moments<Number>& ranks, Number n)
{
    const Number between = spreadBetween(ranks, n);
    return ratio((n - 1) * n * between, (n + 1) * (totalSpread(ranks, n) - between));
}

} // namespace stats
