// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

/// The two searches behind every quantile: widening a bracket and halving it.
///
/// Both say how they ended, and neither can run for ever: a bracket of doubles can only grow until
/// it is infinite and only shrink until its ends are neighbours.
namespace stats {

struct Bracket {
    double lo = 0.0;
    double hi = 0.0;
};

enum class SearchEnd {
    Found,     ///< The condition of the search is met.
    Exhausted, ///< The bracket could not move any more; the last point is the best there is.
    NotFinite, ///< The bracket or the function left the finite numbers.
};

struct WidenedBracket {
    Bracket bracket;
    SearchEnd end = SearchEnd::Found;
};

struct FoundPoint {
    double x = 0.0;
    SearchEnd end = SearchEnd::Found;
};

/// Widens `bracket` until cdf(lo) < p < cdf(hi), both strictly.
///
/// An end on the wrong side, equality included, moves outward by half the bracket's width: `lo`
/// first, `hi` by half the width after that move. At the end the last point that lay on the wrong
/// side becomes the bracket's other end: it is as valid as the first one, and closer. (A last point
/// of exactly 0 counts as none.)
template <typename Cdf>
WidenedBracket widened(const Cdf& cdf, double p, Bracket bracket)
{
    double lastAbove = 0.0;
    double lastBelow = 0.0;
    for (;;) {
        const Bracket before = bracket;
        const double atLo = cdf(bracket.lo);
        const double atHi = cdf(bracket.hi);
        if (atLo < p && atHi > p)
            break;
        if (!std::isfinite(atLo) || !std::isfinite(atHi))
            return {bracket, SearchEnd::NotFinite};
        if (atLo >= p) {
            lastAbove = bracket.lo;
            bracket.lo -= std::abs(bracket.hi - bracket.lo) / 2.0;
        }
        if (atHi <= p) {
            lastBelow = bracket.hi;
            bracket.hi += std::abs(bracket.hi - bracket.lo) / 2.0;
        }
        if (!std::isfinite(bracket.lo) || !std::isfinite(bracket.hi))
            return {bracket, SearchEnd::NotFinite};
        if (bracket.lo == before.lo && bracket.hi == before.hi)
            return {bracket, SearchEnd::Exhausted};
    }
    if (lastAbove != 0.0)
        bracket.hi = lastAbove;
    if (lastBelow != 0.0)
        bracket.lo = lastBelow;
    return {bracket, SearchEnd::Found};
}

/// Halves `bracket` until `isClose(cdf(mid))` and gives that mid.
///
/// A mid whose cdf is at most p becomes the new `lo`, any other the new `hi`.
template <typename Cdf, typename IsClose>
FoundPoint bisected(const Cdf& cdf, double p, Bracket bracket, const IsClose& isClose)
{
    for (;;) {
        const double mid = (bracket.lo + bracket.hi) / 2.0;
        const double atMid = cdf(mid);
        if (!std::isfinite(mid) || !std::isfinite(atMid))
            return {mid, SearchEnd::NotFinite};
        if (isClose(atMid))
            return {mid, SearchEnd::Found};
        double& movedEnd = atMid <= p ? bracket.lo : bracket.hi;
        if (movedEnd == mid)
            return {mid, SearchEnd::Exhausted};
        movedEnd = mid;
    }
}

} // namespace stats
