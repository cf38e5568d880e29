// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/ObservationKeys.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace power {

using stats::Key;
using stats::laneCount;

namespace {

namespace simd = std::experimental;
template <typename Number>
using Vector = stats::LaneVector<Number>;

/// Levels have 25 bits: between the code's 6 and lowestKey.
///
/// Uniform and Triangular: fixed point. An observation is below 8, so a level counts units of
/// 2^-22.
constexpr int fixedPointBits = 22;

/// The levels of number / 2^32 + shift, the offset being the shift's level. The numbers' lower bits
/// are cut off (less than 1 unit), the shift is rounded (half a unit), and what is left out, the
/// observation's own roundings and the 2^32 that should be 2^32 - 1, is a thousandth of a unit.
struct UniformLevels {
    Vector<Key> operator()(const Vector<std::uint32_t>& numbers, const Vector<Key>& offset) const
    {
        return simd::static_simd_cast<Vector<Key>>(numbers >> (32 - fixedPointBits)) + offset;
    }
};

/// The levels of 1 - sqrt(number / 2^32) + shift, the offset being the level of 1 + shift. In
/// single precision the root is right to 1.5 * 2^-24 of itself, 0.4 units; its fraction is cut off
/// (less than 1 unit); the rest as above.
struct TriangularLevels {
    // sqrt(2^32) = 2^16 stands for 1
    Vector<float> unitsInRoot = static_cast<float>(1 << (fixedPointBits - 16));

    Vector<Key> operator()(const Vector<std::uint32_t>& numbers, const Vector<Key>& offset) const
    {
        const Vector<float> root = simd::sqrt(simd::static_simd_cast<Vector<float>>(numbers));
        return offset - simd::static_simd_cast<Vector<Key>>(root * unitsInRoot);
    }
};

/// The levels of -log10(number / 2^32) + shift, without a logarithm: the observation rises as
/// number * 10^-shift falls, and the bit pattern of a positive float rises with the float.
///
/// In single precision the product is right to 3 * 2^-24 of itself, at most 3 steps of the pattern.
/// A unit is 8 steps, so that is 0.4 units; the fraction of a unit is cut off (less than 1 unit).
/// Two observations whose levels differ by nearTie are 10^-7 apart and more; they themselves are
/// rounded below 10^-14.
///
/// Products below 2, the number 0 with its infinite observation among them, share the highest
/// level: in one square they are near ties of each other.
struct ExponentialLevels {
    static constexpr int stepBits = 3;
    Vector<Key> largest = std::bit_cast<Key>(4294967296.0F); // 2^32
    Vector<float> smallest = 2.0F; // 31 * 2^23 steps below the largest: 25 bits of units

    Vector<Key> operator()(const Vector<std::uint32_t>& numbers, const Vector<float>& weight) const
    {
        const Vector<float> product =
            simd::max(simd::static_simd_cast<Vector<float>>(numbers) * weight, smallest);
        return (largest - std::bit_cast<Vector<Key>>(product)) >> stepBits;
    }
};

Key fixedPoint(double value)
{
    return static_cast<Key>(std::lround(std::ldexp(value, fixedPointBits)));
}

/// The numbers of a batch with those of a cell side by side.
template <int n>
auto byCell(typename ObservationKeys<n>::Numbers numbers)
{
    std::array<stats::Lanes<std::uint32_t>, ObservationKeys<n>::cells> result;
    for (std::size_t cell = 0; cell < result.size(); ++cell) {
        for (std::size_t lane = 0; lane < laneCount; ++lane)
            result[cell][lane] = numbers[lane * result.size() + cell];
    }
    return result;
}

/// Makes keys; levelsOf(numbers, value of the treatment) gives the levels of some squares.
template <int n, typename Value, typename LevelsOf>
stats::KeyLanes<n> keysFrom(typename ObservationKeys<n>::Numbers numbers,
                            const std::array<Value, n>& valueOfTreatment, const LevelsOf& levelsOf)
{
    const auto ofCells = byCell<n>(numbers);
    stats::KeyLanes<n> keys;
    for (std::size_t cell = 0; cell < keys.size(); ++cell) {
        const Key code = stats::cellCode(static_cast<int>(cell) / n, static_cast<int>(cell) % n, n);
        const Vector<Key> belowLevel = stats::lowestKey + code;
        const Vector<Value> value =
            valueOfTreatment[static_cast<std::size_t>(code & stats::treatmentMask)];
        for (std::size_t lane = 0; lane < laneCount; lane += Vector<Key>::size()) {
            const Vector<std::uint32_t> some(&ofCells[cell][lane], simd::element_aligned);
            const Vector<Key> key = belowLevel + (levelsOf(some, value) << stats::codeBits);
            key.copy_to(&keys[cell][lane], simd::element_aligned);
        }
    }
    return keys;
}

} // namespace

template <int n>
ObservationKeys<n>::ObservationKeys(ErrorKind kind, double difference)
    : m_kind(kind)
{
    for (int i = 0; i < n; ++i) {
        const double shift = (i + 1) * difference;
        const auto treatment = static_cast<std::size_t>(i);
        m_offsets[treatment] = fixedPoint(kind == ErrorKind::Triangular ? 1.0 + shift : shift);
        m_weights[treatment] = static_cast<float>(std::pow(10.0, -shift));
    }
}

template <int n>
stats::KeyLanes<n> ObservationKeys<n>::keysOf(Numbers numbers) const
{
    switch (m_kind) {
    case ErrorKind::Uniform:
        return keysFrom<n>(numbers, m_offsets, UniformLevels());
    case ErrorKind::Exponential:
        return keysFrom<n>(numbers, m_weights, ExponentialLevels());
    case ErrorKind::Triangular:
        return keysFrom<n>(numbers, m_offsets, TriangularLevels());
    }
    throw ImpossibleSetting();
}

template class ObservationKeys<3>;
template class ObservationKeys<4>;
template class ObservationKeys<5>;
template class ObservationKeys<6>;

} // namespace power
