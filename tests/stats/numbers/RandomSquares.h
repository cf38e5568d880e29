// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"
#include "support/Sanitizers.h"

#include <random>

/// Squares of each order on which a property is tested.
constexpr int propertySquares = isSanitized ? 5000 : 100000;

/// Random squares for property tests, from no ties at all to hardly two different values.
class RandomSquares {
public:
    explicit RandomSquares(int n)
        : m_n(n)
        , m_generator(static_cast<unsigned>(1000 + n))
    {
    }

    /// Whole numbers below a bound that goes through 2, 4, ..., 2^12 from square to square.
    stats::TMatrix next()
    {
        m_bits = m_bits % 12 + 1;
        stats::TMatrix square = stats::TMatrix::Create(m_n, m_n);
        for (int row = 1; row <= m_n; ++row) {
            for (int column = 1; column <= m_n; ++column)
                square.Elem(column, row, static_cast<double>(m_generator() >> (32 - m_bits)));
        }
        return square;
    }

private:
    int m_n;
    int m_bits = 0;
    std::mt19937 m_generator;
};

/// `square` with every observation x replaced by map(x).
template <typename Map>
stats::TMatrix mapped(const stats::TMatrix& square, Map map)
{
    stats::TMatrix result = square;
    for (int row = 1; row <= square.NrOfRows(); ++row) {
        for (int column = 1; column <= square.NrOfColumns(); ++column)
            result.Elem(column, row, map(square.Elem(column, row)));
    }
    return result;
}
