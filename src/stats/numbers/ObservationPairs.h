// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Observations in ascending order, each with its treatment or its place, and their ranks.
namespace stats {

struct ObservationPair {
    double value = 0.0;
    int label = 0; ///< Treatment, 1 to n; within one row or column the position there, from 1.
};

/// Sorts by value, ascending; equal values keep their order. Where a value is not a number the
/// order is some order.
void sortByValue(std::span<ObservationPair> pairs);

/// Calls visit(label, rank) for each of some sorted pairs, in their order. The rank is the number
/// of pairs that are at most as large: for equal values the highest of their group.
template <typename Visit>
void visitRanks(std::span<const ObservationPair> sorted, const Visit& visit)
{
    for (std::size_t first = 0; first < sorted.size();) {
        std::size_t end = first + 1;
        while (end < sorted.size() && sorted[end].value == sorted[first].value)
            ++end;
        for (; first < end; ++first)
            visit(sorted[first].label, static_cast<std::int64_t>(end));
    }
}

/// The n x n observations, sorted. Equal observations stay in the order of their cells: columns
/// from left to right, and each column downwards.
std::vector<ObservationPair> sortedPairs(const TMatrix& observations, int n);

} // namespace stats
