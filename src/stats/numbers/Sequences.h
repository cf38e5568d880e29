// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"
#include "stats/numbers/ObservationPairs.h"

#include <span>

/// The statistics of the sequence tests: the observations of a square in ascending order make a
/// sequence of treatment labels, which is cut into runs of equal labels; every position has the
/// number of its run, from 1, as its run index.
///
/// With n the order of the square, r the run indices, R the number of runs, S_t the sum of the run
/// indices of treatment t, S and Q the sums of all run indices and of their squares.
namespace stats {

/// C: how unevenly the run indices fall to the treatments.
///
/// The sum over t of (S_t / n - (R + 1) / 2)^2, divided by R (R + 1); evaluated in integers as
/// sum of (2 S_t - n (R + 1))^2 / (4 n^2 R (R + 1)). Tied observations keep the order of their
/// cells, columns outside, rows inside.
double SequenceC(const TMatrix& observations, int n);

/// C of n^2 pairs that are already in ascending order of value; labels are 1 to n. The values are
/// not looked at.
double SequenceCFromLabels(std::span<const ObservationPair> pairs, int n);

/// M: the spread of the run indices between the treatments over that within them.
///
/// n q / (1 - q) with q = (sum of the squares of the treatment means' deviations) / (total sum of
/// squares), the means not weighted by n; evaluated in integers as n a / (b - a) with
/// a = sum over t of (n S_t - S)^2 and b = n^2 (n^2 Q - S^2). 0 <= M <= n / (n - 1); the largest
/// value when each treatment is one run. Not a number for n = 1. Ties as for C.
double SequenceM(const TMatrix& observations, int n);

/// M of n^2 pairs, as SequenceCFromLabels().
double SequenceMFromLabels(std::span<const ObservationPair> pairs, int n);

} // namespace stats
