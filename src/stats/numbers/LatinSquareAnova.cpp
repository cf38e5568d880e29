// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/LatinSquareAnova.h"

#include "stats/numbers/CriticalPoints.h"
#include "stats/numbers/DecimalSums.h"
#include "stats/numbers/DegreesOfFreedom.h"

#include <cmath>

namespace stats {

namespace {

using Fraction = boost::multiprecision::cpp_rational;

/// The sums of squares of an analysis, each n^2 times and in units of 10^(2 exponent): whole
/// numbers.
struct ScaledSums {
    WholeNumber rows;
    WholeNumber columns;
    WholeNumber treatments;
    WholeNumber error;
    WholeNumber total;
};

ScaledSums scaledSums(const DecimalSums& sums, int n)
{
    const WholeNumber correction = sums.all * sums.all;
    const auto between = [&](const std::vector<WholeNumber>& totals) {
        WholeNumber squares = 0;
        for (const WholeNumber& total : totals)
            squares += total * total;
        return WholeNumber(n * squares - correction);
    };
    ScaledSums scaled;
    scaled.rows = between(sums.rows);
    scaled.columns = between(sums.columns);
    scaled.treatments = between(sums.treatments);
    scaled.total = sums.squares * n * n - correction;
    scaled.error = scaled.total - scaled.rows - scaled.columns - scaled.treatments;
    return scaled;
}

WholeNumber powerOfTen(int exponent)
{
    WholeNumber power = 1;
    for (int k = 0; k < exponent; ++k)
        power *= 10;
    return power;
}

/// What a scaled sum of squares is to be multiplied by.
Fraction unitOf(const DecimalSums& sums, int n)
{
    const Fraction cells = Fraction(n) * n;
    const WholeNumber power = powerOfTen(2 * std::abs(sums.exponent));
    return sums.exponent < 0 ? Fraction(1 / (cells * power)) : Fraction(power / cells);
}

ExactNumber meanSquare(const Fraction& sumOfSquares, std::int64_t degrees)
{
    if (degrees < 1)
        return std::nullopt;
    return Fraction(sumOfSquares / degrees);
}

VarianceSource varianceSource(const Fraction& sumOfSquares, const LatinSquareAnova& anova)
{
    VarianceSource source;
    source.sumOfSquares = sumOfSquares;
    source.meanSquare = meanSquare(sumOfSquares, anova.sourceDegrees);
    if (source.meanSquare && anova.errorMeanSquare && !anova.errorIsZero) {
        source.statistic = Fraction(*source.meanSquare / *anova.errorMeanSquare);
        source.significant =
            std::isfinite(anova.criticalValue) && *source.statistic > Fraction(anova.criticalValue);
    }
    return source;
}

} // namespace

LatinSquareAnova latinSquareAnova(const TMatrix& observations, int n, double alpha)
{
    const std::int64_t order = n;
    LatinSquareAnova result;
    result.sourceDegrees = order - 1;
    result.errorDegrees = (order - 1) * (order - 2);
    result.totalDegrees = order * order - 1;
    result.criticalValue =
        criticalF(alpha, asDegrees(result.sourceDegrees), asDegrees(result.errorDegrees));

    const std::optional<DecimalSums> sums = decimalSums(observations, n);
    if (!sums)
        return result;
    const ScaledSums scaled = scaledSums(*sums, n);
    const Fraction unit = unitOf(*sums, n);
    result.totalSumOfSquares = Fraction(scaled.total * unit);
    result.errorSumOfSquares = Fraction(scaled.error * unit);
    result.errorMeanSquare = meanSquare(*result.errorSumOfSquares, result.errorDegrees);
    result.errorIsZero = result.errorMeanSquare && *result.errorMeanSquare == 0;
    result.rows = varianceSource(scaled.rows * unit, result);
    result.columns = varianceSource(scaled.columns * unit, result);
    result.treatments = varianceSource(scaled.treatments * unit, result);
    return result;
}

} // namespace stats
