// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/SimulatedSquares.h"

namespace power {

/// One thing of each of the four tests: C, M, Bennett's and Zimmerman's.
template <typename Thing>
struct PerTest {
    Thing c{};
    Thing m{};
    Thing b{};
    Thing z{};
};

/// What the statistics of a simulated square must exceed, strictly, to reject. For C that is
/// (C - meanOfC) / deviationOfC: C is standardised as simulated squares without effects show it;
/// for order 3, where its distribution is known, these leave it as it is.
struct CriticalValues : PerTest<double> {
    double meanOfC = 0.0;
    double deviationOfC = 1.0;
};

/// The critical values of squares of order n (3 to 6) at a level.
///
/// Bennett: chi-square with n - 1 degrees of freedom. Zimmerman: F(n - 1, n (n - 1)). C and M of
/// order 3: the first value of the exact distribution whose cumulative probability reaches the
/// level. C of orders 4 to 6: the standard Normal. M of orders 5 and 6: F(n - 1, n (n - 1)); of
/// order 4: 0.8476 at every level.
///
/// @param integers  draws the squares that show how C is distributed, for orders 4 to 6
CriticalValues criticalValues(int n, double level, stats::RandomIntegers& integers);

} // namespace power
