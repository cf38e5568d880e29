// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationPairs.h"

#include "stats/numbers/Treatments.h"

#include <algorithm>

namespace stats {

void sortByValue(std::span<ObservationPair> pairs)
{
    std::stable_sort(
        pairs.begin(), pairs.end(),
        [](const ObservationPair& a, const ObservationPair& b) { return a.value < b.value; });
}

std::vector<ObservationPair> sortedPairs(const TMatrix& observations, int n)
{
    std::vector<ObservationPair> pairs;
    if (n > 0)
        pairs.reserve(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    // Columns outside: the layout is the same read either way.
    visitCells(n, [&](int row, int column, int treatment) {
        pairs.push_back({observations.Elem(column, row), treatment});
    });
    sortByValue(pairs);
    return pairs;
}

} // namespace stats
