// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/MATH1.h"

#include "stats/numbers/Near.h"
#include "support/SpecialNumbers.h"

#include <boost/math/special_functions/beta.hpp>
#include <boost/math/special_functions/gamma.hpp>
#include <gsl/gsl_sf_gamma.h>
#include <gtest/gtest.h>

namespace {

/// The error of Lanczos' six coefficients as printed (1.2e-10 measured), relative above 1.
constexpr double lanczosError = 1.5e-10;
/// Series and continued fraction stop at 1e-8 of the last step; what is left is smaller, because
/// each step is smaller than the one before (2.5e-9 and 5e-10 measured).
constexpr double gammaError = 3e-9;
constexpr double betaError = 6e-10;

} // namespace

TEST(MathRoutines, LnGammaAgreesWithReferences)
{
    for (double x = 0.5; x <= 1000.0; x += 0.5) {
        const double expected = boost::math::lgamma(x);
        ASSERT_TRUE(isNear(gsl_sf_lngamma(x), expected, 1e-12 * (1.0 + std::abs(expected))));
        const double tolerance = lanczosError * std::max(1.0, std::abs(expected));
        EXPECT_TRUE(isNear(stats::LnGamma(x), expected, tolerance)) << "x = " << x;
    }
}

TEST(MathRoutines, LnGammaFollowsItsRecurrence)
{
    for (double x = 0.25; x < 30.0; x += 0.25) {
        EXPECT_TRUE(isNear(stats::LnGamma(x + 1.0), stats::LnGamma(x) + std::log(x),
                           2 * lanczosError * (1.0 + std::abs(stats::LnGamma(x)))))
            << "x = " << x;
    }
}

TEST(MathRoutines, LnGammaIsZeroOutsideItsDomain)
{
    EXPECT_EQ(stats::LnGamma(0.0), 0.0);
    EXPECT_EQ(stats::LnGamma(-1.5), 0.0);
    EXPECT_EQ(stats::LnGamma(notANumber), 0.0);
}

TEST(MathRoutines, IncompleteGammaAgreesWithReferences)
{
    for (double a = 0.5; a <= 10.0; a += 0.5) {
        for (double x = 0.01; x < 60.0; x *= 1.07) {
            const double expected = boost::math::gamma_p(a, x);
            ASSERT_TRUE(isNear(gsl_sf_gamma_inc_P(a, x), expected, 1e-12));
            EXPECT_TRUE(isNear(stats::IncompleteGammaP(a, x), expected, gammaError))
                << "a = " << a << ", x = " << x;
        }
    }
}

TEST(MathRoutines, IncompleteGammaMeetsItselfWhereSeriesAndFractionMeet)
{
    for (double a = 0.5; a <= 10.0; a += 0.5) {
        const double below = stats::IncompleteGammaP(a, std::nextafter(a + 1.0, 0.0));
        EXPECT_TRUE(isNear(stats::IncompleteGammaP(a, a + 1.0), below, 2 * gammaError))
            << "a = " << a;
    }
}

TEST(MathRoutines, IncompleteGammaAtTheEdges)
{
    EXPECT_EQ(stats::IncompleteGammaP(2.0, 0.0), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(2.0, -1.0), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(0.0, 1.0), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(-1.0, 1.0), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(notANumber, 1.0), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(1.0, notANumber), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(infinity, 1.0), 0.0);
    EXPECT_EQ(stats::IncompleteGammaP(1.0, infinity), 1.0);
    EXPECT_EQ(stats::IncompleteGammaP(1.0, 1e300), 1.0);
}

TEST(MathRoutines, TheSeriesEndsWhateverItIsGiven)
{
    // Each of these would otherwise add terms for ever.
    EXPECT_EQ(stats::GammaSeries(infinity, 1.0), 0.0);
    EXPECT_TRUE(std::isinf(stats::GammaSeries(0.0, 1.0)));
    EXPECT_TRUE(std::isnan(stats::GammaSeries(notANumber, 1.0)));
    EXPECT_TRUE(std::isnan(stats::GammaSeries(1.0, notANumber)));
    EXPECT_FALSE(std::isfinite(stats::GammaSeries(1.0, infinity)));
    EXPECT_EQ(stats::GammaSeries(1.0, 0.0), 1.0);
    EXPECT_EQ(stats::GammaSeries(1e17, 1e17), 1e-17);
}

TEST(MathRoutines, TheSeriesIsTheOneOfTheExponentialForAOfOne)
{
    // P(1, x) = 1 - exp(-x), so the series is (exp(x) - 1) / x.
    for (double x = 0.1; x < 5.0; x += 0.1)
        EXPECT_TRUE(isRelativelyNear(stats::GammaSeries(1.0, x), std::expm1(x) / x, 1e-8));
}

TEST(MathRoutines, TheContinuedFractionIsTheOneOfTheExponentialForAOfOne)
{
    // Gamma(1, x) = exp(-x), so the fraction is 1 / x. The method stops at 1e-8 between rounds.
    for (double x = 2.0; x < 50.0; x += 0.5)
        EXPECT_TRUE(isRelativelyNear(stats::GammaContFrac(1.0, x), 1.0 / x, 1e-8));
    // At 0 every round divides by 0, and none of them counts.
    EXPECT_EQ(stats::GammaContFrac(1.0, 0.0), 0.0);
}

TEST(MathRoutines, IncompleteBetaAgreesWithReferences)
{
    for (double a = 0.5; a <= 10.0; a += 0.5) {
        for (double b = 0.5; b <= 21.0; b += 0.5) {
            for (double x = 0.01; x < 1.0; x += 0.01) {
                EXPECT_TRUE(
                    isNear(stats::IncompleteBeta(a, b, x), boost::math::ibeta(a, b, x), betaError))
                    << "a = " << a << ", b = " << b << ", x = " << x;
            }
        }
    }
}

TEST(MathRoutines, IncompleteBetaIsSymmetric)
{
    for (double a = 0.5; a <= 6.0; a += 0.5) {
        for (double b = 0.5; b <= 6.0; b += 0.5) {
            for (double x = 0.05; x < 1.0; x += 0.05) {
                EXPECT_TRUE(isNear(stats::IncompleteBeta(a, b, x),
                                   1.0 - stats::IncompleteBeta(b, a, 1.0 - x), 2 * betaError));
            }
        }
    }
}

TEST(MathRoutines, IncompleteBetaAtTheEdges)
{
    EXPECT_EQ(stats::IncompleteBeta(2.0, 3.0, 0.0), 0.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, 3.0, 1.0), 1.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, 3.0, -0.1), 0.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, 3.0, 1.1), 1.0);
    EXPECT_EQ(stats::IncompleteBeta(0.0, 3.0, 0.5), 0.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, 0.0, 0.5), 0.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, -1.0, 0.5), 0.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, notANumber, 0.5), 0.0);
    EXPECT_EQ(stats::IncompleteBeta(2.0, 3.0, notANumber), 0.0);
}
