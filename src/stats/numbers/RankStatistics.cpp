// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/RankStatistics.h"

#include "stats/numbers/ObservationPairs.h"
#include "stats/numbers/Treatments.h"

#include <algorithm>
#include <array>
#include <vector>

namespace stats {

namespace {

struct Cell {
    int column = 0;
    int row = 0;
};

/// As many columns as the processor fetches cells of at a time: reading a large matrix column by
/// column would fetch each cell with its neighbours and use none of these.
constexpr int linesAtATime = 8;

/// Adds to every cell the rank of its observation within its line. cellOf(line, place), both from 1
/// to n, is a cell of the square: its lines are the rows or the columns.
template <typename CellOf>
void addRanks(const TMatrix& observations, TMatrix& ranks, int n, const CellOf& cellOf)
{
    std::array<std::vector<ObservationPair>, linesAtATime> lines;
    std::vector<std::array<std::int64_t, linesAtATime>> ranksAt(static_cast<std::size_t>(n));
    for (int before = 0; before < n; before += linesAtATime) {
        const int count = std::min(linesAtATime, n - before);
        for (auto& pairs : lines)
            pairs.clear();
        for (int place = 1; place <= n; ++place) {
            for (int line = 1; line <= count; ++line) {
                const auto [column, row] = cellOf(before + line, place);
                lines[static_cast<std::size_t>(line - 1)].push_back(
                    {observations.Elem(column, row), place});
            }
        }
        for (int line = 1; line <= count; ++line) {
            sortByValue(lines[static_cast<std::size_t>(line - 1)]);
            visitRanks(lines[static_cast<std::size_t>(line - 1)], [&](int place,
                                                                      std::int64_t rank) {
                ranksAt[static_cast<std::size_t>(place - 1)][static_cast<std::size_t>(line - 1)] =
                    rank;
            });
        }
        for (int place = 1; place <= n; ++place) {
            for (int line = 1; line <= count; ++line) {
                const auto [column, row] = cellOf(before + line, place);
                ranks.Elem(column, row,
                           ranks.Elem(column, row) +
                               static_cast<double>(ranksAt[static_cast<std::size_t>(place - 1)]
                                                          [static_cast<std::size_t>(line - 1)]));
            }
        }
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
