// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/ErrorTerms.h"
#include "stats/numbers/LaneRanks.h"

#include <array>
#include <cstdint>
#include <span>

namespace power {

/// Turns drawn numbers into sorting keys that stand for the observations of a batch of squares.
///
/// An observation of treatment t (1 to n) is ErrorDraw(kind, uniformOf(number), t * difference).
/// Only the order of a square's observations is asked for, so the key is not the observation but
/// a whole number, its level, that rises with it and costs less; below it the key carries the code
/// of the cell.
///
/// A level is exact to less than 1.5 units either way of an increasing function of the observation.
/// So two levels that differ by nearTie or more tell the order of their observations, whatever was
/// rounded on either way, and nothing is said about those that are closer.
template <int n>
class ObservationKeys {
public:
    /// Levels closer than this do not tell the order.
    static constexpr stats::Key nearTie = 3;

    static constexpr std::size_t cells = static_cast<std::size_t>(n) * n;
    /// The numbers of a batch: square after square, and in each column after column. The codes of
    /// cells call these columns rows: the layout is the same read either way.
    using Numbers = std::span<const std::uint32_t, cells * stats::laneCount>;

    /// 0 <= n * difference <= 6.5.
    ObservationKeys(ErrorKind kind, double difference);

    /// lowestKey + level * 2^codeBits + cellCode() of each cell.
    /// @throws ImpossibleSetting
    stats::KeyLanes<n> keysOf(Numbers numbers) const;

private:
    ErrorKind m_kind;
    std::array<stats::Key, n> m_offsets{}; ///< by treatment; Uniform and Triangular
    std::array<float, n> m_weights{};      ///< by treatment; Exponential
};

extern template class ObservationKeys<3>;
extern template class ObservationKeys<4>;
extern template class ObservationKeys<5>;
extern template class ObservationKeys<6>;

} // namespace power
