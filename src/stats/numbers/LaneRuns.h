// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/LaneSort.h"

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

/// A statistic of each square as a fraction of whole numbers. They are far below 2^53, as is
/// whatever they are made of here, so that doubles hold them exactly and the one rounding is the
/// division's.
struct FractionLanes {
    Lanes<double> numerators{};
    Lanes<double> denominators{};

    Lanes<double> values() const
    {
        Lanes<double> quotients;
        for (std::size_t lane = 0; lane < laneCount; ++lane)
            quotients[lane] = numerators[lane] / denominators[lane];
        return quotients;
    }
};

/// Sum and sum of squares of the treatments' sums S_t.
struct MomentLanes {
    Lanes<std::int32_t> sums{};
    Lanes<std::int32_t> ofSquares{};
};

template <std::size_t n>
MomentLanes momentLanes(const std::array<Lanes<std::uint8_t>, n>& treatmentSums)
{
    MomentLanes moments;
    for (const Lanes<std::uint8_t>& sums : treatmentSums) {
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            moments.sums[lane] += sums[lane];
            moments.ofSquares[lane] += sums[lane] * sums[lane];
        }
    }
    return moments;
}

/// TreatmentSpread of each square: n * between / (total - between), the form of M.
template <int n>
FractionLanes spreadFractions(const MomentLanes& moments, const Lanes<std::uint16_t>& sumsOfSquares)
{
    FractionLanes fractions;
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const double sum = moments.sums[lane];
        // The sum over t of (n S_t - S)^2, S being the sum of all S_t.
        const double between = n * (n * static_cast<double>(moments.ofSquares[lane]) - sum * sum);
        const double total = n * n * (n * n * static_cast<double>(sumsOfSquares[lane]) - sum * sum);
        fractions.numerators[lane] = n * between;
        fractions.denominators[lane] = total - between;
    }
    return fractions;
}

/// SequenceC() of each square; moments: of runs.ofTreatments.
template <int n>
FractionLanes sequenceCFractions(const MomentLanes& moments, const RunLanes<n>& runs)
{
    FractionLanes fractions;
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const double count = runs.runs[lane];
        const double centre = n * (count + 1);
        // The sum over t of (2 S_t - centre)^2.
        fractions.numerators[lane] =
            4 * (moments.ofSquares[lane] - centre * moments.sums[lane]) + n * centre * centre;
        fractions.denominators[lane] = 4 * n * n * count * (count + 1);
    }
    return fractions;
}

/// SequenceM() of each square; moments: of runs.ofTreatments.
template <int n>
FractionLanes sequenceMFractions(const MomentLanes& moments, const RunLanes<n>& runs)
{
    return spreadFractions<n>(moments, runs.ofSquares);
}

} // namespace stats
