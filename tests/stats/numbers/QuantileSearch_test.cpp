// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/QuantileSearch.h"

#include "stats/numbers/Near.h"
#include "support/SpecialNumbers.h"

#include <gtest/gtest.h>

#include <algorithm>

using stats::bisected;
using stats::SearchEnd;
using stats::widened;

namespace {

double uniformCdf(double x)
{
    return std::clamp(x, 0.0, 1.0);
}

constexpr auto never = [](double) { return false; };

} // namespace

TEST(QuantileSearch, ABracketAroundThePointStaysAsItIs)
{
    const auto result = widened(uniformCdf, 0.5, {0.4, 0.6});
    EXPECT_EQ(result.end, SearchEnd::Found);
    EXPECT_EQ(result.bracket.lo, 0.4);
    EXPECT_EQ(result.bracket.hi, 0.6);
}

TEST(QuantileSearch, WideningMovesByHalfTheWidthAndKeepsTheLastWrongPoint)
{
    // 0.5 .. 0.75 -> 0.375 .. 0.75 -> 0.1875 .. 0.75; the last point above was 0.375.
    const auto down = widened(uniformCdf, 0.25, {0.5, 0.75});
    EXPECT_EQ(down.bracket.lo, 0.1875);
    EXPECT_EQ(down.bracket.hi, 0.375);
    // 0.25 .. 0.5 -> 0.25 .. 0.625 -> 0.25 .. 0.8125; the last point below was 0.625.
    const auto up = widened(uniformCdf, 0.75, {0.25, 0.5});
    EXPECT_EQ(up.bracket.lo, 0.625);
    EXPECT_EQ(up.bracket.hi, 0.8125);
}

TEST(QuantileSearch, EqualityIsAMove)
{
    const auto atLo = widened(uniformCdf, 0.5, {0.5, 0.75});
    EXPECT_EQ(atLo.end, SearchEnd::Found);
    EXPECT_EQ(atLo.bracket.lo, 0.375);
    EXPECT_EQ(atLo.bracket.hi, 0.5);
    const auto atHi = widened(uniformCdf, 0.5, {0.25, 0.5});
    EXPECT_EQ(atHi.end, SearchEnd::Found);
    EXPECT_EQ(atHi.bracket.lo, 0.5);
    EXPECT_EQ(atHi.bracket.hi, 0.625);
}

TEST(QuantileSearch, TheUpperEndMovesByTheWidthAfterTheLowerOneMoved)
{
    // A function that is p everywhere moves both ends: 1 .. 2 -> 0.5 .. 2.75 (half of 1.5).
    int calls = 0;
    const auto flatThenRight = [&calls](double x) {
        return ++calls <= 2 ? 0.5 : (x < 1.0 ? 0.0 : 1.0);
    };
    const auto result = widened(flatThenRight, 0.5, {1.0, 2.0});
    EXPECT_EQ(result.end, SearchEnd::Found);
    // Both ends are then replaced by the points that were left: the bracket has turned round.
    EXPECT_EQ(result.bracket.lo, 2.0);
    EXPECT_EQ(result.bracket.hi, 1.0);
}

TEST(QuantileSearch, WideningEndsWhenNoBracketHoldsThePoint)
{
    const auto flat = [](double) { return 0.5; };
    EXPECT_EQ(widened(flat, 0.9, {1.0, 2.0}).end, SearchEnd::NotFinite);
    EXPECT_EQ(widened(flat, 0.5, {1.0, 2.0}).end, SearchEnd::NotFinite);
    EXPECT_EQ(widened(flat, 0.9, {0.0, 0.0}).end, SearchEnd::Exhausted);
    const auto undefined = [](double) { return notANumber; };
    EXPECT_EQ(widened(undefined, 0.9, {1.0, 2.0}).end, SearchEnd::NotFinite);
    EXPECT_EQ(widened(flat, 0.9, {1.0, infinity}).end, SearchEnd::NotFinite);
    EXPECT_EQ(widened(flat, 0.1, {1.0, 2.0}).end, SearchEnd::NotFinite) << "only downwards";
    const auto undefinedAbove = [](double x) { return x < 1.5 ? 0.0 : notANumber; };
    const auto stopped = widened(undefinedAbove, 0.5, {1.0, 2.0});
    EXPECT_EQ(stopped.end, SearchEnd::NotFinite);
    EXPECT_EQ(stopped.bracket.hi, 2.0) << "what is no number moves no end";
}

TEST(QuantileSearch, HalvingFindsThePoint)
{
    const auto result =
        bisected(uniformCdf, 0.3, {0.0, 1.0}, [](double c) { return std::abs(c - 0.3) < 1e-8; });
    EXPECT_EQ(result.end, SearchEnd::Found);
    EXPECT_TRUE(isNear(result.x, 0.3, 1e-8));
}

TEST(QuantileSearch, HalvingEndsWhenTheBracketIsClosed)
{
    // A step has no point at 0.5: the bracket closes on where it jumps.
    const auto step = [](double x) { return x < 0.7 ? 0.2 : 0.8; };
    const auto result = bisected(step, 0.5, {0.0, 1.0}, never);
    EXPECT_EQ(result.end, SearchEnd::Exhausted);
    EXPECT_TRUE(isRelativelyNear(result.x, 0.7, 1e-15));
    EXPECT_EQ(bisected(uniformCdf, 0.5, {0.5, 0.5}, never).end, SearchEnd::Exhausted);
    EXPECT_EQ(bisected(uniformCdf, 0.5, {1.0, 0.0}, never).end, SearchEnd::Exhausted);
}

TEST(QuantileSearch, HalvingEndsOnWhatIsNotFinite)
{
    EXPECT_EQ(bisected(uniformCdf, 0.5, {0.0, infinity}, never).end, SearchEnd::NotFinite);
    EXPECT_EQ(bisected(uniformCdf, 0.5, {notANumber, 1.0}, never).end, SearchEnd::NotFinite);
    const auto undefined = [](double) { return notANumber; };
    EXPECT_EQ(bisected(undefined, 0.5, {0.0, 1.0}, never).end, SearchEnd::NotFinite);
}
