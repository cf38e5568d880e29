// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationDecimal.h"

#include "stats/numbers/Treatments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace stats {

namespace {

/// The decimal of at most 15 digits that an observation is read back from, if it has one and is of
/// common size. Two of them never are the same double, so it is the one with the fewest digits.
std::optional<ObservationDecimal> shortDecimal(double observation)
{
    constexpr std::int64_t mostUnits = 1'000'000'000'000'000;
    // Powers of ten that are doubles, so that the product is within half a unit of the right one
    // and the quotient is the double next to the decimal.
    static constexpr std::array<double, 23> powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const double size = std::abs(observation);
    if (!(size >= 1e-7 && size < 1e15))
        return std::nullopt;
    std::size_t decimals = 0;
    for (const std::size_t step :
         {std::size_t{16}, std::size_t{8}, std::size_t{4}, std::size_t{2}, std::size_t{1}}) {
        if (decimals + step < powers.size() &&
            size * powers[decimals + step] < static_cast<double>(mostUnits))
            decimals += step;
    }
    std::int64_t units = std::llround(observation * powers[decimals]);
    if (std::abs(units) >= mostUnits ||
        static_cast<double>(units) / powers[decimals] != observation)
        return std::nullopt;
    int exponent = -static_cast<int>(decimals);
    for (const auto& [divisor, zeros] :
         {std::pair(std::int64_t{100'000'000}, 8), std::pair(std::int64_t{10'000}, 4),
          std::pair(std::int64_t{100}, 2), std::pair(std::int64_t{10}, 1)}) {
        if (units % divisor == 0) {
            units /= divisor;
            exponent += zeros;
        }
    }
    return ObservationDecimal{units, exponent};
}

/// Takes "-d.ddde-xx", the shortest text that std::to_chars has for a double, apart, and closes the
/// gap of its point.
ObservationDecimal takeApart(char* text, const char* end)
{
    ObservationDecimal decimal;
    char* const mark = std::find(text, text + (end - text), 'e');
    char* const point = std::find(text, mark, '.');
    const char* const digitsEnd = point == mark ? mark : std::copy(point + 1, mark, point);
    std::from_chars(text, digitsEnd, decimal.coefficient);
    std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, decimal.exponent);
    decimal.exponent -= static_cast<int>(digitsEnd - point);
    return decimal;
}

// A sum of decimals is kept in limbs of nine digits, each with a sign of its own, from the lowest
// decimal of a double to beyond the highest one.
constexpr int limbDigits = 9;
constexpr std::int64_t limbBase = 1'000'000'000;
constexpr int lowestExponent = -324;

/// A decimal as limbs, `first` and the next two. With at most 17 digits before it is shifted to the
/// limbs it has at most 25, so a limb is below 2 limbBase.
struct Limbs {
    static constexpr std::size_t count = 3;

    std::size_t first = 0;
    std::array<std::int64_t, count> digits{};
};

constexpr int highestExponent = 308;
constexpr std::size_t limbsOfSum = (highestExponent - lowestExponent) / limbDigits + Limbs::count;
constexpr std::size_t limbsOfSquares = 2 * limbsOfSum - 1;

Limbs limbsOf(const ObservationDecimal& decimal)
{
    static constexpr std::array<std::int64_t, limbDigits> powers{
        1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};
    const int shifted = decimal.exponent - lowestExponent;
    const std::int64_t power = powers[static_cast<std::size_t>(shifted % limbDigits)];
    const std::int64_t low = decimal.coefficient % limbBase * power;
    const std::int64_t high = decimal.coefficient / limbBase * power;
    return {static_cast<std::size_t>(shifted / limbDigits),
            {low % limbBase, low / limbBase + high % limbBase, high / limbBase}};
}

/// A limb of a sum: 2^32 cells, which no matrix has, do not fill it.
using SumLimbs = std::array<std::int64_t, limbsOfSum>;

void add(SumLimbs& sum, const Limbs& limbs)
{
    for (std::size_t k = 0; k < Limbs::count; ++k)
        sum[limbs.first + k] += limbs.digits[k];
}

using SquareLimbs = std::array<WideInteger, limbsOfSquares>;

void addSquare(SquareLimbs& sum, const Limbs& limbs)
{
    for (std::size_t k = 0; k < Limbs::count; ++k) {
        for (std::size_t j = 0; j < Limbs::count; ++j)
            sum[2 * limbs.first + k + j] += WideInteger{limbs.digits[k]} * limbs.digits[j];
    }
}

/// The sums of as many columns, and of the treatments that a row has there, stay in the processor's
/// cache while all rows pass.
constexpr int columnsAtATime = 250;

/// The whole number of limbs from `first` on, in units of the first.
template <typename SomeLimbs>
WholeNumber valueOf(const SomeLimbs& limbs, std::size_t first)
{
    WholeNumber value = 0;
    for (std::size_t limb = limbs.size(); limb-- > first;) {
        if (value != 0 || limbs[limb] != 0)
            value = value * limbBase + limbs[limb];
    }
    return value;
}

std::vector<WholeNumber> valuesOf(const std::vector<SumLimbs>& sums, std::size_t first)
{
    std::vector<WholeNumber> values;
    values.reserve(sums.size());
    for (const SumLimbs& sum : sums)
        values.push_back(valueOf(sum, first));
    return values;
}

} // namespace

std::optional<ObservationDecimal> observationDecimal(double observation)
{
    if (!std::isfinite(observation))
        return std::nullopt;
    if (const auto decimal = shortDecimal(observation))
        return decimal;
    std::array<char, 32> buffer{}; // "-1.2345678901234567e-308" has 24 characters
    const auto* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), observation,
                                          std::chars_format::scientific)
                                .ptr;
    return takeApart(buffer.data(), end);
}

std::optional<DecimalSums> decimalSums(const TMatrix& observations, int n)
{
    if (n < 1)
        return std::nullopt;
    const auto lines = static_cast<std::size_t>(n);
    std::vector<SumLimbs> rows(lines);
    std::vector<SumLimbs> columns(lines);
    std::vector<SumLimbs> treatments(lines);
    SquareLimbs squares{};
    std::size_t lowest = limbsOfSum;
    bool allFinite = true;
    const auto addCell = [&](int column, int row, int treatment) {
        const std::optional<ObservationDecimal> decimal =
            observationDecimal(observations.Elem(column, row));
        allFinite = allFinite && decimal;
        if (!decimal || decimal->coefficient == 0)
            return;
        const Limbs limbs = limbsOf(*decimal);
        lowest = std::min(lowest, limbs.first);
        add(rows[static_cast<std::size_t>(row - 1)], limbs);
        add(columns[static_cast<std::size_t>(column - 1)], limbs);
        add(treatments[static_cast<std::size_t>(treatment - 1)], limbs);
        addSquare(squares, limbs);
    };
    for (int before = 0; before < n; before += columnsAtATime) {
        const int last = std::min(n - before, columnsAtATime) + before;
        for (int row = 1; row <= n; ++row) {
            for (int column = before + 1; column <= last; ++column)
                addCell(column, row, treatmentOf(column, row, n));
        }
    }
    if (!allFinite)
        return std::nullopt;

    DecimalSums sums;
    sums.exponent = lowestExponent + limbDigits * static_cast<int>(lowest);
    sums.rows = valuesOf(rows, lowest);
    sums.columns = valuesOf(columns, lowest);
    sums.treatments = valuesOf(treatments, lowest);
    for (const WholeNumber& row : sums.rows)
        sums.all += row;
    sums.squares = valueOf(squares, 2 * lowest);
    return sums;
}

} // namespace stats
