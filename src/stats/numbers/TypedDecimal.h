// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace stats {

/// A decimal number: coefficient x 10^exponent. Where it is not zero, the coefficient has at most
/// 17 digits and does not end in 0.
struct TypedDecimal {
    std::int64_t coefficient = 0;
    int exponent = 0;
};

/// The decimal that an observation stands for: of all that read back as this double, the one with
/// the fewest digits, and of those the nearest. It is the number that was typed wherever that has
/// at most 15 significant digits (and a magnitude of 1e-307 or more, or 0): 41.3 and not
/// 41.2999999999999971..., the double beside it.
///
/// Nothing for what is not finite.
std::optional<TypedDecimal> typedDecimal(double observation);

} // namespace stats
