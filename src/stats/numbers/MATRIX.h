// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <vector>

namespace stats {

/// What a matrix raises when it cannot be made; what() is the message.
class EMatrixError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A dense matrix of doubles addressed (column, row), both counted from 1.
///
/// Reading outside the matrix gives 0.0 and writing there is ignored: neither is an error. The
/// elements lie in one block, the column index running fastest.
class TMatrix {
public:
    /// A matrix of zeros.
    /// @throws EMatrixError "array dimensions zero or negative" for a count below 1, "not enough
    ///         memory on heap" when the block cannot be had.
    static TMatrix Create(int columns, int rows);

    TMatrix(const TMatrix&) = default;
    TMatrix& operator=(const TMatrix&) = default;
    /// The matrix moved from is left without elements.
    TMatrix(TMatrix&& other) noexcept;
    TMatrix& operator=(TMatrix&& other) noexcept;
    ~TMatrix() = default;

    /// 0 once the matrix was moved from.
    int NrOfColumns() const { return m_columns; }
    int NrOfRows() const { return m_rows; }

    /// The element, or 0.0 outside the matrix.
    double Elem(int column, int row) const
    {
        return contains(column, row) ? m_elements[position(column, row)] : 0.0;
    }

    /// Stores an element and notifies; outside the matrix nothing happens.
    void Elem(int column, int row, double value);

    /// Stores one value in every element and notifies once. Only tests and users outside the
    /// program call it.
    void Fill(double value);

    /// The sum over a rectangle given by two opposite corners, in any order and clamped into the
    /// matrix. 0.0 for a matrix without elements. Only tests and users outside the program call it.
    double SumOfRegion(int firstColumn, int firstRow, int lastColumn, int lastRow) const;

    /// Called with the matrix after every successful write, when one is installed; the program
    /// itself installs none.
    std::function<void(TMatrix&)> OnChange;

    /// Settings that travel with the matrix for its other users; nothing here reads them.
    int Precision = 15;
    int Setting = -1;

private:
    TMatrix(int columns, int rows);

    bool contains(int column, int row) const
    {
        return column >= 1 && column <= m_columns && row >= 1 && row <= m_rows;
    }
    std::size_t position(int column, int row) const
    {
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(column - 1);
    }
    void notify();

    int m_columns = 0;
    int m_rows = 0;
    std::vector<double> m_elements;
};

} // namespace stats
