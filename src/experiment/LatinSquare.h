// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "experiment/Experiment.h"

#include <QStringList>

#include <cstddef>
#include <vector>

namespace experiment {

/// A Latin square of order n with its labels: every treatment once in every row and column.
///
/// Columns, rows and treatments count from 0 here, where their arithmetic is modulo n.
struct LatinSquare {
    QStringList columns;
    QStringList rows;
    QStringList treatments;
    std::vector<int> layout;    ///< The index of each cell's treatment, at its place().
    std::vector<double> values; ///< At their place().

    int order() const { return static_cast<int>(rows.size()); }
    /// Row by row.
    std::size_t place(int column, int row) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(order()) +
               static_cast<std::size_t>(column);
    }
};

/// The observations as a Latin square of order 2 or more, labels in the order of their first
/// appearance; or which row, column or treatment keeps them from being one.
base::Outcome<LatinSquare> latinSquareOf(const Experiment& experiment);

} // namespace experiment
