// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The special functions below the distributions: gamma and beta, complete and incomplete.
///
/// The methods are the classic single-precision-table ones (Lanczos with six coefficients, series
/// and continued fractions stopped at 1e-8), as in Press, Flannery, Teukolsky and Vetterling,
/// Numerical Recipes (1986), chapter 6. They are kept to the letter, because the critical values in
/// the reports depend on them in the tenth digit. Everything is computed in double, so that no
/// compiler changes a digit.
///
/// Largest errors measured against Boost.Math:
///   LnGamma(x)               x = 0.5 .. 1000                  1.2e-10, relative above 1
///   IncompleteGammaP(a, x)   a = 0.5 .. 10, all x             2.5e-9
///   IncompleteBeta(a, b, x)  a = 0.5 .. 28, b = 0.5 .. 21     5e-10
namespace stats {

/// The logarithm of the gamma function for x > 0, 0.0 for any other x.
///
/// C. Lanczos, A precision approximation of the gamma function, SIAM J. Numer. Anal. B 1 (1964),
/// with gamma = 5 and six coefficients.
double LnGamma(double x);

/// A step of IncompleteGammaP(): the series of the lower incomplete gamma function, sum of x^k / (a
/// (a+1) ... (a+k)), k = 0, 1...
///
/// Converges for every x > 0, quickly for x < a + 1. Ends when a term is below 1e-8 of the sum, and
/// also when the sum is not a number or a is so large that adding 1 does not change it.
double GammaSeries(double a, double x);

/// A step of IncompleteGammaP(): the continued fraction of the upper function without its factor
/// exp(a ln x - x - LnGamma(a)); for x >= a + 1. At most 99 rounds.
double GammaContFrac(double a, double x);

/// The regularised lower incomplete gamma function P(a, x).
///
/// 0.0 for x <= 0 or a <= 0, and where either is not a number or a is infinite; 1.0 for an infinite
/// x.
double IncompleteGammaP(double a, double x);

/// A step of IncompleteBeta(): its continued fraction without the factor; it converges quickly
/// for x < (a + 1) / (a + b + 2). At most 100 rounds.
double BetaContFrac(double a, double b, double x);

/// The regularised incomplete beta function I_x(a, b), a and b > 0.
///
/// 0.0 for x < 0, 1.0 for x > 1; 0.0 where a or b is not positive or anything is not a number.
double IncompleteBeta(double a, double b, double x);

} // namespace stats
