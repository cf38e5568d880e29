// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/RankStatistics.h"

#include "stats/numbers/ObservationPairs.h"
#include "stats/numbers/Treatments.h"

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
    std::vector<ObservationPair> pairs;
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
    visitCells(n, [&](int column, int row, int treatmentOfCell) {
        if (treatmentOfCell == treatment)
            sum += matrix.Elem(column, row);
    });
    return sum / n;
}

ZimmermanResult zimmermanResult(const TMatrix& observations, int n)
{
    TMatrix ranks = TMatrix::Create(n, n);
    AddRowRanks(observations, ranks, n);
    AddColumnRanks(observations, ranks, n);
    TreatmentSums rankSums(n);
    visitCells(n, [&](int column, int row, int treatment) {
        rankSums.add(treatment, static_cast<std::int64_t>(ranks.Elem(column, row)));
    });
    const Moments<WideInteger> moments = rankSums.moments();
    return {formulaOfT<WideInteger>(moments, n), formulaOfZ<WideInteger>(moments, n)};
}

double ZimmermanStatistic(const TMatrix& observations, int n)
{
    return zimmermanResult(observations, n).z;
}

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
    return formulaOfB<WideInteger>(rankSums.moments(), n);
}

} // namespace stats
