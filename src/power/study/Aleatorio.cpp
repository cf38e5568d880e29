// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/Aleatorio.h"

#include <algorithm>

namespace power {

namespace {

constexpr std::size_t middle = 397; // the recurrence's second offset
constexpr std::uint32_t upperBit = 0x80000000U;
constexpr std::uint32_t lowerBits = 0x7fffffffU;
constexpr std::uint32_t twistRow = 0x9908b0dfU;

/// The word that follows from words k, k + 1 and k + 397. The table {0, twistRow} is a mask here:
/// arithmetic goes into vectors where a look-up does not.
constexpr std::uint32_t twisted(std::uint32_t word, std::uint32_t next, std::uint32_t distant)
{
    const std::uint32_t joined = (word & upperBit) | (next & lowerBits);
    return distant ^ (joined >> 1) ^ ((0U - (joined & 1U)) & twistRow);
}

constexpr std::uint32_t tempered(std::uint32_t word)
{
    word ^= word >> 11;
    word ^= (word << 7) & 0x9d2c5680U;
    word ^= (word << 15) & 0xefc60000U;
    word ^= word >> 18;
    return word;
}

} // namespace

void Aleatorio::SeedGenerator(std::uint32_t seed)
{
    m_state[0] = seed;
    for (std::size_t k = 1; k < words; ++k)
        m_state[k] = m_state[k - 1] * 69069U;
    m_index = words;
}

double Aleatorio::NextUniform()
{
    std::uint32_t number = 0;
    NextNumbers({&number, 1});
    return uniformOf(number);
}

void Aleatorio::NextNumbers(std::span<std::uint32_t> out)
{
    if (m_index == neverSeeded)
        SeedGenerator(defaultSeed);
    while (!out.empty()) {
        if (m_index == words)
            regenerate();
        const std::size_t count = std::min(out.size(), words - m_index);
        std::transform(m_state.begin() + m_index, m_state.begin() + m_index + count, out.begin(),
                       tempered);
        m_index += count;
        out = out.subspan(count);
    }
}

/// The recurrence in three stretches instead of index arithmetic modulo 624: each stretch only
/// reads words that are either all old or all new.
void Aleatorio::regenerate()
{
    constexpr std::size_t wrapped = words - middle;
    for (std::size_t k = 0; k < wrapped; ++k)
        m_state[k] = twisted(m_state[k], m_state[k + 1], m_state[k + middle]);
    for (std::size_t k = wrapped; k < words - 1; ++k)
        m_state[k] = twisted(m_state[k], m_state[k + 1], m_state[k - wrapped]);
    m_state[words - 1] = twisted(m_state[words - 1], m_state[0], m_state[middle - 1]);
    m_index = 0;
}

Aleatorio& programAleatorio()
{
    static Aleatorio generator;
    return generator;
}

} // namespace power
