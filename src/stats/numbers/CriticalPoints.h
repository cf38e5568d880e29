// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/STATIS.h"

#include <limits>

/// The critical values of the tests: the 1 - alpha points of their distributions.
///
/// Squares of order 1 and 2, which only a file can bring, leave some tests without degrees of
/// freedom. There is no critical value then: it is not a number, and no statistic reaches it.
namespace stats {

inline double criticalF(double alpha, int df1, int df2)
{
    return df1 > 0 && df2 > 0 ? FQuantile(1.0 - alpha, df1, df2)
                              : std::numeric_limits<double>::quiet_NaN();
}

inline double criticalChiSquare(double alpha, int df)
{
    return df > 0 ? ChiSquareQuantile(df, 1.0 - alpha) : std::numeric_limits<double>::quiet_NaN();
}

} // namespace stats
