// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "experiment/Experiment.h"

#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace experiment {

/// A Latin square of order n with its labels: every treatment once in every row and column.
struct LatinSquare {
    QStringList rows;
    QStringList columns;
    QStringList treatments;
    std::vector<int> layout;    ///< Row by row, the index of each cell's treatment, from 0.
    std::vector<double> values; ///< Row by row.

    int order() const { return static_cast<int>(rows.size()); }
    /// The place of a cell in `layout` and `values`; row and column from 0.
    std::size_t place(int row, int column) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(order()) +
               static_cast<std::size_t>(column);
    }
};

/// The observations as a Latin square of order 2 or more, labels in the order of their first
/// appearance; or which row, column or treatment keeps them from being one.
base::Outcome<LatinSquare> latinSquareOf(const Experiment& experiment);

/// The square with its rows, columns and treatments rearranged so that the treatment in row r and
/// column c, all counted from 0, is (r + c) mod n; nothing where no rearrangement does it.
///
/// Of the rearrangements there are the one that leaves most rows, and then most columns, where they
/// were. Takes O(n^2 + n phi(n)) steps.
std::optional<LatinSquare> cyclicArrangement(const LatinSquare& square);

} // namespace experiment
