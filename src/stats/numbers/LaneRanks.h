// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/LaneRuns.h"

/// The rank statistics of the squares of a batch, side by side.
namespace stats {

/// Cells by code: the row in the upper bits, the treatment in the lower ones, both from 0. Rows and
/// columns may be exchanged, as in treatmentOf().
constexpr int rowStep = treatmentMask + 1;

/// The code of a cell; row, column from 0.
constexpr int cellCode(int row, int column, int n)
{
    return row * rowStep + (row + column) % n;
}

/// The ranks of the squares as Bennett's and Zimmerman's statistics need them, for squares without
/// ties. Up to order 6 their sums by treatment fit into bytes: six of the ranks 1 to 36 make at
/// most 201, six sums of two ranks in lines of six at most 72.
struct RankLanes {
    MomentLanes overall; ///< without their squares
    MomentLanes inLines; ///< of row plus column
};

namespace detail {

/// Small numbers of the cells, by code.
template <int n>
using CellLanes = std::array<Lanes<std::int8_t>, static_cast<std::size_t>(n) * rowStep>;

/// For each cell its overall rank, from 1, in every square. The only step that goes lane by lane:
/// it undoes what the sorting did to each square.
template <int n>
CellLanes<n> ranksOfCells(const CodeLanes<n>& codes)
{
    CellLanes<n> ranks{};
    for (std::size_t place = 0; place < codes.size(); ++place) {
        for (std::size_t lane = 0; lane < laneCount; ++lane)
            ranks[codes[place][lane]][lane] = static_cast<std::int8_t>(place + 1);
    }
    return ranks;
}

template <int n>
using Line = std::array<std::size_t, n>;

/// The codes of the cells of every row and every column.
template <int n>
constexpr std::array<Line<n>, 2 * n> allLines()
{
    std::array<Line<n>, 2 * n> lines{};
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            lines[i][j] = cellCode(i, j, n);
            lines[n + i][j] = cellCode(j, i, n);
        }
    }
    return lines;
}

template <std::size_t n>
constexpr std::size_t pairCount = n*(n - 1) / 2;

/// The pairs of the cells of a line, the earlier one first.
template <std::size_t n>
constexpr std::array<std::pair<std::size_t, std::size_t>, pairCount<n>> allPairs()
{
    std::array<std::pair<std::size_t, std::size_t>, pairCount<n>> pairs{};
    std::size_t next = 0;
    for (std::size_t later = 1; later < n; ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier)
            pairs[next++] = {earlier, later};
    }
    return pairs;
}

/// The ranks of n different numbers among themselves, square by square. Each number starts as the
/// largest of those up to it; then in each pair the earlier one rises or the later one stays. The
/// pairs are unrolled for the same reason as in sortVectors().
template <std::size_t n, typename Bytes, std::size_t... pair>
std::array<Bytes, n> ranksOf(const std::array<Bytes, n>& numbers, std::index_sequence<pair...>)
{
    static constexpr auto pairs = allPairs<n>();
    const Bytes one = 1;
    std::array<Bytes, n> ranks;
    Bytes rank{};
    for (Bytes& each : ranks)
        each = (rank += one);
    const auto compare = [&](std::size_t earlier, std::size_t later) {
        const Bytes earlierIsLarger = onlyWhere(numbers[later] < numbers[earlier], one);
        ranks[earlier] += earlierIsLarger;
        ranks[later] -= earlierIsLarger;
    };
    (compare(pairs[pair].first, pairs[pair].second), ...);
    return ranks;
}

} // namespace detail

/// codes: cellCode() of the cells in ascending order of the observations.
template <int n>
RankLanes rankLanes(const CodeLanes<n>& codes)
{
    using Bytes = LaneVector<std::int8_t>;
    using UnsignedBytes = LaneVector<std::uint8_t>;
    static constexpr auto lines = detail::allLines<n>();

    const detail::CellLanes<n> overallRanks = detail::ranksOfCells<n>(codes);
    std::array<Bytes, n * rowStep> lineRanks{};
    for (const auto& line : lines) {
        std::array<Bytes, n> overall;
        for (std::size_t i = 0; i < n; ++i)
            overall[i] = Bytes(overallRanks[line[i]].data(), simd::element_aligned);
        const auto ranks =
            detail::ranksOf(overall, std::make_index_sequence<detail::pairCount<n>>());
        for (std::size_t i = 0; i < n; ++i)
            lineRanks[line[i]] += ranks[i];
    }

    std::array<UnsignedBytes, n> overall{};
    std::array<UnsignedBytes, n> inLines{};
    LaneWords squares = 0;
    for (std::size_t treatment = 0; treatment < n; ++treatment) {
        for (std::size_t cell = treatment; cell < n * rowStep; cell += rowStep) {
            overall[treatment] += UnsignedBytes(overallRanks[cell].data(), simd::element_aligned);
            inLines[treatment] += simd::static_simd_cast<UnsignedBytes>(lineRanks[cell]);
            const auto wide = simd::static_simd_cast<LaneWords>(lineRanks[cell]);
            squares += wide * wide;
        }
    }
    return {momentLanes(overall, LaneWords()), momentLanes(inLines, squares)};
}

/// BennettStatistic() of each square.
template <int n>
Lanes<double> bennettLanes(const RankLanes& ranks)
{
    return eachLane(
        [&](std::size_t lane) { return formulaOfB<double>(ranks.overall.at(lane), n); });
}

/// ZimmermanStatistic() of each square.
template <int n>
Lanes<double> zimmermanLanes(const RankLanes& ranks)
{
    return eachLane(
        [&](std::size_t lane) { return formulaOfZ<double>(ranks.inLines.at(lane), n); });
}

} // namespace stats
