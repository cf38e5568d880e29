// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <cstdint>
#include <optional>

/// The classical analysis of variance of a Latin square, as exact numbers.
namespace stats {

/// A fraction of whole numbers, or nothing where there is no number: nothing is rounded before it
/// is written down.
using ExactNumber = std::optional<boost::multiprecision::cpp_rational>;

/// A source of variation that is compared with the error.
struct VarianceSource {
    ExactNumber sumOfSquares;
    ExactNumber meanSquare;
    ExactNumber statistic;    ///< F: this mean square divided by the error's.
    bool significant = false; ///< F is strictly greater than the critical value.
};

struct LatinSquareAnova {
    std::int64_t sourceDegrees = 0; ///< n - 1, of rows, columns and treatments each
    std::int64_t errorDegrees = 0;  ///< (n - 1)(n - 2)
    std::int64_t totalDegrees = 0;  ///< n^2 - 1
    VarianceSource rows;
    VarianceSource columns;
    VarianceSource treatments;
    ExactNumber errorSumOfSquares;
    ExactNumber errorMeanSquare;
    ExactNumber totalSumOfSquares;
    double criticalValue = 0.0; ///< The 1 - alpha point of F(n - 1, (n - 1)(n - 2)).
    bool errorIsZero = false;   ///< The error mean square is zero: no F can be formed.
};

/// Splits the variation of n x n observations (column, row) in the cyclic layout of treatments.
///
/// The sums of squares are those of the textbook (D. C. Montgomery, Design and Analysis of
/// Experiments, on the Latin square design), in exact arithmetic on the decimals that were typed
/// (observationDecimal()). So
///  - every digit is right, however many leading digits the data have in common, where
///    (sum of squares) - (correction term) in doubles may have none left;
///  - no sum of squares is negative, and the error's is 0 exactly where the data are additive:
///    0.1, 0.2, 0.3 are equal steps, though not as doubles;
///  - no magnitude of the data is too large or too small.
///
/// n below 3 leaves 0 error degrees of freedom (and n = 1 none for the sources). A mean square
/// without degrees of freedom is no number, nor is an F ratio formed with it; the critical value is
/// then not a number. There are no numbers at all where an observation is not finite or n is below
/// 1.
LatinSquareAnova latinSquareAnova(const TMatrix& observations, int n, double alpha);

} // namespace stats
