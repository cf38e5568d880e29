// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/STATIS.h"

#include "stats/numbers/Near.h"
#include "support/SpecialNumbers.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/normal.hpp>
#include <gsl/gsl_cdf.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <utility>
#include <vector>

namespace {

/// The search stops at |cdf - p| < 1e-8; the cumulative functions add their own error.
constexpr double quantileTolerance = 1.2e-8;
/// The error of the incomplete gamma and beta functions, which stop at 1e-8 of the last step.
constexpr double cdfTolerance = 3e-9;
/// Golden values are printed with 12 or 13 digits.
constexpr double goldenTolerance = 1e-12;

/// Position / 100 of the level's bar: every probability that a report can ask for.
std::vector<double> levels()
{
    std::vector<double> all;
    for (int position = 1; position <= 99; ++position)
        all.push_back(position / 100.0);
    return all;
}

/// Degrees of freedom of the tests on squares of order 2 to 8: F's and those of the rank tests.
std::set<std::pair<int, int>> reachableFDegrees()
{
    std::set<std::pair<int, int>> all;
    for (int n = 2; n <= 8; ++n) {
        if (n > 2)
            all.insert({n - 1, (n - 1) * (n - 2)});
        all.insert({n - 1, n * (n - 1)});
    }
    return all;
}

} // namespace

TEST(Distributions, TheReferencesAgreeWithEachOther)
{
    for (const auto& [df1, df2] : reachableFDegrees()) {
        for (double x = 0.05; x < 60.0; x *= 1.3) {
            EXPECT_TRUE(isNear(boost::math::cdf(boost::math::fisher_f(df1, df2), x),
                               gsl_cdf_fdist_P(x, df1, df2), 1e-12));
            EXPECT_TRUE(isNear(boost::math::cdf(boost::math::chi_squared(df1), x),
                               gsl_cdf_chisq_P(x, df1), 1e-12));
        }
    }
    for (double x = -6.0; x <= 6.0; x += 0.1)
        EXPECT_TRUE(
            isNear(boost::math::cdf(boost::math::normal(), x), gsl_cdf_ugaussian_P(x), 1e-14));
}

TEST(Distributions, FCdfAgreesWithTheReference)
{
    for (const auto& [df1, df2] : reachableFDegrees()) {
        for (double x = 0.001; x < 5000.0; x *= 1.1) {
            EXPECT_TRUE(isNear(stats::FCdf(df1, df2, x),
                               boost::math::cdf(boost::math::fisher_f(df1, df2), x), cdfTolerance))
                << df1 << ' ' << df2 << ' ' << x;
        }
    }
}

TEST(Distributions, ChiSquareCdfAgreesWithTheReference)
{
    for (int df = 1; df <= 20; ++df) {
        for (double x = 0.001; x < 200.0; x *= 1.1) {
            EXPECT_TRUE(isNear(stats::ChiSquareCdf(df, x),
                               boost::math::cdf(boost::math::chi_squared(df), x), cdfTolerance))
                << df << ' ' << x;
        }
    }
}

TEST(Distributions, NormalCdfAgreesWithTheReferenceAndIsSymmetric)
{
    for (double x = -9.0; x <= 9.0; x += 0.01) {
        EXPECT_TRUE(isNear(stats::NormalCdf(x), gsl_cdf_ugaussian_P(x), cdfTolerance)) << x;
        EXPECT_TRUE(isNear(stats::NormalCdf(-x), 1.0 - stats::NormalCdf(x), 1e-15)) << x;
    }
    EXPECT_EQ(stats::NormalCdf(0.0), 0.5);
}

TEST(Distributions, FQuantilesFromOneHalfOnAreQuantiles)
{
    for (const auto& [df1, df2] : reachableFDegrees()) {
        for (const double p : levels()) {
            if (p < 0.5)
                continue;
            const double x = stats::FQuantile(p, df1, df2);
            EXPECT_TRUE(
                isNear(boost::math::cdf(boost::math::fisher_f(df1, df2), x), p, quantileTolerance))
                << df1 << ' ' << df2 << ' ' << p;
            EXPECT_TRUE(isNear(gsl_cdf_fdist_P(x, df1, df2), p, quantileTolerance))
                << df1 << ' ' << df2 << ' ' << p;
        }
    }
}

TEST(Distributions, FQuantilesBelowOneHalfAreReciprocalsWithTheSameDegrees)
{
    for (const auto& [df1, df2] : reachableFDegrees()) {
        for (const double p : levels()) {
            if (p >= 0.5)
                continue;
            const double x = stats::FQuantile(p, df1, df2);
            EXPECT_EQ(x, 1.0 / stats::FQuantile(1.0 - p, df1, df2));
            EXPECT_TRUE(isNear(boost::math::cdf(boost::math::fisher_f(df1, df2), 1.0 / x), 1.0 - p,
                               quantileTolerance));
        }
    }
    // Not the quantile: the 0.3 point of F(2, 4) is 0.39, this one is 1 / (the 0.7 point).
    EXPECT_TRUE(isRelativelyNear(stats::FQuantile(0.3, 2, 4), 0.6055161234579, goldenTolerance));
    EXPECT_LT(gsl_cdf_fdist_Pinv(0.3, 2, 4), 0.4);
}

TEST(Distributions, ChiSquareQuantilesAreQuantiles)
{
    for (int df = 1; df <= 20; ++df) {
        for (const double p : levels()) {
            const double x = stats::ChiSquareQuantile(df, p);
            EXPECT_TRUE(
                isNear(boost::math::cdf(boost::math::chi_squared(df), x), p, quantileTolerance))
                << df << ' ' << p;
            EXPECT_TRUE(isNear(gsl_cdf_chisq_P(x, df), p, quantileTolerance)) << df << ' ' << p;
        }
    }
}

TEST(Distributions, NormalQuantilesAreQuantilesRelativeToP)
{
    for (const double p : levels()) {
        const double z = stats::NormalQuantile(p);
        // The search stops at 1e-8 p; the cumulative function adds its own error.
        const double tolerance = 1e-8 * p + 1e-9;
        EXPECT_TRUE(isNear(boost::math::cdf(boost::math::normal(), z), p, tolerance)) << p;
        EXPECT_TRUE(isNear(gsl_cdf_ugaussian_P(z), p, tolerance)) << p;
        // The bound of the approximation as it was published.
        EXPECT_TRUE(isNear(stats::NormalQuantileEstimate(p), z, 4.6e-4)) << p;
    }
}

TEST(Distributions, GoldenValuesOfTheMethodItself)
{
    // Not the distributions' own points: they differ from these in the ninth digit, where the
    // bisection stops. They are reproducible to the last bits because every step is.
    EXPECT_TRUE(isRelativelyNear(stats::FQuantile(0.95, 2, 2), 19.0000018551, goldenTolerance));
    EXPECT_TRUE(isRelativelyNear(stats::FQuantile(0.95, 2, 6), 5.14325279155, goldenTolerance));
    EXPECT_TRUE(isRelativelyNear(stats::FQuantile(0.95, 5, 20), 2.71088973232, goldenTolerance));
    EXPECT_TRUE(
        isRelativelyNear(stats::ChiSquareQuantile(2, 0.95), 5.99146458405, goldenTolerance));
    EXPECT_TRUE(isRelativelyNear(stats::NormalQuantile(0.95), 1.64485370908, goldenTolerance));
}

TEST(Distributions, TableValuesAsPrinted)
{
    EXPECT_TRUE(isRelativelyNear(stats::FQuantile(0.95, 2, 2), 19.0, 1.1e-7));
    EXPECT_TRUE(isNear(stats::FQuantile(0.95, 5, 20), 2.7109, 5e-5));
    EXPECT_TRUE(isNear(stats::FQuantile(0.99, 4, 12), 5.4120, 5e-5));
    EXPECT_TRUE(isNear(stats::ChiSquareQuantile(2, 0.95), 5.9915, 5e-5));
    EXPECT_TRUE(isNear(stats::ChiSquareQuantile(1, 0.5), 0.4549, 5e-5));
    EXPECT_TRUE(isNear(stats::NormalQuantile(0.975), 1.9600, 5e-5));
}

TEST(Distributions, TheMiddleOfTheNormalIsFoundFromItsEstimate)
{
    EXPECT_TRUE(isNear(stats::NormalQuantileEstimate(0.5), 0.0, 4.5e-4));
    EXPECT_TRUE(isNear(stats::NormalCdf(stats::NormalQuantile(0.5)), 0.5, 0.5e-8));
}

TEST(Distributions, ChiSquareEstimateIsNeverNegative)
{
    for (int df = 1; df <= 7; ++df) {
        for (const double p : {1e-12, 1e-6, 0.001, 0.01, 0.5, 0.99})
            EXPECT_GE(stats::ChiSquareQuantileEstimate(df, p), 0.0);
    }
    EXPECT_EQ(stats::ChiSquareQuantileEstimate(1, 1e-6), 0.0);
    // The 0.95 point is 14.0671; the cube-root estimate is good to two parts in a thousand there.
    EXPECT_TRUE(isRelativelyNear(stats::ChiSquareQuantileEstimate(7, 0.95), 14.0671, 2e-3));
}

TEST(Distributions, GiveZeroOutsideTheirDomain)
{
    for (const double p : {0.0, 1.0, -0.5, 1.5, notANumber, infinity, -infinity}) {
        EXPECT_EQ(stats::NormalQuantileEstimate(p), 0.0) << p;
        EXPECT_EQ(stats::NormalQuantile(p), 0.0) << p;
        EXPECT_EQ(stats::ChiSquareQuantileEstimate(3, p), 0.0) << p;
        EXPECT_EQ(stats::ChiSquareQuantile(3, p), 0.0) << p;
        EXPECT_EQ(stats::FQuantile(p, 2, 6), 0.0) << p;
    }
    for (const int df : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(stats::ChiSquareQuantileEstimate(df, 0.5), 0.0) << df;
        EXPECT_EQ(stats::ChiSquareQuantile(df, 0.5), 0.0) << df;
        EXPECT_EQ(stats::FQuantile(0.95, df, 4), 0.0) << df;
        EXPECT_EQ(stats::FQuantile(0.95, 4, df), 0.0) << df;
        EXPECT_EQ(stats::ChiSquareCdf(df, 1.0), 0.0) << df;
        EXPECT_EQ(stats::FCdf(df, 4, 1.0), 0.0) << df;
        EXPECT_EQ(stats::FCdf(4, df, 1.0), 0.0) << df;
    }
    for (const double x : {0.0, -1.0, -infinity, notANumber}) {
        EXPECT_EQ(stats::ChiSquareCdf(3, x), 0.0) << x;
        EXPECT_EQ(stats::FCdf(3, 4, x), 0.0) << x;
    }
    EXPECT_EQ(stats::NormalCdf(notANumber), 0.0);
}

TEST(Distributions, ReachTheirLimits)
{
    EXPECT_EQ(stats::NormalCdf(-infinity), 0.0);
    EXPECT_EQ(stats::NormalCdf(infinity), 1.0);
    EXPECT_EQ(stats::ChiSquareCdf(3, infinity), 1.0);
    EXPECT_EQ(stats::FCdf(3, 4, infinity), 1.0);
    EXPECT_EQ(stats::FCdf(3, 4, 1e308), 1.0);
    EXPECT_TRUE(isNear(stats::FCdf(3, 4, 1e-300), 0.0, 1e-9));
}

TEST(Distributions, QuantilesComeBackFromAnywhere)
{
    // The far tails, where doubles cannot meet the tolerance, and degrees of freedom of squares
    // that only a file can bring: the searches end with something finite.
    for (const double p : {5e-324, 1e-300, 1e-17, 1e-9, 1e-8, 1.0 - 1e-9, 1.0 - 1e-15,
                           std::nextafter(1.0, 0.0), std::nextafter(0.5, 0.0), 0.5}) {
        EXPECT_TRUE(std::isfinite(stats::NormalQuantile(p))) << p;
        for (const int df : {1, 2, 7, 19, 380, 10000, std::numeric_limits<int>::max()}) {
            EXPECT_TRUE(std::isfinite(stats::ChiSquareQuantile(df, p))) << p << ' ' << df;
            for (const int df2 : {1, 6, 342, 9702, std::numeric_limits<int>::max()}) {
                EXPECT_GE(stats::FQuantile(p, df, df2), 0.0) << p << ' ' << df << ' ' << df2;
            }
        }
    }
}
