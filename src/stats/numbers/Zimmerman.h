// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

/// Zimmerman's rank test of a Latin square: ranks within rows plus ranks within columns.
///
/// Matrices are addressed (column, row) from 1 and hold n x n cells in the cyclic layout of
/// treatments. The rank of a value within its row or column is the number of values there that are
/// at most as large, itself included: ranks run from 1 to n, and tied values all get the highest
/// rank of their group (5, 7, 5 have the ranks 2, 3, 2).
namespace stats {

/// Adds to every cell of `ranks` the rank of the observation within its row.
void AddRowRanks(const TMatrix& observations, TMatrix& ranks, int n);

/// Adds to every cell of `ranks` the rank of the observation within its column.
void AddColumnRanks(const TMatrix& observations, TMatrix& ranks, int n);

/// The mean of the n cells of a treatment (1 to n).
double TreatmentMean(const TMatrix& matrix, int treatment, int n);

/// The statistic as it is reported. Both are not a number when all cells have the same rank sum (a
/// square of equal observations), and for n = 1.
struct ZimmermanResult {
    double t = 0.0; ///< Share of the rank sums' spread between treatment means: 0 <= T <= 1 / n.
    double z = 0.0; ///< (n - 1) n T / ((n + 1) (1 - T)), so 0 <= Z <= n / (n + 1).
};

ZimmermanResult zimmermanResult(const TMatrix& observations, int n);

/// Z alone.
double ZimmermanStatistic(const TMatrix& observations, int n);

} // namespace stats
