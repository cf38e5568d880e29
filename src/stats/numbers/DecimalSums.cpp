// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/DecimalSums.h"

#include "stats/numbers/CyclicLayout.h"
#include "stats/numbers/TypedDecimal.h"
#include "stats/numbers/WholeNumbers.h"

#include <algorithm>
#include <limits>

namespace stats {

namespace {

/// The decimal places among which all observations of a square lie.
struct DecimalRange {
    int lowest = std::numeric_limits<int>::max();  ///< exponent of the last digit of any
    int highest = std::numeric_limits<int>::min(); ///< every |observation| is below 10^highest
};

int digitsOf(std::int64_t coefficient)
{
    int digits = 0;
    for (; coefficient != 0; coefficient /= 10)
        ++digits;
    return digits;
}

std::optional<DecimalRange> rangeOf(const TMatrix& observations, int n)
{
    DecimalRange range;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const auto decimal = typedDecimal(observations.Elem(column, row));
            if (!decimal)
                return std::nullopt;
            if (decimal->coefficient == 0)
                continue;
            range.lowest = std::min(range.lowest, decimal->exponent);
            range.highest =
                std::max(range.highest, decimal->exponent + digitsOf(decimal->coefficient));
        }
    }
    return range.lowest <= range.highest ? range : DecimalRange{0, 0};
}

/// The powers of ten from 1 to 10^largest.
template <typename Integer>
std::vector<Integer> powersOfTen(int largest)
{
    std::vector<Integer> powers{1};
    for (int k = 1; k <= largest; ++k)
        powers.push_back(powers.back() * 10);
    return powers;
}

std::vector<WholeNumber> widened(const std::vector<WideInteger>& sums)
{
    return {sums.begin(), sums.end()};
}

const std::vector<WholeNumber>& widened(const std::vector<WholeNumber>& sums)
{
    return sums;
}

/// Adds up in `Integer`, which must hold the sum of the squares.
template <typename Integer>
DecimalSums sumsIn(const TMatrix& observations, int n, const DecimalRange& range)
{
    const std::vector<Integer> powers = powersOfTen<Integer>(range.highest - range.lowest);
    std::vector<Integer> rows(static_cast<std::size_t>(n));
    std::vector<Integer> columns(rows);
    std::vector<Integer> treatments(rows);
    Integer all = 0;
    Integer squares = 0;
    const auto of = [](auto& sums, int number) -> Integer& {
        return sums[static_cast<std::size_t>(number - 1)];
    };
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const TypedDecimal decimal = *typedDecimal(observations.Elem(column, row));
            if (decimal.coefficient == 0)
                continue;
            const Integer units =
                powers[static_cast<std::size_t>(decimal.exponent - range.lowest)] *
                decimal.coefficient;
            of(rows, row) += units;
            of(columns, column) += units;
            of(treatments, treatmentOf(column, row, n)) += units;
            all += units;
            squares += units * units;
        }
    }
    return {range.lowest,        widened(rows),    widened(columns),
            widened(treatments), WholeNumber(all), WholeNumber(squares)};
}

} // namespace

std::optional<DecimalSums> decimalSums(const TMatrix& observations, int n)
{
    const auto range = n >= 1 ? rangeOf(observations, n) : std::nullopt;
    if (!range)
        return std::nullopt;
    // n^2 squares below 10^(2 x width) each.
    constexpr int wideDigits = 38; // 10^38 is below 2^127
    const int width = range->highest - range->lowest;
    const bool fits = digitsOf(std::int64_t{n} * n) + 2 * width <= wideDigits;
    return fits ? sumsIn<WideInteger>(observations, n, *range)
                : sumsIn<WholeNumber>(observations, n, *range);
}

} // namespace stats
