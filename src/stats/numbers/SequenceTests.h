// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/ExactDistribution.h"
#include "stats/numbers/MATRIX.h"
#include "stats/numbers/RandomIntegers.h"

#include <limits>
#include <optional>

/// The sequence tests C and M as numbers: exact up to order 3, approximated beyond. A statistic
/// that is not a number never rejects.
namespace stats {

/// Whether a statistic is so large that the share of arrangements above it is less than alpha.
///
/// Both are single divisions, so that at equality, which whole percentages reach, neither side is a
/// rounding off: 1 - alpha = P(X <= statistic) accepts. Order 1 has one arrangement and one value,
/// which nothing can be above: it does not reject.
bool rejects(const ExactDistribution& distribution, double statistic, double alpha);

/// The null distribution of C as simulated squares without effects show it.
struct SimulatedC {
    static constexpr int squares = 5000;

    double mean = 0.0;
    double variance = 0.0; ///< with divisor squares - 1
    double deviation = 0.0;
};

/// Up to this order C is approximated: 5000 squares take 0.4 s there (x86-64, 2 GHz or more), so
/// some two seconds on a machine five times as slow. The time rises with n^2 log n: minutes at
/// order 1000, which only a file can bring.
constexpr int largestSimulatedOrder = 40;

/// Simulates squares of order n whose observations are drawn one after the other, row by row.
SimulatedC simulateC(int n, RandomIntegers& integers);

struct TestCResult {
    double statistic = 0.0;
    std::optional<ExactDistribution> exact; ///< n <= largestExactOrder
    std::optional<SimulatedC> simulated;    ///< n beyond, up to largestSimulatedOrder
    /// With simulated squares: (statistic - mean) / variance. The test divides by the variance, not
    /// by the deviation.
    double normalised = 0.0;
    /// P(X <= statistic), exact or from the Normal at `normalised`; not a number beyond both.
    double cumulative = std::numeric_limits<double>::quiet_NaN();
    bool rejected = false; ///< exact: rejects(); simulated: cumulative > 1 - alpha; beyond: never
};

TestCResult testC(const TMatrix& observations, int n, double alpha, RandomIntegers& integers);

struct TestMResult {
    double statistic = 0.0;
    std::optional<ExactDistribution> exact; ///< n <= largestExactOrder
    double cumulative = 0.0;                ///< exact: P(X <= statistic)
    double criticalValue = 0.0; ///< n beyond: the 1 - alpha point of F(n - 1, n (n - 1)).
    bool rejected = false;      ///< exact: rejects(); else statistic >= criticalValue.
};

TestMResult testM(const TMatrix& observations, int n, double alpha);

} // namespace stats
