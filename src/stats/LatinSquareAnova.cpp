// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/LatinSquareAnova.h"

#include "stats/CyclicLayout.h"
#include "stats/DegreesOfFreedom.h"
#include "stats/DoubleDouble.h"
#include "stats/STATIS.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace stats {

namespace {

/// The power of two above the largest magnitude; 0 where there is none to be had.
int commonExponent(const TMatrix& observations, int n)
{
    double largest = 0.0;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column)
            largest = std::max(largest, std::abs(observations.Elem(column, row)));
    }
    return largest > 0.0 && std::isfinite(largest) ? std::ilogb(largest) + 1 : 0;
}

/// The observations, scaled by 2^-exponent.
class ScaledObservations {
public:
    ScaledObservations(const TMatrix& observations, int exponent)
        : m_observations(observations)
        , m_exponent(exponent)
    {
    }

    DoubleDouble operator()(int column, int row) const
    {
        return {std::ldexp(m_observations.Elem(column, row), -m_exponent), 0.0};
    }

private:
    const TMatrix& m_observations;
    int m_exponent;
};

struct Totals {
    explicit Totals(int n)
        : rows(static_cast<std::size_t>(std::max(n, 0)))
        , columns(rows)
        , treatments(rows)
    {
    }

    std::vector<DoubleDouble> rows;
    std::vector<DoubleDouble> columns;
    std::vector<DoubleDouble> treatments;
    DoubleDouble all;
};

/// The total of a row, column or treatment, numbered from 1.
auto& of(auto& totals, int number)
{
    return totals[static_cast<std::size_t>(number - 1)];
}

Totals totalsOf(const ScaledObservations& observation, int n)
{
    Totals totals(n);
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const DoubleDouble x = observation(column, row);
            of(totals.rows, row) += x;
            of(totals.columns, column) += x;
            of(totals.treatments, treatmentOf(column, row, n)) += x;
            totals.all += x;
        }
    }
    return totals;
}

/// Sum over the n groups of n (group mean - grand mean)^2, from the group totals.
double betweenGroups(const std::vector<DoubleDouble>& totals, const DoubleDouble& all, int n)
{
    DoubleDouble sum;
    for (const DoubleDouble& total : totals)
        sum += squared(total * n - all);
    return quotient(sum, static_cast<double>(n) * n * n);
}

struct CellSums {
    double total = 0.0; ///< Sum over the cells of (observation - grand mean)^2.
    double error = 0.0; ///< The same of the residuals of the model rows + columns + treatments.
};

CellSums overCells(const ScaledObservations& observation, const Totals& totals, int n)
{
    const double cells = static_cast<double>(n) * n;
    DoubleDouble total;
    DoubleDouble error;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            // Everything n^2 times: no division, and no rounding of one, before the last step.
            const DoubleDouble x = observation(column, row) * cells;
            const DoubleDouble effects = of(totals.rows, row) + of(totals.columns, column) +
                                         of(totals.treatments, treatmentOf(column, row, n));
            total += squared(x - totals.all);
            error += squared(x - effects * n + totals.all * 2.0);
        }
    }
    return {quotient(total, cells * cells), quotient(error, cells * cells)};
}

double meanSquare(double sumOfSquares, std::int64_t degrees)
{
    return degrees > 0 ? sumOfSquares / static_cast<double>(degrees)
                       : std::numeric_limits<double>::quiet_NaN();
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
        FQuantile(1.0 - alpha, asDegrees(result.sourceDegrees), asDegrees(result.errorDegrees));

    const int exponent = commonExponent(observations, n);
    const ScaledObservations scaled(observations, exponent);
    const Totals totals = totalsOf(scaled, n);
    const CellSums cellSums = overCells(scaled, totals, n);
    const double errorMeanSquare = meanSquare(cellSums.error, result.errorDegrees);
    const auto unscaled = [exponent](double square) { return std::ldexp(square, 2 * exponent); };

    const auto source = [&](const std::vector<DoubleDouble>& groupTotals) {
        const double sum = betweenGroups(groupTotals, totals.all, n);
        const double square = meanSquare(sum, result.sourceDegrees);
        const double statistic = square / errorMeanSquare;
        return VarianceSource{unscaled(sum), unscaled(square), statistic,
                              statistic > result.criticalValue};
    };
    result.rows = source(totals.rows);
    result.columns = source(totals.columns);
    result.treatments = source(totals.treatments);
    result.errorSumOfSquares = unscaled(cellSums.error);
    result.errorMeanSquare = unscaled(errorMeanSquare);
    result.totalSumOfSquares = unscaled(cellSums.total);
    result.errorIsZero = errorMeanSquare == 0.0;
    return result;
}

} // namespace stats
