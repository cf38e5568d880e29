// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/TypedDecimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace stats {

namespace {

/// Takes "-d.ddde-xx", the shortest text that std::to_chars has for a double, apart.
TypedDecimal takeApart(std::string_view text)
{
    const bool negative = text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    const auto mark = text.find('e');

    TypedDecimal decimal;
    for (const char c : text.substr(0, mark)) {
        if (c != '.')
            decimal.coefficient = decimal.coefficient * 10 + (c - '0');
    }
    if (negative)
        decimal.coefficient = -decimal.coefficient;

    std::string_view exponent = text.substr(mark + 1);
    if (exponent.front() == '+')
        exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
    if (mark > 1) // the second character is the point, decimals follow
        decimal.exponent -= static_cast<int>(mark) - 2;
    return decimal;
}

} // namespace

std::optional<TypedDecimal> typedDecimal(double observation)
{
    if (!std::isfinite(observation))
        return std::nullopt;
    if (observation == 0.0)
        return TypedDecimal{};
    std::array<char, 32> buffer{}; // "-1.2345678901234567e-308" has 24 characters
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), observation,
                                   std::chars_format::scientific)
                         .ptr;
    return takeApart({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

} // namespace stats
