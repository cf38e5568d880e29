// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/ExactDistribution.h"
#include "stats/numbers/MATRIX.h"
#include "stats/numbers/SimulatedSquares.h"

#include <limits>
#include <optional>

/// The sequence tests C and M as numbers: exact up to order 3, approximated beyond. A statistic
/// that is not a number never rejects. C is decided by its cumulative probability, without a
/// critical value; the one of the power study is in power/study/CriticalValues.h.
namespace stats {

/// Whether a statistic is so large that the share of arrangements above it is less than alpha.
///
/// Both are single divisions, so that at equality, which whole percentages reach, neither side is a
/// rounding off: 1 - alpha = P(X <= statistic) accepts. Order 1 has one arrangement and one value,
/// which nothing can be above: it does not reject.
bool rejects(const ExactDistribution& distribution, double statistic, double alpha);

/// What both tests come to.
struct SequenceTestResult {
    double statistic = 0.0;
    std::optional<ExactDistribution> exact; ///< n <= largestExactOrder
    /// P(X <= statistic): exact, or for C from the Normal at `normalised`; otherwise not a number.
    double cumulative = std::numeric_limits<double>::quiet_NaN();
    bool rejected = false; ///< exact: rejects()
};

struct TestCResult : SequenceTestResult {
    /// n beyond, up to largestSimulatedOrder: `rejected` is cumulative > 1 - alpha. Further beyond
    /// nothing is rejected.
    std::optional<SimulatedC> simulated;
    /// With simulated squares: (statistic - mean) / variance. The test divides by the variance, not
    /// by the deviation.
    double normalised = 0.0;
};

TestCResult testC(const TMatrix& observations, int n, double alpha, RandomIntegers& integers);

struct TestMResult : SequenceTestResult {
    /// n beyond: the 1 - alpha point of RankDegrees; `rejected` is statistic >= criticalValue.
    double criticalValue = 0.0;
};

TestMResult testM(const TMatrix& observations, int n, double alpha);

} // namespace stats
