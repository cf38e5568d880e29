// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ObservationPairs.h"

#include "stats/numbers/CyclicLayout.h"

#include <algorithm>

namespace stats {

namespace {

void insertionSort(std::span<ObservationPair> pairs)
{
    for (std::size_t sorted = 1; sorted < pairs.size(); ++sorted) {
        const ObservationPair moved = pairs[sorted];
        std::size_t place = sorted;
        for (; place > 0 && pairs[place - 1].value > moved.value; --place)
            pairs[place] = pairs[place - 1];
        pairs[place] = moved;
    }
}

} // namespace

void sortByValue(std::span<ObservationPair> pairs)
{
    // Up to order 8 insertion is quicker than std::stable_sort, which also asks for memory each
    // time.
    constexpr std::size_t mostInserted = 64;
    if (pairs.size() <= mostInserted) {
        insertionSort(pairs);
        return;
    }
    std::stable_sort(
        pairs.begin(), pairs.end(),
        [](const ObservationPair& a, const ObservationPair& b) { return a.value < b.value; });
}

std::pmr::vector<ObservationPair> sortedPairs(const TMatrix& observations, int n,
                                              std::pmr::memory_resource* memory)
{
    std::pmr::vector<ObservationPair> pairs(memory);
    if (n > 0)
        pairs.reserve(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    for (int column = 1; column <= n; ++column) {
        for (int row = 1; row <= n; ++row)
            pairs.push_back({observations.Elem(column, row), treatmentOf(column, row, n)});
    }
    sortByValue(pairs);
    return pairs;
}

} // namespace stats
