// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/STATIS.h"

#include <algorithm>
#include <cstdint>
#include <limits>

/// The critical values of the tests: the 1 - alpha points of their distributions.
///
/// That of C is in power/study/CriticalValues.h; the analysis decides C by its probability.
///
/// Squares of order 1 and 2, which only a file can bring, leave some tests without degrees of
/// freedom. There is no critical value then: it is not a number, and no statistic reaches it.
namespace stats {

/// Numerator and denominator of the F distribution to which the rank sums and run indices of a
/// square of order n are referred.
struct RankDegrees {
    explicit constexpr RankDegrees(std::int64_t n)
        : numerator(n - 1)
        , denominator(n * (n - 1))
    {
    }

    std::int64_t numerator;
    std::int64_t denominator;
};

/// Degrees of freedom beyond the largest int, where the quantile has long met its limit, count as
/// the largest int.
inline double criticalF(double alpha, std::int64_t df1, std::int64_t df2)
{
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    return df1 > 0 && df2 > 0 ? FQuantile(1.0 - alpha, static_cast<int>(std::min(df1, largest)),
                                          static_cast<int>(std::min(df2, largest)))
                              : std::numeric_limits<double>::quiet_NaN();
}

inline double criticalF(double alpha, const RankDegrees& degrees)
{
    return criticalF(alpha, degrees.numerator, degrees.denominator);
}

inline double criticalChiSquare(double alpha, int df)
{
    return df > 0 ? ChiSquareQuantile(df, 1.0 - alpha) : std::numeric_limits<double>::quiet_NaN();
}

} // namespace stats
