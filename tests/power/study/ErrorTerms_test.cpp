// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/ErrorTerms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace power {
namespace {

TEST(ErrorTerms, Uniform)
{
    EXPECT_EQ(ErrorDraw(ErrorKind::Uniform, 0.0, 0.0), 0.0);
    EXPECT_EQ(ErrorDraw(ErrorKind::Uniform, 1.0, 0.0), 1.0);
    EXPECT_EQ(ErrorDraw(ErrorKind::Uniform, 0.25, 1.5), 1.75);
}

TEST(ErrorTerms, ExponentialTakesTheCommonLogarithm)
{
    EXPECT_EQ(ErrorDraw(ErrorKind::Exponential, 1.0, 0.0), 0.0);
    EXPECT_EQ(ErrorDraw(ErrorKind::Exponential, 0.1, 0.0), 1.0);
    EXPECT_EQ(ErrorDraw(ErrorKind::Exponential, 0.01, 0.5), 2.5);
    EXPECT_EQ(ErrorDraw(ErrorKind::Exponential, 0.0, 0.5), std::numeric_limits<double>::infinity());
}

TEST(ErrorTerms, Triangular)
{
    EXPECT_EQ(ErrorDraw(ErrorKind::Triangular, 1.0, 0.0), 0.0);
    EXPECT_EQ(ErrorDraw(ErrorKind::Triangular, 0.0, 0.0), 1.0);
    EXPECT_EQ(ErrorDraw(ErrorKind::Triangular, 0.25, 2.0), 2.5);
}

TEST(ErrorTerms, AnyOtherKindIsFatal)
{
    EXPECT_THROW(ErrorDraw(static_cast<ErrorKind>(3), 0.5, 0.0), ImpossibleSetting);
    EXPECT_THROW(ErrorDraw(static_cast<ErrorKind>(255), 0.5, 0.0), ImpossibleSetting);
}

} // namespace
} // namespace power
