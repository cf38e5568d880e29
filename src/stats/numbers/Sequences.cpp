// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Sequences.h"

#include "stats/numbers/Treatments.h"

namespace stats {

namespace {

struct Runs {
    WideInteger count = 0;
    Moments<WideInteger> indices;
};

Runs runsOf(std::span<const ObservationPair> pairs, int n)
{
    TreatmentSums indices(n);
    std::int64_t runs = 0;
    int previousLabel = 0;
    for (const ObservationPair& pair : pairs) {
        if (pair.label != previousLabel)
            ++runs;
        previousLabel = pair.label;
        indices.add(pair.label, runs);
    }
    return {runs, indices.moments()};
}

} // namespace

double SequenceC(const TMatrix& observations, int n)
{
    return SequenceCFromLabels(sortedPairs(observations, n), n);
}

double SequenceCFromLabels(std::span<const ObservationPair> pairs, int n)
{
    const Runs runs = runsOf(pairs, n);
    return formulaOfC<WideInteger>(runs.indices, runs.count, n);
}

double SequenceM(const TMatrix& observations, int n)
{
    return SequenceMFromLabels(sortedPairs(observations, n), n);
}

double SequenceMFromLabels(std::span<const ObservationPair> pairs, int n)
{
    return formulaOfM<WideInteger>(runsOf(pairs, n).indices, n);
}

} // namespace stats
