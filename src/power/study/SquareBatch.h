// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/CriticalValues.h"
#include "power/study/ObservationKeys.h"

namespace power {

/// The statistics of each square of a batch.
using BatchStatistics = PerTest<stats::Lanes<double>>;

/// Simulates squares of order n, a batch at a time, and evaluates the statistics of each: to the
/// last bit the values that SequenceC, SequenceM, BennettStatistic and ZimmermanStatistic give for
/// a matrix of the observations.
///
/// All statistics are fractions of whole numbers that follow from the order of the observations
/// alone. So the squares are sorted side by side by keys, and everything else is counted in whole
/// numbers; a square with near ties, which the keys cannot tell apart (one in a thousand), is
/// evaluated from its observations instead.
template <int n>
class SquareBatch {
public:
    using Numbers = typename ObservationKeys<n>::Numbers;

    /// As for ObservationKeys.
    SquareBatch(ErrorKind kind, double difference);

    /// @param numbers  of a whole batch
    /// @param squares  how many of them count, from the first; the statistics of the others are
    ///                 some numbers
    BatchStatistics evaluate(Numbers numbers, int squares) const;

private:
    void evaluateExactly(Numbers numbers, std::size_t lane, BatchStatistics& statistics) const;

    ErrorKind m_kind;
    double m_difference;
    ObservationKeys<n> m_keys;
};

extern template class SquareBatch<3>;
extern template class SquareBatch<4>;
extern template class SquareBatch<5>;
extern template class SquareBatch<6>;

} // namespace power
