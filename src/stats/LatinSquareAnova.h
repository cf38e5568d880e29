// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/MATRIX.h"

#include <cstdint>

/// The classical analysis of variance of a Latin square, as numbers.
namespace stats {

/// A source of variation that is compared with the error.
struct VarianceSource {
    double sumOfSquares = 0.0;
    double meanSquare = 0.0;
    double statistic = 0.0;   ///< F: this mean square divided by the error's.
    bool significant = false; ///< F is strictly greater than the critical value.
};

struct LatinSquareAnova {
    std::int64_t sourceDegrees = 0; ///< n - 1, of rows, columns and treatments each
    std::int64_t errorDegrees = 0;  ///< (n - 1)(n - 2)
    std::int64_t totalDegrees = 0;  ///< n^2 - 1
    VarianceSource rows;
    VarianceSource columns;
    VarianceSource treatments;
    double errorSumOfSquares = 0.0;
    double errorMeanSquare = 0.0;
    double totalSumOfSquares = 0.0;
    double criticalValue = 0.0; ///< The 1 - alpha point of F(n - 1, (n - 1)(n - 2)).
    /// The error mean square is exactly zero, before any underflow: no F can be formed.
    bool errorIsZero = false;
};

/// Splits the variation of n x n observations (column, row) in the cyclic layout of treatments.
///
/// Each sum of squares is the one of the textbook (D. C. Montgomery, Design and Analysis of
/// Experiments, on the Latin square design), evaluated so that it keeps its digits: in twice the
/// digits of a double, and from its own deviations, the error's from the residuals of the additive
/// model, instead of as a difference of large numbers. So
///  - constant leading digits of the data cost nothing: 15 significant digits are right even with
///  12
///    of them constant, where (sum of squares) - (correction term) has none left;
///  - no sum of squares is negative, and the error's is exactly 0 for whole-number data that are
///    exactly additive. Data such as 0.1, 0.2, 0.3 are not, as doubles: what remains is their
///    rounding, and the F ratios are huge.
///
/// The work is done on observations scaled by a power of two, so F and the marks are right for data
/// near either limit of double. There the sums and mean squares themselves can leave the range:
/// they are then infinite or 0, and errorIsZero still tells a true zero from a small number.
///
/// n below 3 leaves 0 error degrees of freedom (and n = 1 none for the sources): a mean square
/// without degrees of freedom is not a number, nor are the F ratios formed with it; the critical
/// value is 0. So is every result where an observation is not finite.
LatinSquareAnova latinSquareAnova(const TMatrix& observations, int n, double alpha);

} // namespace stats
