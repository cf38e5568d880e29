// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/RandomIntegers.h"

#include <vector>

namespace stats {

/// SequenceC() of squares of order n whose observations are drawn one after the other: square after
/// square, row after row. Only the order of observations counts, so each may be the drawn number or
/// any multiple of it.
std::vector<double> sequenceCOfRandomSquares(int n, int squares, RandomIntegers& integers);

} // namespace stats
