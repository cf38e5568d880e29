// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/SimulatedSquares.h"

#include "stats/numbers/LaneRuns.h"
#include "stats/numbers/Sequences.h"
#include "stats/numbers/Treatments.h"

#include <algorithm>
#include <cmath>

namespace stats {

namespace {

/// Draws the next square of a batch. Observations have 15 bits, so a key has room for the place of
/// its cell among the pairs of SequenceC(), columns outside: no two keys are equal, and ties come
/// out in the order of the cells.
template <int n>
void drawSquare(RandomIntegers& integers, KeyLanes<n>& keys, std::size_t lane)
{
    constexpr int placeBits = 6;
    visitCells(n, [&](int column, int row, int treatment) {
        const int place = (column - 1) * n + row - 1;
        const Key level = (integers.next() << placeBits) + place;
        keys[static_cast<std::size_t>(place)][lane] =
            lowestKey + (level << codeBits) + treatment - 1;
    });
}

/// Orders 4 to 6, many squares at a time.
template <int n>
std::vector<double> inBatches(int squares, RandomIntegers& integers)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(squares));
    KeyLanes<n> keys{};
    for (int done = 0; done < squares; done += laneCount) {
        const auto count = static_cast<std::size_t>(std::min(laneCount, squares - done));
        for (std::size_t lane = 0; lane < count; ++lane)
            drawSquare<n>(integers, keys, lane);
        sortKeys(keys);
        const Lanes<double> batch = sequenceCLanes<n>(runLanes<n>(codesOf<n>(keys)));
        values.insert(values.end(), batch.begin(), batch.begin() + count);
    }
    return values;
}

/// Any order, one square after the other.
std::vector<double> oneByOne(int n, int squares, RandomIntegers& integers)
{
    TMatrix square = TMatrix::Create(n, n);
    std::vector<double> values(static_cast<std::size_t>(squares));
    for (double& value : values) {
        visitCells(n, [&](int column, int row, int) { square.Elem(column, row, integers.next()); });
        value = SequenceC(square, n);
    }
    return values;
}

} // namespace

RandomIntegers& programIntegers()
{
    static RandomIntegers generator;
    return generator;
}

std::vector<double> sequenceCOfRandomSquares(int n, int squares, RandomIntegers& integers)
{
    switch (n) {
    case 4:
        return inBatches<4>(squares, integers);
    case 5:
        return inBatches<5>(squares, integers);
    case 6:
        return inBatches<6>(squares, integers);
    default:
        return oneByOne(n, squares, integers);
    }
}

SimulatedC simulateC(int n, RandomIntegers& integers)
{
    const std::vector<double> values = sequenceCOfRandomSquares(n, SimulatedC::squares, integers);
    double sum = 0.0;
    for (const double value : values)
        sum += value;

    SimulatedC result;
    result.mean = sum / SimulatedC::squares;
    double squaredDeviations = 0.0;
    for (const double value : values)
        squaredDeviations += (value - result.mean) * (value - result.mean);
    result.variance = squaredDeviations / (SimulatedC::squares - 1);
    result.deviation = std::sqrt(result.variance);
    return result;
}

} // namespace stats
