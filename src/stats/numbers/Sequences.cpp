// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Sequences.h"

#include "stats/numbers/Treatments.h"

namespace stats {

namespace {

/// The run indices of a sequence of labels, summed up.
struct RunSums {
    RunSums(std::span<const ObservationPair> pairs, int n)
        : ofTreatments(n)
    {
        int previousLabel = 0;
        for (const ObservationPair& pair : pairs) {
            if (pair.label != previousLabel)
                ++runs;
            previousLabel = pair.label;
            ofTreatments.add(pair.label, runs);
        }
    }

    std::int64_t runs = 0;
    TreatmentSums ofTreatments;
};

} // namespace

double SequenceC(const TMatrix& observations, int n)
{
    return SequenceCFromLabels(sortedPairs(observations, n), n);
}

double SequenceCFromLabels(std::span<const ObservationPair> pairs, int n)
{
    const RunSums sums(pairs, n);
    const WideInteger order = n;
    const WideInteger runs = sums.runs;
    return ratio(sums.ofTreatments.squaredDeviations(2, order * (runs + 1)),
                 4 * order * order * runs * (runs + 1));
}

double SequenceM(const TMatrix& observations, int n)
{
    return SequenceMFromLabels(sortedPairs(observations, n), n);
}

double SequenceMFromLabels(std::span<const ObservationPair> pairs, int n)
{
    const TreatmentSums sums = RunSums(pairs, n).ofTreatments;
    return ratio(n * sums.between(), sums.total() - sums.between());
}

} // namespace stats
