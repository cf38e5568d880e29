// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Whole-number arithmetic of the rank and sequence statistics.
///
/// Their formulas are fractions of integers. Evaluated as such, with one rounding at the end, equal
/// outcomes give equal doubles, on every machine; step by step in doubles they would fall apart
/// into neighbouring values. 128 bits hold every product for squares of any order that fits into
/// memory.
namespace stats {

__extension__ typedef __int128 WideInteger;

constexpr WideInteger squaredInteger(WideInteger value)
{
    return value * value;
}

/// The fraction as a double: correctly rounded while both parts are below 2^53, which holds far
/// beyond order 6, and within three roundings above. Not a number for 0 / 0.
inline double ratio(WideInteger numerator, WideInteger denominator)
{
    return static_cast<double>(numerator) / static_cast<double>(denominator);
}

} // namespace stats
