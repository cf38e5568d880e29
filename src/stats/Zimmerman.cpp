// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/Zimmerman.h"

#include "stats/CyclicLayout.h"
#include "stats/TreatmentSpread.h"
#include "stats/WorkingMemory.h"

#include <algorithm>
#include <vector>

namespace stats {

namespace {

/// The number of i in 1..n with valueAt(i) <= value.
template <typename ValueAt>
int rankOf(double value, int n, const ValueAt& valueAt)
{
    int rank = 0;
    for (int i = 1; i <= n; ++i)
        rank += valueAt(i) <= value ? 1 : 0;
    return rank;
}

/// The spread of the rank sums, which are whole numbers.
TreatmentSpread rankSpread(const TMatrix& ranks, int n)
{
    WorkingMemory memory;
    std::pmr::vector<std::int64_t> sums(static_cast<std::size_t>(n), memory.resource());
    WideInteger sumOfSquares = 0;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const auto rank = static_cast<std::int64_t>(ranks.Elem(column, row));
            sums[static_cast<std::size_t>(treatmentOf(column, row, n) - 1)] += rank;
            sumOfSquares += rank * rank;
        }
    }
    return treatmentSpread(sums, sumOfSquares, n);
}

} // namespace

void AddRowRanks(const TMatrix& observations, TMatrix& ranks, int n)
{
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const int rank = rankOf(observations.Elem(column, row), n,
                                    [&](int other) { return observations.Elem(other, row); });
            ranks.Elem(column, row, ranks.Elem(column, row) + rank);
        }
    }
}

void AddColumnRanks(const TMatrix& observations, TMatrix& ranks, int n)
{
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const int rank = rankOf(observations.Elem(column, row), n,
                                    [&](int other) { return observations.Elem(column, other); });
            ranks.Elem(column, row, ranks.Elem(column, row) + rank);
        }
    }
}

double TreatmentMean(const TMatrix& matrix, int treatment, int n)
{
    double sum = 0.0;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            if (treatmentOf(column, row, n) == treatment)
                sum += matrix.Elem(column, row);
        }
    }
    return sum / n;
}

ZimmermanResult zimmermanResult(const TMatrix& observations, int n)
{
    TMatrix ranks = TMatrix::Create(n, n);
    AddRowRanks(observations, ranks, n);
    AddColumnRanks(observations, ranks, n);
    const TreatmentSpread spread = rankSpread(ranks, n);
    const WideInteger order = n;
    return {
        ratio(spread.between, spread.total),
        ratio((order - 1) * order * spread.between, (order + 1) * (spread.total - spread.between))};
}

double ZimmermanStatistic(const TMatrix& observations, int n)
{
    return zimmermanResult(observations, n).z;
}

} // namespace stats
