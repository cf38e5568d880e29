// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/MATRIX.h"

#include <memory_resource>
#include <span>
#include <vector>

/// The observations of a square in ascending order, each with its treatment.
namespace stats {

struct ObservationPair {
    double value = 0.0;
    int label = 0; ///< Treatment, 1 to n.
};

/// Sorts by value, ascending; equal values keep their order. Where a value is not a number the
/// order is some order.
void sortByValue(std::span<ObservationPair> pairs);

/// The n x n observations, sorted. Equal observations stay in the order of their cells: columns
/// from left to right, and each column downwards.
std::pmr::vector<ObservationPair> sortedPairs(const TMatrix& observations, int n,
                                              std::pmr::memory_resource* memory);

} // namespace stats
