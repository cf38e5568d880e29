// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/LatinSquareAnova.h"

#include "stats/numbers/CriticalFAndChiSquare.h"
#include "stats/numbers/ObservationDecimal.h"

#include <cmath>

namespace stats {

namespace {

using Fraction = boost::multiprecision::cpp_rational;

/// What n^2 times a sum of squares, in units of 10^(2 exponent), is to be multiplied by.
Fraction unitOf(int exponent, int n)
{
    const Fraction cells = Fraction(n) * n;
    const WholeNumber power = pow(WholeNumber(10), static_cast<unsigned>(2 * std::abs(exponent)));
    return exponent < 0 ? Fraction(1 / (cells * power)) : Fraction(power / cells);
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
    result.criticalValue = criticalF(alpha, result.sourceDegrees, result.errorDegrees);

    const std::optional<DecimalSums> sums = decimalSums(observations, n);
    if (!sums)
        return result;
    const Fraction unit = unitOf(sums->exponent, n);
    const WholeNumber correction = sums->all * sums->all;
    const auto between = [&](const std::vector<WholeNumber>& totals) {
        WholeNumber squares = 0;
        for (const WholeNumber& total : totals)
            squares += total * total;
        return Fraction((n * squares - correction) * unit);
    };
    const Fraction rows = between(sums->rows);
    const Fraction columns = between(sums->columns);
    const Fraction treatments = between(sums->treatments);
    result.totalSumOfSquares = Fraction((sums->squares * n * n - correction) * unit);
    result.errorSumOfSquares = Fraction(*result.totalSumOfSquares - rows - columns - treatments);
    result.errorMeanSquare = meanSquare(*result.errorSumOfSquares, result.errorDegrees);
    result.errorIsZero = result.errorMeanSquare && *result.errorMeanSquare == 0;
    result.rows = varianceSource(rows, result);
    result.columns = varianceSource(columns, result);
    result.treatments = varianceSource(treatments, result);
    return result;
}

} // namespace stats
