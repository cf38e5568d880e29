// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <charconv>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

/// Squares as they are typed: each observation is a whole number of decimal units, and its double
/// is what reading its text gives.
struct TypedSquare {
    int n = 0;
    int decimals = 0;
    std::vector<std::int64_t> units; ///< row by row: observation x 10^decimals
    stats::TMatrix doubles = stats::TMatrix::Create(1, 1);
};

/// "-12.05" for -1205 units of two decimals.
inline std::string typedText(std::int64_t units, int decimals)
{
    std::string digits = std::to_string(units < 0 ? -units : units);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places)
        digits.insert(0, places + 1 - digits.size(), '0');
    if (places > 0)
        digits.insert(digits.size() - places, 1, '.');
    return (units < 0 ? "-" : "") + digits;
}

inline double typedNumber(const std::string& text)
{
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        throw std::invalid_argument(text + " is no number");
    return value;
}

inline TypedSquare typedSquare(int n, int decimals, const std::vector<std::int64_t>& units)
{
    TypedSquare square{n, decimals, units, stats::TMatrix::Create(n, n)};
    auto unit = units.begin();
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column)
            square.doubles.Elem(column, row, typedNumber(typedText(*unit++, decimals)));
    }
    return square;
}

/// A square of `constant` and a random number of 0 to range - 1 units in each cell.
inline TypedSquare randomTypedSquare(int n, int decimals, std::int64_t constant, std::int64_t range,
                                     std::mt19937_64& generator)
{
    std::vector<std::int64_t> units(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    for (std::int64_t& unit : units)
        unit = constant + static_cast<std::int64_t>(generator() % static_cast<unsigned>(range));
    return typedSquare(n, decimals, units);
}

/// The textbook's analysis of variance in exact arithmetic.
struct ExactAnova {
    using Fraction = boost::multiprecision::cpp_rational;

    explicit ExactAnova(const TypedSquare& square)
    {
        using boost::multiprecision::cpp_int;
        const int n = square.n;
        const auto order = static_cast<std::size_t>(n);
        std::vector<cpp_int> rowTotals(order);
        std::vector<cpp_int> columnTotals(order);
        std::vector<cpp_int> treatmentTotals(order);
        cpp_int all = 0;
        cpp_int squares = 0;
        for (std::size_t row = 0; row < order; ++row) {
            for (std::size_t column = 0; column < order; ++column) {
                const cpp_int x = square.units.at(row * order + column);
                rowTotals[row] += x;
                columnTotals[column] += x;
                treatmentTotals[(row + column) % order] += x;
                all += x;
                squares += x * x;
            }
        }
        Fraction unit = 1;
        for (int k = 0; k < square.decimals; ++k)
            unit /= 100;
        const Fraction correction(all * all, n * n);
        const auto between = [&](const std::vector<cpp_int>& totals) {
            cpp_int sum = 0;
            for (const cpp_int& groupTotal : totals)
                sum += groupTotal * groupTotal;
            return Fraction((Fraction(sum, n) - correction) * unit);
        };
        rows = between(rowTotals);
        columns = between(columnTotals);
        treatments = between(treatmentTotals);
        total = (squares - correction) * unit;
        error = total - rows - columns - treatments;
    }

    Fraction rows;
    Fraction columns;
    Fraction treatments;
    Fraction error;
    Fraction total;
};
