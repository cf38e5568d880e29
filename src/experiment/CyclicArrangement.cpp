// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/CyclicArrangement.h"

#include "experiment/LabelOrder.h"

#include <algorithm>
#include <numeric>
#include <utility>

// A Latin square can be rearranged into the cyclic one exactly when it is isotopic to the addition
// table of the integers modulo n. Let s_r be the permutation of the treatments that takes the first
// row into row r, column by column. In the addition table the s_r are the rotations, and
// rearranging rows, columns and treatments keeps them, but for renaming, the n powers of one
// n-cycle; where they are, any n-cycle among them generates the others. So it is enough to find one
// n-cycle among the s_r and to see whether every row is the first one moved along it.
// (J. Denes, A. D. Keedwell, Latin Squares and their Applications, 2nd ed., 2015, chapter 1.)

namespace experiment {

namespace {

using Numbers = std::vector<int>;

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

/// s_r as treatment -> treatment.
Numbers stepFromFirstRow(const LatinSquare& square, int row)
{
    Numbers step(at(square.order()));
    for (int column = 0; column < square.order(); ++column)
        step[at(square.layout[square.place(column, 0)])] = square.layout[square.place(column, row)];
    return step;
}

/// Where each treatment stands on the cycle that starts at treatment 0; empty where the cycle does
/// not pass through all of them.
Numbers placesOnCycle(const Numbers& step)
{
    Numbers places(step.size(), -1);
    int length = 0;
    for (int treatment = 0; places[at(treatment)] < 0; treatment = step[at(treatment)])
        places[at(treatment)] = length++;
    return at(length) == step.size() ? places : Numbers();
}

/// How far along the cycle each row lies from the first one; empty where a row is not the first one
/// moved along it.
Numbers distancesOfRows(const LatinSquare& square, const Numbers& places)
{
    const int n = square.order();
    Numbers distances(at(n));
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            const int distance = (places[at(square.layout[square.place(column, row)])] -
                                  places[at(square.layout[square.place(column, 0)])] + n) %
                                 n;
            if (column > 0 && distance != distances[at(row)])
                return {};
            distances[at(row)] = distance;
        }
    }
    return distances;
}

/// Shifts, each of which leaves as many of the numbers equal to their index.
struct Shifts {
    Numbers shifts;
    int kept = 0;
};

/// The shifts for which (factor * distances[i] + shift) mod n equals i most often.
Shifts bestShifts(const Numbers& distances, int factor)
{
    const int n = static_cast<int>(distances.size());
    Numbers kept(at(n));
    for (int i = 0; i < n; ++i)
        ++kept[at(((i - factor * distances[at(i)]) % n + n) % n)];
    Shifts best{{}, *std::max_element(kept.begin(), kept.end())};
    for (int shift = 0; shift < n; ++shift) {
        if (kept[at(shift)] == best.kept)
            best.shifts.push_back(shift);
    }
    return best;
}

LatinSquare arranged(const LatinSquare& square, const Numbers& newRows, const Numbers& newColumns,
                     const Numbers& newTreatments)
{
    LatinSquare result = square;
    for (int i = 0; i < square.order(); ++i) {
        result.rows[newRows[at(i)]] = square.rows[i];
        result.columns[newColumns[at(i)]] = square.columns[i];
        result.treatments[newTreatments[at(i)]] = square.treatments[i];
    }
    for (int row = 0; row < square.order(); ++row) {
        for (int column = 0; column < square.order(); ++column) {
            const std::size_t from = square.place(column, row);
            const std::size_t to = square.place(newColumns[at(column)], newRows[at(row)]);
            result.values[to] = square.values[from];
            result.layout[to] = newTreatments[at(square.layout[from])];
        }
    }
    return result;
}

/// (factor * x + shift) mod n for each x.
Numbers moved(const Numbers& distances, int factor, int shift)
{
    const int n = static_cast<int>(distances.size());
    Numbers result;
    for (const int distance : distances)
        result.push_back((factor * distance + shift) % n);
    return result;
}

/// Where rows, columns and treatments lie: row i at rows[i] and column j at columns[j] have the
/// treatment k for which places[k] is the sum of the two modulo n.
struct Distances {
    Numbers rows;
    Numbers columns;
    Numbers places;
};

/// A multiple of the distances, moved: with factors prime to n and all shifts these are all the
/// arrangements.
struct Move {
    int factor = 1;
    int rowShift = 0;
    int columnShift = 0;
    std::pair<int, int> kept = {-1, -1}; ///< Rows and columns that stay in their places.
    Numbers order;                       ///< The ranks of the treatments 1, 2, ...

    bool isBetterThan(const Move& other) const
    {
        return kept > other.kept || (kept == other.kept && order < other.order);
    }
};

Move bestMove(const Distances& distances, const Numbers& ranks)
{
    const int n = static_cast<int>(ranks.size());
    Move best;
    for (int factor = 1; factor < n; ++factor) {
        if (std::gcd(factor, n) != 1)
            continue;
        const Shifts ofRows = bestShifts(distances.rows, factor);
        const Shifts ofColumns = bestShifts(distances.columns, factor);
        const std::pair kept(ofRows.kept, ofColumns.kept);
        if (kept < best.kept)
            continue;
        std::vector<bool> tried(at(n)); // the sums of two shifts, which move the treatments
        for (const int rowShift : ofRows.shifts) {
            for (const int columnShift : ofColumns.shifts) {
                const int sum = (rowShift + columnShift) % n;
                if (tried[at(sum)])
                    continue;
                tried[at(sum)] = true;
                Move move{factor, rowShift, columnShift, kept, ranks};
                const Numbers numbers = moved(distances.places, factor, sum);
                for (int treatment = 0; treatment < n; ++treatment)
                    move.order[at(numbers[at(treatment)])] = ranks[at(treatment)];
                if (move.isBetterThan(best))
                    best = std::move(move);
            }
        }
    }
    return best;
}

} // namespace

std::optional<LatinSquare> cyclicArrangement(const LatinSquare& square)
{
    const int n = square.order();
    Numbers places;
    for (int row = 1; row < n && places.empty(); ++row)
        places = placesOnCycle(stepFromFirstRow(square, row));
    if (places.empty())
        return std::nullopt;
    Distances distances{distancesOfRows(square, places), {}, places};
    if (distances.rows.empty())
        return std::nullopt;
    for (int column = 0; column < n; ++column)
        distances.columns.push_back(places[at(square.layout[square.place(column, 0)])]);

    const Move move = bestMove(distances, ranksOf(square.treatments));
    return arranged(square, moved(distances.rows, move.factor, move.rowShift),
                    moved(distances.columns, move.factor, move.columnShift),
                    moved(places, move.factor, move.rowShift + move.columnShift));
}

} // namespace experiment
