// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/WholeNumbers.h"

#include <cstdint>
#include <span>

namespace stats {

/// How n^2 whole numbers (ranks, run indices) spread over n treatments of n numbers each, in exact
/// integers.
///
/// With S_t the sum of treatment t, S the sum and Q the sum of the squares of all numbers:
///   between = sum over t of (n S_t - S)^2   = n^4 times the sum of squares of the treatment means
///   total   = n^2 (n^2 Q - S^2)             = n^4 times the total sum of squares
/// The means' squares are not weighted by n, so between is at most total / n.
struct TreatmentSpread {
    WideInteger between = 0;
    WideInteger total = 0;
};

inline TreatmentSpread treatmentSpread(std::span<const std::int64_t> treatmentSums,
                                       WideInteger sumOfSquares, int n)
{
    WideInteger sum = 0;
    for (const std::int64_t treatmentSum : treatmentSums)
        sum += treatmentSum;
    TreatmentSpread spread;
    for (const std::int64_t treatmentSum : treatmentSums)
        spread.between += squaredInteger(static_cast<WideInteger>(n) * treatmentSum - sum);
    const WideInteger cells = squaredInteger(n);
    spread.total = cells * (cells * sumOfSquares - squaredInteger(sum));
    return spread;
}

} // namespace stats
