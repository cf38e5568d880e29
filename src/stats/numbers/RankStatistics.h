// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <cstdint>

/// The statistics of the rank tests: Zimmerman's, of ranks within rows plus ranks within columns,
/// and Bennett's, of the ranks of all observations together.
///
/// Matrices are addressed (column, row) from 1 and hold n x n cells in the cyclic layout of
/// treatments. The rank of a value within its row, its column or the square is the number of values
/// there that are at most as large, itself included: ranks start at 1, and tied values all get the
/// highest rank of their group (5, 7, 5 have the ranks 2, 3, 2).
namespace stats {

/// Adds to every cell of `ranks` the rank of the observation within its row: a step of Z.
void AddRowRanks(const TMatrix& observations, TMatrix& ranks, int n);

/// Adds to every cell of `ranks` the rank of the observation within its column: the other step.
void AddColumnRanks(const TMatrix& observations, TMatrix& ranks, int n);

/// The mean of the n cells of a treatment (1 to n). Only tests and users outside the program call
/// it.
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

/// The rank of a cell's observation in the square, 1 to N = n^2. Every call is a pass over the
/// square; only tests and users outside the program call it.
std::int64_t OverallRank(const TMatrix& observations, int column, int row, int n);

/// The sum of the overall ranks of the cells of a treatment (1 to n). Only tests and users outside
/// the program call it.
std::int64_t TreatmentRankSum(const TMatrix& observations, int treatment, int n);

/// B = (S / n) 12 / (N (N + 1)) - 3 (N + 1), S being the sum of the squared rank sums; 0 and more.
/// The form is that of W. H. Kruskal and W. A. Wallis, Use of ranks in one-criterion variance
/// analysis, J. Amer. Statist. Assoc. 47 (1952), with n groups of n: rows and columns are not taken
/// out.
///
/// The ranks are the overall ones, taken from one sorting of the square. With ties, which raise
/// ranks, B exceeds the usual statistic: equal observations give its largest value.
double BennettStatistic(const TMatrix& observations, int n);

} // namespace stats
