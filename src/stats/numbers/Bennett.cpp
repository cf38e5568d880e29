// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Bennett.h"

#include "stats/numbers/CyclicLayout.h"
#include "stats/numbers/ObservationPairs.h"
#include "stats/numbers/WholeNumbers.h"
#include "stats/numbers/WorkingMemory.h"

namespace stats {

std::int64_t OverallRank(const TMatrix& observations, int column, int row, int n)
{
    const double value = observations.Elem(column, row);
    std::int64_t rank = 0;
    for (int otherRow = 1; otherRow <= n; ++otherRow) {
        for (int otherColumn = 1; otherColumn <= n; ++otherColumn)
            rank += observations.Elem(otherColumn, otherRow) <= value ? 1 : 0;
    }
    return rank;
}

std::int64_t TreatmentRankSum(const TMatrix& observations, int treatment, int n)
{
    std::int64_t sum = 0;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            if (treatmentOf(column, row, n) == treatment)
                sum += OverallRank(observations, column, row, n);
        }
    }
    return sum;
}

double BennettStatistic(const TMatrix& observations, int n)
{
    WorkingMemory memory;
    std::pmr::vector<std::int64_t> rankSums(static_cast<std::size_t>(n), memory.resource());
    visitRanks(sortedPairs(observations, n, memory.resource()),
               [&](int treatment, std::int64_t rank) {
                   rankSums[static_cast<std::size_t>(treatment - 1)] += rank;
               });

    WideInteger sumOfSquares = 0;
    for (const std::int64_t rankSum : rankSums)
        sumOfSquares += squaredInteger(rankSum);
    const WideInteger cells = squaredInteger(n);
    return ratio(12 * sumOfSquares - 3 * n * cells * squaredInteger(cells + 1),
                 n * cells * (cells + 1));
}

} // namespace stats
