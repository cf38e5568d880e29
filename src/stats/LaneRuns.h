// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/LaneSort.h"

/// The run statistics of the squares of a batch, side by side.
namespace stats {

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

/// The run indices of the squares' label sequences, summed up as the sequence statistics need them
/// (Sequences.h). Up to order 6 a run index is at most 36 and six of them at most 216: bytes hold
/// both, so that one instruction counts for all squares of the batch.
template <int n>
struct RunLanes {
    Lanes<std::uint8_t> runs{};
    std::array<Lanes<std::uint8_t>, n> ofTreatments{};
    Lanes<std::uint16_t> ofSquares{};
};

template <int n>
RunLanes<n> runLanes(const CodeLanes<n>& codes)
{
    using Bytes = LaneVector<std::uint8_t>;
    using Words = simd::rebind_simd_t<std::uint16_t, Bytes>;
    const Bytes one = 1;
    const Bytes mask = treatmentMask;

    Bytes runs = 0;
    Bytes previousLabel = mask; // no label
    std::array<Bytes, n> ofTreatments{};
    Words ofSquares = 0;
    for (const Lanes<std::uint8_t>& code : codes) {
        const Bytes label = Bytes(code.data(), simd::element_aligned) & mask;
        runs += onlyWhere(label != previousLabel, one);
        previousLabel = label;
        Bytes treatment = 0;
        for (Bytes& sum : ofTreatments) {
            sum += onlyWhere(label == treatment, runs);
            treatment += one;
        }
        const Words wide = simd::static_simd_cast<Words>(runs);
        ofSquares += wide * wide;
    }

    RunLanes<n> sums;
    runs.copy_to(sums.runs.data(), simd::element_aligned);
    for (std::size_t treatment = 0; treatment < n; ++treatment)
        ofTreatments[treatment].copy_to(sums.ofTreatments[treatment].data(), simd::element_aligned);
    ofSquares.copy_to(sums.ofSquares.data(), simd::element_aligned);
    return sums;
}

namespace detail {

/// treatmentSpread() of one square, in the 32 bits that do up to order 6.
struct LaneSpread {
    std::int32_t between = 0;
    std::int32_t total = 0;
};

template <int n>
LaneSpread laneSpread(const std::array<Lanes<std::uint8_t>, n>& treatmentSums,
                      std::int32_t sumOfSquares, std::size_t lane)
{
    std::int32_t sum = 0;
    for (const auto& treatmentSum : treatmentSums)
        sum += treatmentSum[lane];
    LaneSpread spread;
    for (const auto& treatmentSum : treatmentSums) {
        const std::int32_t deviation = n * treatmentSum[lane] - sum;
        spread.between += deviation * deviation;
    }
    spread.total = n * n * (n * n * sumOfSquares - sum * sum);
    return spread;
}

/// The one rounding, as in ratio().
constexpr double laneRatio(std::int32_t numerator, std::int32_t denominator)
{
    return static_cast<double>(numerator) / static_cast<double>(denominator);
}

} // namespace detail

/// SequenceC() of one square.
template <int n>
double laneSequenceC(const RunLanes<n>& sums, std::size_t lane)
{
    const std::int32_t runs = sums.runs[lane];
    std::int32_t spread = 0;
    for (const auto& sum : sums.ofTreatments) {
        const std::int32_t deviation = 2 * sum[lane] - n * (runs + 1);
        spread += deviation * deviation;
    }
    return detail::laneRatio(spread, 4 * n * n * runs * (runs + 1));
}

/// SequenceM() of one square.
template <int n>
double laneSequenceM(const RunLanes<n>& sums, std::size_t lane)
{
    const auto spread = detail::laneSpread<n>(sums.ofTreatments, sums.ofSquares[lane], lane);
    return detail::laneRatio(n * spread.between, spread.total - spread.between);
}

} // namespace stats
