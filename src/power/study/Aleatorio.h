// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace power {

/// The Mersenne Twister MT19937 as first published: M. Matsumoto and T. Nishimura, Mersenne
/// Twister: a 623-dimensionally equidistributed uniform pseudo-random number generator, ACM Trans.
/// Model. Comput. Simul. 8 (1998), seeded with the multiplier 69069, output in the closed interval
/// [0, 1].
class Aleatorio {
public:
    /// What seeds a generator that is drawn from before it was seeded.
    static constexpr std::uint32_t defaultSeed = 4357;

    void SeedGenerator(std::uint32_t seed);

    /// The next number, from 0.0 to 1.0, both included. Only tests and users outside the program
    /// call it: a study draws many at a time.
    double NextUniform();

    /// The next out.size() numbers as whole numbers: uniformOf() each gives what as many calls of
    /// NextUniform() would have given.
    void NextNumbers(std::span<std::uint32_t> out);

    /// The number in [0, 1] that a drawn whole number stands for: 0xffffffff is exactly 1.0.
    static constexpr double uniformOf(std::uint32_t number)
    {
        return number * 2.3283064370807974e-10; // 1 / (2^32 - 1)
    }

private:
    static constexpr std::size_t words = 624;
    static constexpr std::size_t neverSeeded = words + 1;

    void regenerate();

    std::array<std::uint32_t, words> m_state{};
    std::size_t m_index = neverSeeded;
};

/// The one generator of the program. Nothing seeds it: every start of the program draws the same
/// numbers, and each power study goes on where the last one stopped.
Aleatorio& programAleatorio();

} // namespace power
