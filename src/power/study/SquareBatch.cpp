// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/SquareBatch.h"

#include "power/study/Aleatorio.h"
#include "stats/numbers/RankStatistics.h"
#include "stats/numbers/Sequences.h"
#include "stats/numbers/Treatments.h"

namespace power {

using stats::Key;
using stats::laneCount;
using stats::Lanes;

namespace {

/// For each square whether two neighbours of the sorted keys are so close that the keys do not tell
/// the order of their observations. Gaps are of whole keys: a code in the lower bits can at most
/// make a gap that is just wide enough seem too narrow.
template <int n>
Lanes<bool> nearTies(const stats::KeyLanes<n>& sorted)
{
    constexpr Key enough = ObservationKeys<n>::nearTie << stats::codeBits;
    Lanes<Key> lacks{}; // negative where any gap is
    for (std::size_t place = 1; place < sorted.size(); ++place) {
        for (std::size_t lane = 0; lane < laneCount; ++lane)
            lacks[lane] |= sorted[place][lane] - sorted[place - 1][lane] - enough;
    }
    Lanes<bool> near{};
    for (std::size_t lane = 0; lane < laneCount; ++lane)
        near[lane] = lacks[lane] < 0;
    return near;
}

} // namespace

template <int n>
SquareBatch<n>::SquareBatch(ErrorKind kind, double difference)
    : m_kind(kind)
    , m_difference(difference)
    , m_keys(kind, difference)
{
}

template <int n>
BatchStatistics SquareBatch<n>::evaluate(Numbers numbers, int squares) const
{
    stats::KeyLanes<n> keys = m_keys.keysOf(numbers);
    stats::sortKeys(keys);
    const stats::CodeLanes<n> codes = stats::codesOf<n>(keys);
    const stats::RunLanes runs = stats::runLanes<n>(codes);
    const stats::RankLanes ranks = stats::rankLanes<n>(codes);
    BatchStatistics statistics{stats::sequenceCLanes<n>(runs), stats::sequenceMLanes<n>(runs),
                               stats::bennettLanes<n>(ranks), stats::zimmermanLanes<n>(ranks)};

    const Lanes<bool> unsure = nearTies<n>(keys);
    for (std::size_t lane = 0; lane < static_cast<std::size_t>(squares); ++lane) {
        if (unsure[lane])
            evaluateExactly(numbers, lane, statistics);
    }
    return statistics;
}

template <int n>
void SquareBatch<n>::evaluateExactly(Numbers numbers, std::size_t lane,
                                     BatchStatistics& statistics) const
{
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    std::size_t next = lane * ObservationKeys<n>::cells;
    // Columns outside: the layout is the same read either way.
    stats::visitCells(n, [&](int row, int column, int treatment) {
        const double uniform = Aleatorio::uniformOf(numbers[next++]);
        square.Elem(column, row, ErrorDraw(m_kind, uniform, treatment * m_difference));
    });
    statistics.c[lane] = stats::SequenceC(square, n);
    statistics.m[lane] = stats::SequenceM(square, n);
    statistics.b[lane] = stats::BennettStatistic(square, n);
    statistics.z[lane] = stats::ZimmermanStatistic(square, n);
}

template class SquareBatch<3>;
template class SquareBatch<4>;
template class SquareBatch<5>;
template class SquareBatch<6>;

} // namespace power
