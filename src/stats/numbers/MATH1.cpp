// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/MATH1.h"

#include <array>
#include <cmath>

namespace stats {

namespace {

/// Where series and continued fractions stop.
constexpr double seriesTolerance = 1e-8;

/// Lanczos' coefficients for gamma = 5 (Numerical Recipes, 1986, section 6.1).
constexpr std::array<double, 6> lanczos{76.18009173,  -86.50532033,  24.01409822,
                                        -1.231739516, 0.00120858003, -5.36382e-06};
constexpr double squareRootOfTwoPi = 2.50662827465;

} // namespace

double LnGamma(double x)
{
    if (!(x > 0.0))
        return 0.0;
    double sum = 1.0;
    for (int k = 0; k < static_cast<int>(lanczos.size()); ++k)
        sum += lanczos[static_cast<std::size_t>(k)] / (x + k);
    return (x - 0.5) * std::log(x + 4.5) - (x + 4.5) + std::log(squareRootOfTwoPi * sum);
}

double GammaSeries(double a, double x)
{
    double term = 1.0 / a;
    double sum = term;
    double denominator = a;
    while (denominator + 1.0 != denominator && std::isfinite(sum)) {
        denominator += 1.0;
        term = term * x / denominator;
        sum += term;
        if (term == 0.0 || std::abs(term) < std::abs(sum) * seriesTolerance)
            break;
    }
    return sum;
}

double GammaContFrac(double a, double x)
{
    constexpr int rounds = 99;
    double a0 = 1.0;
    double b0 = 0.0;
    double a1 = x;
    double b1 = 1.0;
    double factor = 1.0; // keeps both sequences near 1
    double previous = 0.0;
    for (int n = 1; n <= rounds; ++n) {
        const double ana = n - a;
        a0 = (a1 + a0 * ana) * factor;
        b0 = (b1 + b0 * ana) * factor;
        const double anf = n * factor;
        a1 = x * a0 + anf * a1;
        b1 = x * b0 + anf * b1;
        if (a1 != 0.0) {
            factor = 1.0 / a1;
            const double value = b1 * factor;
            if (std::abs((value - previous) / value) < seriesTolerance)
                return value;
            previous = value;
        }
    }
    return previous;
}

double IncompleteGammaP(double a, double x)
{
    if (!(x > 0.0) || !(a > 0.0) || std::isinf(a))
        return 0.0;
    if (std::isinf(x))
        return 1.0;
    const double factor = std::exp(a * std::log(x) - x - LnGamma(a));
    if (x < a + 1.0)
        return GammaSeries(a, x) * factor;
    if (factor == 0.0) // so far out that the fraction itself can overflow
        return 1.0;
    return 1.0 - GammaContFrac(a, x) * factor;
}

double BetaContFrac(double a, double b, double x)
{
    constexpr int rounds = 100;
    const double qab = a + b;
    const double qap = a + 1.0;
    const double qam = a - 1.0;
    double am = 1.0;
    double bm = 1.0;
    double az = 1.0;
    double bz = 1.0 - qab * x / qap;
    for (int m = 1; m <= rounds; ++m) {
        const double tem = 2.0 * m;
        double d = m * (b - m) * x / ((qam + tem) * (a + tem));
        const double ap = az + d * am;
        const double bp = bz + d * bm;
        d = -(a + m) * (qab + m) * x / ((a + tem) * (qap + tem));
        const double app = ap + d * az;
        const double bpp = bp + d * bz;
        const double previous = az;
        am = ap / bpp;
        bm = bp / bpp;
        az = app / bpp;
        bz = 1.0;
        if (std::abs(az - previous) < seriesTolerance * std::abs(az))
            break;
    }
    return az;
}

double IncompleteBeta(double a, double b, double x)
{
    if (!(a > 0.0) || !(b > 0.0) || std::isnan(x) || x < 0.0)
        return 0.0;
    if (x > 1.0)
        return 1.0;
    double factor = 0.0; // what it is at both ends
    if (x > 0.0 && x < 1.0) {
        factor = std::exp(LnGamma(a + b) - LnGamma(a) - LnGamma(b) + a * std::log(x) +
                          b * std::log(1.0 - x));
    }
    // The symmetric form where it is the one that converges quickly.
    if (x < (a + 1.0) / (a + b + 2.0))
        return factor * BetaContFrac(a, b, x) / a;
    return 1.0 - factor * BetaContFrac(b, a, 1.0 - x) / b;
}

} // namespace stats
