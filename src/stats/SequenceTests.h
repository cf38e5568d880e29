// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/ExactDistribution.h"
#include "stats/MATRIX.h"
#include "stats/RandomIntegers.h"

#include <optional>

/// The sequence tests C and M as numbers: exact up to order 3, approximated beyond. A statistic
/// that is not a number never rejects.
namespace stats {

/// The null distribution of C as simulated squares without effects show it.
struct SimulatedC {
    static constexpr int squares = 5000;

    double mean = 0.0;
    double variance = 0.0; ///< with divisor squares - 1
    double deviation = 0.0;
};

/// Simulates squares of order n whose observations are drawn one after the other, row by row.
SimulatedC simulateC(int n, RandomIntegers& integers);

struct TestCResult {
    double statistic = 0.0;
    std::optional<ExactDistribution> exact; ///< n <= largestExactOrder
    std::optional<SimulatedC> simulated;    ///< n beyond
    /// With simulated squares: (statistic - mean) / variance. The test divides by the variance, not
    /// by the deviation.
    double normalised = 0.0;
    double cumulative = 0.0; ///< P(X <= statistic), exact or from the Normal at `normalised`.
    bool rejected = false;   ///< cumulative > 1 - alpha
};

TestCResult testC(const TMatrix& observations, int n, double alpha, RandomIntegers& integers);

struct TestMResult {
    double statistic = 0.0;
    std::optional<ExactDistribution> exact; ///< n <= largestExactOrder
    double cumulative = 0.0;                ///< exact: P(X <= statistic)
    double criticalValue = 0.0; ///< n beyond: the 1 - alpha point of F(n - 1, n (n - 1)).
    bool rejected = false;      ///< exact: cumulative > 1 - alpha; else statistic >= criticalValue.
};

TestMResult testM(const TMatrix& observations, int n, double alpha);

} // namespace stats
