// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/SequenceTests.h"

#include "stats/numbers/CriticalPoints.h"
#include "stats/numbers/DegreesOfFreedom.h"
#include "stats/numbers/Sequences.h"
#include "stats/numbers/SquareDraws.h"

#include <cmath>
#include <vector>

namespace stats {

bool rejects(const ExactDistribution& distribution, double statistic, double alpha)
{
    return distribution.count() > 1 && distribution.shareAbove(statistic) < alpha;
}

SimulatedC simulateC(int n, RandomIntegers& integers)
{
    const std::vector<double> values = sequenceCOfRandomSquares(n, SimulatedC::squares, integers);
    double sum = 0.0;
    for (const double value : values)
        sum += value;

    SimulatedC result;
    result.mean = sum / SimulatedC::squares;
    double squaredDeviations = 0.0;
    for (const double value : values)
        squaredDeviations += (value - result.mean) * (value - result.mean);
    result.variance = squaredDeviations / (SimulatedC::squares - 1);
    result.deviation = std::sqrt(result.variance);
    return result;
}

TestCResult testC(const TMatrix& observations, int n, double alpha, RandomIntegers& integers)
{
    TestCResult result;
    result.statistic = SequenceC(observations, n);
    if (n <= largestExactOrder) {
        result.exact = exactDistributionOfC(n);
        result.cumulative = result.exact->cumulative(result.statistic);
        result.rejected = rejects(*result.exact, result.statistic, alpha);
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
        result.exact = exactDistributionOfM(n);
        result.cumulative = result.exact->cumulative(result.statistic);
        result.rejected = rejects(*result.exact, result.statistic, alpha);
    } else {
        const RankDegrees degrees(n);
        result.criticalValue = criticalF(alpha, degrees.numerator, degrees.denominator);
        result.rejected = result.statistic >= result.criticalValue;
    }
    return result;
}

} // namespace stats
