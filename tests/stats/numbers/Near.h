// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>

/// Comparisons of doubles that show both values, the error and the tolerance.

inline ::testing::AssertionResult isNear(double actual, double expected, double tolerance)
{
    const double error = std::abs(actual - expected);
    if (error <= tolerance) // false as well where either is not a number
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << std::setprecision(17) << "actual " << actual << ", expected " << expected
           << ", error " << error << ", tolerance " << tolerance;
}

inline ::testing::AssertionResult isRelativelyNear(double actual, double expected, double tolerance)
{
    return isNear(actual, expected, tolerance * std::abs(expected));
}
