// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/SequenceTests.h"

#include "stats/numbers/CriticalFAndChiSquare.h"
#include "stats/numbers/Sequences.h"

#include <utility>

namespace stats {

namespace {

void decideExactly(SequenceTestResult& result, ExactDistribution distribution, double alpha)
{
    result.cumulative = distribution.cumulative(result.statistic);
    result.rejected = rejects(distribution, result.statistic, alpha);
    result.exact = std::move(distribution);
}

} // namespace

bool rejects(const ExactDistribution& distribution, double statistic, double alpha)
{
    return distribution.count() > 1 && distribution.shareAbove(statistic) < alpha;
}

TestCResult testC(const TMatrix& observations, int n, double alpha, RandomIntegers& integers)
{
    TestCResult result;
    result.statistic = SequenceC(observations, n);
    if (n <= largestExactOrder) {
        decideExactly(result, exactDistributionOfC(n), alpha);
    } else if (n <= largestSimulatedOrder) {
        result.simulated = simulateC(n, integers);
        result.normalised =
            (result.statistic - result.simulated->mean) / result.simulated->variance;
        result.cumulative = NormalCdf(result.normalised);
        result.rejected = result.cumulative > 1.0 - alpha;
    }
    return result;
}

TestMResult testM(const TMatrix& observations, int n, double alpha)
{
    TestMResult result;
    result.statistic = SequenceM(observations, n);
    if (n <= largestExactOrder) {
        decideExactly(result, exactDistributionOfM(n), alpha);
    } else {
        result.criticalValue = criticalF(alpha, RankDegrees(n));
        result.rejected = result.statistic >= result.criticalValue;
    }
    return result;
}

} // namespace stats
