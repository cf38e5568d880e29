// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <optional>
#include <vector>

namespace stats {

using WholeNumber = boost::multiprecision::cpp_int;

/// The sums of a square's observations from which its analysis of variance follows, as whole
/// numbers of one decimal unit, without any rounding.
struct DecimalSums {
    int exponent = 0; ///< The unit is 10^exponent; that of `squares` is 10^(2 exponent).
    std::vector<WholeNumber> rows;
    std::vector<WholeNumber> columns;
    std::vector<WholeNumber> treatments;
    WholeNumber all;
    WholeNumber squares; ///< of the squared observations
};

/// The sums over the cells (column, row) from 1 to n in the cyclic layout of treatments, each
/// observation being its typedDecimal(). Nothing where an observation is not finite or n is
/// below 1.
std::optional<DecimalSums> decimalSums(const TMatrix& observations, int n);

} // namespace stats
