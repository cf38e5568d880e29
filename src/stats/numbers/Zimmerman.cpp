// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Zimmerman.h"

#include "stats/numbers/CyclicLayout.h"
#include "stats/numbers/ObservationPairs.h"
#include "stats/numbers/TreatmentSpread.h"
#include "stats/numbers/WorkingMemory.h"

#include <algorithm>
#include <vector>

namespace stats {

namespace {

struct Cell {
    int column = 0;
    int row = 0;
};

/// Adds to every cell the rank of its observation within its line. cellOf(line, place), both from 1
/// to n, is a cell of the square: its lines are the rows or the columns.
template <typename CellOf>
void addRanks(const TMatrix& observations, TMatrix& ranks, int n, const CellOf& cellOf)
{
    WorkingMemory memory;
    std::pmr::vector<ObservationPair> pairs(memory.resource());
    pairs.reserve(static_cast<std::size_t>(std::max(n, 0)));
    for (int line = 1; line <= n; ++line) {
        pairs.clear();
        for (int place = 1; place <= n; ++place) {
            const Cell cell = cellOf(line, place);
            pairs.push_back({observations.Elem(cell.column, cell.row), place});
        }
        sortByValue(pairs);
        visitRanks(pairs, [&](int place, std::int64_t rank) {
            const auto [column, row] = cellOf(line, place);
            ranks.Elem(column, row, ranks.Elem(column, row) + static_cast<double>(rank));
        });
    }
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
    addRanks(observations, ranks, n, [](int row, int column) { return Cell{column, row}; });
}

void AddColumnRanks(const TMatrix& observations, TMatrix& ranks, int n)
{
    addRanks(observations, ranks, n, [](int column, int row) { return Cell{column, row}; });
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
