// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Bennett.h"

#include "stats/numbers/ObservationPairs.h"
#include "stats/numbers/Treatments.h"

namespace stats {

std::int64_t OverallRank(const TMatrix& observations, int column, int row, int n)
{
    const double value = observations.Elem(column, row);
    std::int64_t rank = 0;
    visitCells(n, [&](int otherColumn, int otherRow, int) {
        rank += observations.Elem(otherColumn, otherRow) <= value ? 1 : 0;
    });
    return rank;
}

std::int64_t TreatmentRankSum(const TMatrix& observations, int treatment, int n)
{
    std::int64_t sum = 0;
    visitCells(n, [&](int column, int row, int treatmentOfCell) {
        if (treatmentOfCell == treatment)
            sum += OverallRank(observations, column, row, n);
    });
    return sum;
}

double BennettStatistic(const TMatrix& observations, int n)
{
    TreatmentSums rankSums(n);
    visitRanks(sortedPairs(observations, n),
               [&](int treatment, std::int64_t rank) { rankSums.add(treatment, rank); });
    const WideInteger cells = squaredInteger(n);
    return ratio(12 * rankSums.squaredDeviations(1, 0) - 3 * n * cells * squaredInteger(cells + 1),
                 n * cells * (cells + 1));
}

} // namespace stats
