// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/Aleatorio.h"

#include <gsl/gsl_rng.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace power {
namespace {

constexpr int million = 1000000;

/// The same generator as GSL has it.
class Reference {
public:
    explicit Reference(std::uint32_t seed)
        : m_generator(gsl_rng_alloc(gsl_rng_mt19937_1998), gsl_rng_free)
    {
        gsl_rng_set(m_generator.get(), seed);
    }
    std::uint32_t next() { return static_cast<std::uint32_t>(gsl_rng_get(m_generator.get())); }

private:
    std::unique_ptr<gsl_rng, void (*)(gsl_rng*)> m_generator;
};

TEST(Aleatorio, DrawsWhatTheReferenceDraws)
{
    Aleatorio generator; // seeds itself
    Reference reference(4357);
    for (int i = 0; i < million; ++i)
        ASSERT_EQ(generator.NextUniform(), reference.next() * 2.3283064370807974e-10) << i;
}

TEST(Aleatorio, TakesAnySeed)
{
    for (const std::uint32_t seed : {1U, 4357U, 0x80000000U, 0xffffffffU}) {
        Aleatorio generator;
        generator.NextUniform(); // a seed starts anew wherever the generator stands
        generator.SeedGenerator(seed);
        Reference reference(seed);
        for (int i = 0; i < 2000; ++i)
            ASSERT_EQ(generator.NextUniform(), Aleatorio::uniformOf(reference.next())) << i;
    }
}

/// From the same generator of GSL 2.7.1, to all digits of the doubles.
TEST(Aleatorio, FirstValues)
{
    Aleatorio generator;
    EXPECT_EQ(generator.NextUniform(), 0.81733006001853614);
    EXPECT_EQ(generator.NextUniform(), 0.99906089971751466);
    EXPECT_EQ(generator.NextUniform(), 0.51035437255873217);
}

TEST(Aleatorio, BlocksOfAnySizeContinueTheSequence)
{
    Aleatorio single;
    Aleatorio blocks;
    std::vector<std::uint32_t> block;
    std::size_t size = 0;
    for (int drawn = 0; drawn < 100000; drawn += static_cast<int>(size)) {
        size = (size * 5 + 3) % 2003; // below, at and beyond the generator's 624 words
        block.assign(size, 0);
        blocks.NextNumbers(block);
        for (const std::uint32_t number : block)
            ASSERT_EQ(Aleatorio::uniformOf(number), single.NextUniform()) << drawn;
    }
    EXPECT_EQ(blocks.NextUniform(), single.NextUniform());
}

TEST(Aleatorio, AnEmptyBlockDrawsNothing)
{
    Aleatorio generator;
    generator.NextNumbers({});
    EXPECT_EQ(generator.NextUniform(), 0.81733006001853614);
}

TEST(Aleatorio, BothEndsOfTheIntervalOccur)
{
    EXPECT_EQ(Aleatorio::uniformOf(0), 0.0);
    EXPECT_EQ(Aleatorio::uniformOf(0xffffffffU), 1.0);
    EXPECT_LT(Aleatorio::uniformOf(0xfffffffeU), 1.0);
}

TEST(Aleatorio, TheProgramHasOne)
{
    Aleatorio fresh;
    EXPECT_EQ(programAleatorio().NextUniform(), fresh.NextUniform());
    EXPECT_EQ(programAleatorio().NextUniform(), fresh.NextUniform());
}

} // namespace
} // namespace power
