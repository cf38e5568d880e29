// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/STATIS.h"

#include "stats/numbers/MATH1.h"
#include "stats/numbers/QuantileSearch.h"

#include <algorithm>
#include <cmath>

namespace stats {

namespace {

constexpr double tolerance = 1e-8;

/// Keeps the bracket around an estimate near 0 from having no width.
constexpr double leastHalfWidthBase = 0.1;

bool isProbability(double p)
{
    return p > 0.0 && p < 1.0;
}

/// estimate -+ share x |estimate|, with |estimate| raised to 0.1 where it is smaller.
Bracket bracketAround(double estimate, double share)
{
    const double d = std::max(std::abs(estimate), leastHalfWidthBase);
    return {estimate - share * d, estimate + share * d};
}

double resultOf(const FoundPoint& found)
{
    return found.end == SearchEnd::NotFinite ? 0.0 : found.x;
}

/// Widening and bisection with the absolute tolerance; 0.0 where no bracket holds p.
template <typename Cdf>
double quantileFrom(const Cdf& cdf, double p, const Bracket& start)
{
    const WidenedBracket around = widened(cdf, p, start);
    if (around.end != SearchEnd::Found)
        return 0.0;
    return resultOf(
        bisected(cdf, p, around.bracket, [p](double c) { return std::abs(c - p) < tolerance; }));
}

double fQuantileEstimate(double p, int df1, int df2)
{
    const double z = NormalQuantile(p);
    const double inverse1 = 1.0 / df1;
    const double inverse2 = 1.0 / df2;
    const double h = 2.0 / (inverse1 + inverse2);
    const double lambda = (z * z - 3.0) / 6.0;
    const double w = z * std::sqrt(h + lambda) / h -
                     (inverse1 - inverse2) * (lambda + 5.0 / 6.0 - 2.0 / (3.0 * h));
    return std::exp(2.0 * w);
}

} // namespace

double NormalCdf(double x)
{
    if (std::isnan(x))
        return 0.0;
    const double p = IncompleteGammaP(0.5, x * x / 2.0);
    return x > 0.0 ? (1.0 + p) / 2.0 : (1.0 - p) / 2.0;
}

double NormalQuantileEstimate(double p)
{
    if (!isProbability(p))
        return 0.0;
    const double q = p >= 0.5 ? p : 1.0 - p;
    const double t = std::sqrt(-2.0 * std::log(1.0 - q));
    const double z = t - (2.515517 + 0.802853 * t + 0.010328 * t * t) /
                             (1.0 + 1.432788 * t + 0.189269 * t * t + 0.001308 * t * t * t);
    return p >= 0.5 ? z : -z;
}

double NormalQuantile(double p)
{
    if (!isProbability(p))
        return 0.0;
    // The estimate's error is far inside this bracket: it needs no widening.
    const Bracket bracket = bracketAround(NormalQuantileEstimate(p), 0.1);
    return resultOf(
        bisected(NormalCdf, p, bracket, [p](double c) { return std::abs(c - p) / p < tolerance; }));
}

double ChiSquareCdf(int df, double x)
{
    if (df < 1)
        return 0.0;
    return IncompleteGammaP(df / 2.0, x / 2.0);
}

double ChiSquareQuantileEstimate(int df, double p)
{
    if (!isProbability(p) || df < 1)
        return 0.0;
    const double v = 2.0 / (9.0 * df);
    const double root = 1.0 - v + NormalQuantile(p) * std::sqrt(v);
    return std::max(df * (root * root * root), 0.0);
}

double ChiSquareQuantile(int df, double p)
{
    if (!isProbability(p) || df < 1)
        return 0.0;
    const auto cdf = [df](double x) { return ChiSquareCdf(df, x); };
    return quantileFrom(cdf, p, bracketAround(ChiSquareQuantileEstimate(df, p), 0.2));
}

double FCdf(int df1, int df2, double x)
{
    if (df1 < 1 || df2 < 1 || !(x > 0.0))
        return 0.0;
    return 1.0 - IncompleteBeta(df2 / 2.0, df1 / 2.0, df2 / (df2 + df1 * x));
}

double FQuantile(double p, int df1, int df2)
{
    if (!isProbability(p) || df1 < 1 || df2 < 1)
        return 0.0;
    const bool inverted = p < 0.5;
    const double upper = inverted ? 1.0 - p : p;
    const auto cdf = [df1, df2](double x) { return FCdf(df1, df2, x); };
    const double estimate = fQuantileEstimate(upper, df1, df2);
    const Bracket start{std::max(estimate - 0.1 * estimate, 0.0), estimate + 0.1 * estimate};
    const double x = quantileFrom(cdf, upper, start);
    return inverted ? 1.0 / x : x;
}

} // namespace stats
