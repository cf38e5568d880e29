// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <experimental/simd>
#include <utility>

/// Many squares of one order evaluated side by side: every lane of a vector belongs to another
/// square. What all squares do alike costs one instruction for several of them, and nothing depends
/// on a branch that goes another way in each square.
namespace stats {

/// The squares of a batch: as many as the smallest vectors have bytes.
constexpr int laneCount = 16;

/// One number of each square of a batch.
template <typename Number>
using Lanes = std::array<Number, laneCount>;

/// A sorting key: a whole number in lowestKey..highestKey.
using Key = std::int32_t;

/// The bit patterns of the normal positive floats. These floats are in the order of their patterns
/// read as whole numbers, so keys can be compared and exchanged as floats: every vector unit has
/// minimum and maximum of floats, but plain x86-64 has none of 32-bit integers.
constexpr Key lowestKey = 0x00800000;
constexpr Key highestKey = 0x7f7fffff;

namespace simd = std::experimental;

/// Vectors of the baseline's 16 bytes, whatever the machine has.
template <typename Number>
using LaneVector = simd::simd<Number, simd::simd_abi::deduce_t<Number, 16 / sizeof(Number)>>;

/// The numbers where the mask is set, 0 elsewhere. A call would cost several times the two
/// instructions that this is, yet gcc would make one.
template <typename Vector>
[[gnu::always_inline]] inline Vector onlyWhere(const typename Vector::mask_type& mask,
                                               const Vector& numbers)
{
    Vector chosen{};
    where(mask, chosen) = numbers;
    return chosen;
}

/// The keys of a batch: for each cell of a square of order n one of each square.
template <int n>
using KeyLanes = std::array<Lanes<Key>, static_cast<std::size_t>(n) * n>;

namespace detail {

/// Calls exchange(a, b), a < b, for the comparators of a sorting network of `count` inputs:
/// K. E. Batcher's merge exchange (D. E. Knuth, The Art of Computer Programming 3, 5.2.2,
/// algorithm M), which takes any count.
template <typename Exchange>
constexpr void mergeExchange(std::size_t count, const Exchange& exchange)
{
    const std::size_t top = std::bit_ceil(count) / 2;
    for (std::size_t p = top; p > 0; p /= 2) {
        std::size_t q = top;
        std::size_t r = 0;
        for (std::size_t d = p;; d = q - p, q /= 2, r = p) {
            for (std::size_t i = 0; i + d < count; ++i) {
                if ((i & p) == r)
                    exchange(i, i + d);
            }
            if (q == p)
                break;
        }
    }
}

struct Comparator {
    std::size_t low = 0;
    std::size_t high = 0;
};

constexpr std::size_t comparatorCount(std::size_t count)
{
    std::size_t comparators = 0;
    mergeExchange(count, [&](std::size_t, std::size_t) { ++comparators; });
    return comparators;
}

template <std::size_t count>
constexpr auto comparators()
{
    std::array<Comparator, comparatorCount(count)> network{};
    std::size_t next = 0;
    mergeExchange(count, [&](std::size_t low, std::size_t high) { network[next++] = {low, high}; });
    return network;
}

/// Sorts vectors of keys, each lane for itself. The network is unrolled, so that the compiler keeps
/// keys in registers from one comparator to the next: measured at half the time of a loop.
template <std::size_t count, std::size_t... step>
void sortVectors(std::array<LaneVector<float>, count>& keys, std::index_sequence<step...>)
{
    static constexpr auto network = comparators<count>();
    const auto exchange = [&keys](Comparator comparator) {
        const LaneVector<float> a = keys[comparator.low];
        const LaneVector<float> b = keys[comparator.high];
        keys[comparator.low] = simd::min(a, b);
        keys[comparator.high] = simd::max(a, b);
    };
    (exchange(network[step]), ...);
}

} // namespace detail

/// Sorts the keys of each square, ascending.
template <std::size_t count>
void sortKeys(std::array<Lanes<Key>, count>& keys)
{
    using Floats = LaneVector<float>;
    using Keys = LaneVector<Key>;
    for (std::size_t lane = 0; lane < laneCount; lane += Keys::size()) {
        std::array<Floats, count> vectors;
        for (std::size_t i = 0; i < count; ++i)
            vectors[i] = std::bit_cast<Floats>(Keys(&keys[i][lane], simd::element_aligned));
        detail::sortVectors(vectors, std::make_index_sequence<detail::comparatorCount(count)>());
        for (std::size_t i = 0; i < count; ++i)
            std::bit_cast<Keys>(vectors[i]).copy_to(&keys[i][lane], simd::element_aligned);
    }
}

} // namespace stats
