// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <cstdint>
#include <optional>
#include <vector>

/// The decimals that observations stand for, and their sums without any rounding.
namespace stats {

/// A decimal number: coefficient x 10^exponent. Where it is not zero, the coefficient has at most
/// 17 digits and does not end in 0.
struct ObservationDecimal {
    std::int64_t coefficient = 0;
    int exponent = 0;
};

/// The decimal that an observation stands for: of all that read back as this double, the one with
/// the fewest digits, and of those the nearest. It is the number that was typed wherever that has
/// at most 15 significant digits (and a magnitude of 1e-307 or more, or 0): 41.3 and not
/// 41.2999999999999971..., the double beside it.
///
/// Nothing for what is not finite.
std::optional<ObservationDecimal> observationDecimal(double observation);

using WholeNumber = boost::multiprecision::cpp_int;

/// The sums of a square's observations from which its analysis of variance follows, as whole
/// numbers of one decimal unit.
struct DecimalSums {
    int exponent = 0; ///< The unit is 10^exponent; that of `squares` is 10^(2 exponent).
    std::vector<WholeNumber> rows;
    std::vector<WholeNumber> columns;
    std::vector<WholeNumber> treatments;
    WholeNumber all;
    WholeNumber squares; ///< of the squared observations
};

/// The sums over the cells (column, row) from 1 to n in the cyclic layout of treatments, each
/// observation being its observationDecimal(). Nothing where an observation is not finite or n is
/// below 1.
std::optional<DecimalSums> decimalSums(const TMatrix& observations, int n);

} // namespace stats
