// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

/// Sums and products with twice the digits of a double.
///
/// A value is the unevaluated sum of two doubles, some 106 bits; results are good to a few units of
/// 2^-104, and exact for whole numbers below 2^53 in their steps. T. J. Dekker, A floating-point
/// technique for extending the available precision, Numer. Math. 18 (1971); Y. Hida, X. S. Li and
/// D. H. Bailey, Algorithms for quad-double precision floating point arithmetic (2001). It needs
/// every operation rounded by itself: -ffp-contract=off, no -ffast-math.
namespace stats {

struct DoubleDouble {
    double hi = 0.0;
    double lo = 0.0;
};

/// a + b exactly, for |a| >= |b|.
inline DoubleDouble exactSumOrdered(double a, double b)
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a + b exactly.
inline DoubleDouble exactSum(double a, double b)
{
    const double sum = a + b;
    const double partOfB = sum - a;
    return {sum, (a - (sum - partOfB)) + (b - partOfB)};
}

inline DoubleDouble operator+(const DoubleDouble& a, const DoubleDouble& b)
{
    const DoubleDouble high = exactSum(a.hi, b.hi);
    const DoubleDouble low = exactSum(a.lo, b.lo);
    const DoubleDouble sum = exactSumOrdered(high.hi, high.lo + low.hi);
    return exactSumOrdered(sum.hi, sum.lo + low.lo);
}

inline DoubleDouble operator-(const DoubleDouble& a, const DoubleDouble& b)
{
    return a + DoubleDouble{-b.hi, -b.lo};
}

inline DoubleDouble& operator+=(DoubleDouble& a, const DoubleDouble& b)
{
    return a = a + b;
}

inline DoubleDouble operator*(const DoubleDouble& a, double b)
{
    const double product = a.hi * b;
    const double rest = std::fma(a.hi, b, -product);
    return exactSumOrdered(product, rest + a.lo * b);
}

inline DoubleDouble squared(const DoubleDouble& a)
{
    const double product = a.hi * a.hi;
    const double rest = std::fma(a.hi, a.hi, -product);
    return exactSumOrdered(product, rest + 2.0 * (a.hi * a.lo));
}

/// The quotient as one double, rounded from some 106 bits.
inline double quotient(const DoubleDouble& a, double b)
{
    const double first = a.hi / b;
    const double remainder = std::fma(-first, b, a.hi) + a.lo;
    return first + remainder / b;
}

} // namespace stats
