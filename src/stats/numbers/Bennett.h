// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <cstdint>

/// Bennett's rank test of a Latin square: all N = n^2 observations ranked together, in the form of
/// W. H. Kruskal and W. A. Wallis, Use of ranks in one-criterion variance analysis, J. Amer.
/// Statist. Assoc. 47 (1952), with n groups of n. Rows and columns are not taken out.
///
/// Observations are addressed (column, row) from 1, in the cyclic layout of treatments.
namespace stats {

/// The number of observations of the square that are at most as large as that of the cell, itself
/// included: 1 to N, the highest rank of the group for tied values. Every call is a pass over the
/// square.
std::int64_t OverallRank(const TMatrix& observations, int column, int row, int n);

/// The sum of the overall ranks of the cells of a treatment (1 to n).
std::int64_t TreatmentRankSum(const TMatrix& observations, int treatment, int n);

/// B = (S / n) 12 / (N (N + 1)) - 3 (N + 1), S being the sum of the squared rank sums; 0 and more.
///
/// The ranks are the overall ones, taken from one sorting of the square. With ties, which raise
/// ranks, B exceeds the usual statistic: equal observations give its largest value.
double BennettStatistic(const TMatrix& observations, int n);

} // namespace stats
