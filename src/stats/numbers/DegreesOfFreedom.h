// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace stats {

/// Degrees of freedom as the distributions take them. Products that only squares of tens of
/// thousands of rows reach become the largest int, where every quantile has long met its limit.
constexpr int asDegrees(std::int64_t degrees)
{
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(degrees, largest));
}

/// Numerator and denominator of the F distribution to which the rank sums and run indices of a
/// square of order n are referred: n - 1 and n (n - 1).
struct RankDegrees {
    explicit constexpr RankDegrees(int n)
        : numerator(n - 1)
        , denominator(asDegrees(static_cast<std::int64_t>(n) * (n - 1)))
    {
    }

    int numerator;
    int denominator;
};

} // namespace stats
