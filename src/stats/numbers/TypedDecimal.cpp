// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/TypedDecimal.h"

#include "stats/numbers/Treatments.h"

#include <algorithm>
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

/// The decimals of the cells as visitCells() goes. Nothing where an observation is not finite.
std::optional<std::vector<TypedDecimal>> decimalsOf(const TMatrix& observations, int n)
{
    std::vector<TypedDecimal> decimals;
    bool allFinite = true;
    visitCells(n, [&](int column, int row, int) {
        const std::optional<TypedDecimal> decimal = typedDecimal(observations.Elem(column, row));
        allFinite = allFinite && decimal;
        decimals.push_back(decimal.value_or(TypedDecimal{}));
    });
    return allFinite ? std::optional(std::move(decimals)) : std::nullopt;
}

/// The powers of ten from 1 to 10^largest.
std::vector<WholeNumber> powersOfTen(int largest)
{
    std::vector<WholeNumber> powers{1};
    for (int k = 1; k <= largest; ++k)
        powers.push_back(powers.back() * 10);
    return powers;
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

std::optional<DecimalSums> decimalSums(const TMatrix& observations, int n)
{
    const auto decimals = n >= 1 ? decimalsOf(observations, n) : std::nullopt;
    if (!decimals)
        return std::nullopt;
    const auto [lowest, highest] = std::minmax_element(
        decimals->begin(), decimals->end(),
        [](const TypedDecimal& a, const TypedDecimal& b) { return a.exponent < b.exponent; });
    const std::vector<WholeNumber> powers = powersOfTen(highest->exponent - lowest->exponent);

    DecimalSums sums(n);
    sums.exponent = lowest->exponent;
    auto next = decimals->begin();
    visitCells(n, [&](int column, int row, int treatment) {
        const TypedDecimal decimal = *next++;
        const WholeNumber units =
            powers[static_cast<std::size_t>(decimal.exponent - sums.exponent)] *
            decimal.coefficient;
        sums.rows[static_cast<std::size_t>(row - 1)] += units;
        sums.columns[static_cast<std::size_t>(column - 1)] += units;
        sums.treatments[static_cast<std::size_t>(treatment - 1)] += units;
        sums.all += units;
        sums.squares += units * units;
    });
    return sums;
}

} // namespace stats
