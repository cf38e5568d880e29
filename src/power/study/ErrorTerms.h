// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <stdexcept>

/// The error terms of the simulated observations.
namespace power {

enum class ErrorKind : std::uint8_t { Uniform = 0, Exponential = 1, Triangular = 2 };

/// What a kind of errors that is none of these raises, and an order that no study knows. Only a
/// broken program gets there.
class ImpossibleSetting : public std::logic_error {
public:
    ImpossibleSetting()
        : std::logic_error("Error Fatal")
    {
    }
};

/// An error term plus `shift`, from a uniform number in [0, 1]:
///   Uniform      uniform
///   Exponential  -log10(uniform), infinite for 0; the common logarithm
///   Triangular   1 - sqrt(uniform)
/// @throws ImpossibleSetting
double ErrorDraw(ErrorKind kind, double uniform, double shift);

} // namespace power
