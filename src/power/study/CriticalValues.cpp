// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/CriticalValues.h"

#include "stats/numbers/ExactDistribution.h"
#include "stats/numbers/STATIS.h"

namespace power {

namespace {

constexpr double criticalMOfOrder4 = 0.8476; // tabulated, whatever the level

/// The first value at which the cumulative probability reaches the level.
double firstReaching(const stats::ExactDistribution& distribution, double level)
{
    int index = 0;
    while (index + 1 < distribution.count() &&
           distribution.cumulative(distribution.value(index)) < level)
        ++index;
    return distribution.value(index);
}

} // namespace

CriticalValues criticalValues(int n, double level, stats::RandomIntegers& integers)
{
    const double fQuantile = stats::FQuantile(level, n - 1, (n - 1) * n);
    CriticalValues critical;
    critical.b = stats::ChiSquareQuantile(n - 1, level);
    critical.z = fQuantile;
    if (n <= stats::largestExactOrder) {
        critical.c = firstReaching(stats::exactDistributionOfC(n), level);
        critical.m = firstReaching(stats::exactDistributionOfM(n), level);
    } else {
        const stats::SimulatedC simulated = stats::simulateC(n, integers);
        critical.meanOfC = simulated.mean;
        critical.deviationOfC = simulated.deviation;
        critical.c = stats::NormalQuantile(level);
        critical.m = n == 4 ? criticalMOfOrder4 : fQuantile;
    }
    return critical;
}

} // namespace power
