// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/LaneSort.h"
#include "stats/numbers/StatisticFormulas.h"

/// The run statistics of the squares of a batch, side by side.
namespace stats {

/// Two bytes of each square of a batch.
using LaneWords = simd::rebind_simd_t<std::uint16_t, LaneVector<std::uint8_t>>;

/// The lowest bits of a key are the code of its cell; they say nothing about the order.
constexpr int codeBits = 6;
constexpr Key codeMask = (1 << codeBits) - 1;

/// The bits of a code that hold the treatment, counted from 0. Those above are the user's.
constexpr int treatmentMask = 7;

/// For each place in the ascending order of a square, the code of the cell that came there.
template <int n>
using CodeLanes = std::array<Lanes<std::uint8_t>, static_cast<std::size_t>(n) * n>;

/// The codes of sorted keys.
template <int n>
CodeLanes<n> codesOf(const KeyLanes<n>& keys)
{
    CodeLanes<n> codes;
    for (std::size_t place = 0; place < codes.size(); ++place) {
        for (std::size_t lane = 0; lane < laneCount; ++lane)
            codes[place][lane] = static_cast<std::uint8_t>(keys[place][lane] & codeMask);
    }
    return codes;
}

/// The moments of small whole numbers of each square. Their sums by treatment fit into bytes, so
/// that one instruction counts for all squares of the batch.
struct MomentLanes {
    Lanes<std::int32_t> sums{};
    Lanes<std::int32_t> squaredSums{};
    Lanes<std::uint16_t> squares{};

    Moments<double> at(std::size_t lane) const
    {
        return {static_cast<double>(sums[lane]), static_cast<double>(squaredSums[lane]),
                static_cast<double>(squares[lane])};
    }
};

template <std::size_t n>
MomentLanes momentLanes(const std::array<LaneVector<std::uint8_t>, n>& treatmentSums,
                        const LaneWords& squares)
{
    MomentLanes moments;
    for (const LaneVector<std::uint8_t>& vector : treatmentSums) {
        Lanes<std::uint8_t> sums;
        vector.copy_to(sums.data(), simd::element_aligned);
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            moments.sums[lane] += sums[lane];
            moments.squaredSums[lane] += sums[lane] * sums[lane];
        }
    }
    squares.copy_to(moments.squares.data(), simd::element_aligned);
    return moments;
}

/// A statistic of each square; formula(lane) is that of one.
template <typename Formula>
Lanes<double> eachLane(const Formula& formula)
{
    Lanes<double> values;
    for (std::size_t lane = 0; lane < laneCount; ++lane)
        values[lane] = formula(lane);
    return values;
}

/// The runs of the squares' label sequences (Sequences.h). Up to order 6 a run index is at most 36
/// and six of them at most 216.
struct RunLanes {
    Lanes<std::uint8_t> counts{};
    MomentLanes indices;
};

template <int n>
RunLanes runLanes(const CodeLanes<n>& codes)
{
    using Bytes = LaneVector<std::uint8_t>;
    const Bytes one = 1;
    const Bytes mask = treatmentMask;

    Bytes runs = 0;
    Bytes previousLabel = mask; // no label
    std::array<Bytes, n> ofTreatments{};
    LaneWords squares = 0;
    for (const Lanes<std::uint8_t>& code : codes) {
        const Bytes label = Bytes(code.data(), simd::element_aligned) & mask;
        runs += onlyWhere(label != previousLabel, one);
        previousLabel = label;
        Bytes treatment = 0;
        for (Bytes& sum : ofTreatments) {
            sum += onlyWhere(label == treatment, runs);
            treatment += one;
        }
        const auto wide = simd::static_simd_cast<LaneWords>(runs);
        squares += wide * wide;
    }

    RunLanes result{{}, momentLanes(ofTreatments, squares)};
    runs.copy_to(result.counts.data(), simd::element_aligned);
    return result;
}

/// SequenceC() of each square.
template <int n>
Lanes<double> sequenceCLanes(const RunLanes& runs)
{
    return eachLane([&](std::size_t lane) {
        return formulaOfC<double>(runs.indices.at(lane), runs.counts[lane], n);
    });
}

/// SequenceM() of each square.
template <int n>
Lanes<double> sequenceMLanes(const RunLanes& runs)
{
    return eachLane([&](std::size_t lane) { return formulaOfM<double>(runs.indices.at(lane), n); });
}

} // namespace stats
