// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationDecimal.h"

#include "stats/numbers/Treatments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

namespace stats {

namespace {

/// Takes "-d.ddde-xx", the shortest text that std::to_chars has for a double, apart.
ObservationDecimal takeApart(std::string text)
{
    const std::size_t point = text.find('.');
    const auto decimals = point < text.size() ? text.find('e') - point - 1 : 0;
    if (point < text.size())
        text.erase(point, 1);

    ObservationDecimal decimal;
    const char* const end = text.data() + text.size();
    const char* const mark = std::from_chars(text.data(), end, decimal.coefficient).ptr;
    std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, decimal.exponent);
    decimal.exponent -= static_cast<int>(decimals);
    return decimal;
}

/// The decimals of the cells as visitCells() goes. Nothing where an observation is not finite.
std::optional<std::vector<ObservationDecimal>> decimalsOf(const TMatrix& observations, int n)
{
    std::vector<ObservationDecimal> decimals;
    bool allFinite = true;
    visitCells(n, [&](int column, int row, int) {
        const std::optional<ObservationDecimal> decimal =
            observationDecimal(observations.Elem(column, row));
        allFinite = allFinite && decimal;
        decimals.push_back(decimal.value_or(ObservationDecimal{}));
    });
    return allFinite ? std::optional(std::move(decimals)) : std::nullopt;
}

} // namespace

std::optional<ObservationDecimal> observationDecimal(double observation)
{
    if (!std::isfinite(observation))
        return std::nullopt;
    std::array<char, 32> buffer{}; // "-1.2345678901234567e-308" has 24 characters
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), observation,
                                   std::chars_format::scientific)
                         .ptr;
    return takeApart({buffer.data(), end});
}

std::optional<DecimalSums> decimalSums(const TMatrix& observations, int n)
{
    const auto decimals = n >= 1 ? decimalsOf(observations, n) : std::nullopt;
    if (!decimals)
        return std::nullopt;
    const auto [lowest, highest] =
        std::minmax_element(decimals->begin(), decimals->end(),
                            [](const ObservationDecimal& a, const ObservationDecimal& b) {
                                return a.exponent < b.exponent;
                            });
    std::vector<WholeNumber> powersOfTen{1};
    for (int exponent = lowest->exponent; exponent < highest->exponent; ++exponent)
        powersOfTen.push_back(powersOfTen.back() * 10);

    DecimalSums sums(n);
    sums.exponent = lowest->exponent;
    auto next = decimals->begin();
    visitCells(n, [&](int column, int row, int treatment) {
        const ObservationDecimal decimal = *next++;
        const WholeNumber units =
            powersOfTen[static_cast<std::size_t>(decimal.exponent - sums.exponent)] *
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
