// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Zimmerman.h"

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
    const WideInteger between = rankSums.between();
    const WideInteger total = rankSums.total();
    const WideInteger order = n;
    return {ratio(between, total),
            ratio((order - 1) * order * between, (order + 1) * (total - between))};
}

double ZimmermanStatistic(const TMatrix& observations, int n)
{
    return zimmermanResult(observations, n).z;
}

} // namespace stats
