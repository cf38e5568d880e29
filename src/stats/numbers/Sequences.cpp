// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Sequences.h"

#include "stats/numbers/TreatmentSpread.h"
#include "stats/numbers/WholeNumbers.h"
#include "stats/numbers/WorkingMemory.h"

#include <vector>

namespace stats {

namespace {

/// The run indices of a sequence of labels, summed up.
struct RunSums {
    RunSums(std::span<const ObservationPair> pairs, int n, std::pmr::memory_resource* memory)
        : ofTreatments(static_cast<std::size_t>(n), memory)
    {
        int previousLabel = 0;
        for (const ObservationPair& pair : pairs) {
            if (pair.label != previousLabel)
                ++runs;
            previousLabel = pair.label;
            ofTreatments[static_cast<std::size_t>(pair.label - 1)] += runs;
            ofSquares += squaredInteger(runs);
        }
    }

    std::int64_t runs = 0;
    std::pmr::vector<std::int64_t> ofTreatments;
    WideInteger ofSquares = 0;
};

} // namespace

double SequenceC(const TMatrix& observations, int n)
{
    WorkingMemory memory;
    return SequenceCFromLabels(sortedPairs(observations, n, memory.resource()), n);
}

double SequenceCFromLabels(std::span<const ObservationPair> pairs, int n)
{
    WorkingMemory memory;
    const RunSums sums(pairs, n, memory.resource());
    const WideInteger order = n;
    const WideInteger runs = sums.runs;
    WideInteger spread = 0;
    for (const std::int64_t sum : sums.ofTreatments)
        spread += squaredInteger(2 * sum - order * (runs + 1));
    return ratio(spread, 4 * order * order * runs * (runs + 1));
}

double SequenceM(const TMatrix& observations, int n)
{
    WorkingMemory memory;
    return SequenceMFromLabels(sortedPairs(observations, n, memory.resource()), n);
}

double SequenceMFromLabels(std::span<const ObservationPair> pairs, int n)
{
    WorkingMemory memory;
    const RunSums sums(pairs, n, memory.resource());
    const TreatmentSpread spread = treatmentSpread(sums.ofTreatments, sums.ofSquares, n);
    return ratio(n * spread.between, spread.total - spread.between);
}

} // namespace stats
