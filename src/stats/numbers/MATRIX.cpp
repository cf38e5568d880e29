// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/MATRIX.h"

#include <algorithm>
#include <new>
#include <utility>

namespace stats {

TMatrix TMatrix::Create(int columns, int rows)
{
    if (columns < 1 || rows < 1)
        throw EMatrixError("array dimensions zero or negative");
    try {
        return {columns, rows};
    } catch (const std::bad_alloc&) {
        throw EMatrixError("not enough memory on heap");
    } catch (const std::length_error&) {
        throw EMatrixError("not enough memory on heap");
    }
}

TMatrix::TMatrix(int columns, int rows)
    : m_columns(columns)
    , m_rows(rows)
    , m_elements(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), 0.0)
{
}

TMatrix::TMatrix(TMatrix&& other) noexcept
{
    *this = std::move(other);
}

TMatrix& TMatrix::operator=(TMatrix&& other) noexcept
{
    OnChange = std::move(other.OnChange);
    Precision = other.Precision;
    Setting = other.Setting;
    m_columns = std::exchange(other.m_columns, 0);
    m_rows = std::exchange(other.m_rows, 0);
    m_elements = std::move(other.m_elements);
    return *this;
}

void TMatrix::Elem(int column, int row, double value)
{
    if (!contains(column, row))
        return;
    m_elements[position(column, row)] = value;
    notify();
}

void TMatrix::Fill(double value)
{
    std::fill(m_elements.begin(), m_elements.end(), value);
    notify();
}

double TMatrix::SumOfRegion(int firstColumn, int firstRow, int lastColumn, int lastRow) const
{
    if (m_elements.empty())
        return 0.0;
    const auto [left, right] =
        std::minmax({std::clamp(firstColumn, 1, m_columns), std::clamp(lastColumn, 1, m_columns)});
    const auto [top, bottom] =
        std::minmax({std::clamp(firstRow, 1, m_rows), std::clamp(lastRow, 1, m_rows)});
    double sum = 0.0;
    for (int column = left; column <= right; ++column) {
        for (int row = top; row <= bottom; ++row)
            sum += m_elements[position(column, row)];
    }
    return sum;
}

void TMatrix::notify()
{
    if (OnChange)
        OnChange(*this);
}

} // namespace stats
