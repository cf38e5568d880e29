// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/ReportBasis.h"

#include "support/Text.h"

#include <gtest/gtest.h>

namespace {

stats::TMatrix observed(double first)
{
    stats::TMatrix matrix = stats::TMatrix::Create(3, 3);
    matrix.Elem(1, 1, first);
    return matrix;
}

std::string notice(const analysis::ReportBasis& now)
{
    const analysis::ReportBasis reported{stats::Approach::Sequences, stats::TestKind::C, 0.05,
                                         observed(1)};
    return analysis::staleNotice(reported, now).toStdString();
}

} // namespace

TEST(ReportBasis, TellsWhatChanged)
{
    using enum stats::Approach;
    using enum stats::TestKind;
    EXPECT_EQ(notice({Sequences, C, 0.05, observed(1)}), "");
    EXPECT_EQ(notice({Sequences, C, 0.05, observed(2)}), "Cambiaron los datos: pulse Analizar");
    EXPECT_EQ(notice({Sequences, M, 0.05, observed(1)}), "Cambió la prueba: pulse Analizar");
    EXPECT_EQ(notice({Ranks, Bennett, 0.05, observed(1)}), "Cambió el enfoque: pulse Analizar");
    EXPECT_EQ(notice({Sequences, C, 0.01, observed(1)}), "Cambió el nivel: pulse Analizar");
    EXPECT_EQ(notice({Sequences, M, 0.01, observed(1)}),
              "Cambiaron la prueba y el nivel: pulse Analizar");
    EXPECT_EQ(notice({Classical, F, 0.01, observed(2)}),
              "Cambiaron los datos, el enfoque y el nivel: pulse Analizar");
}

TEST(ReportBasis, AnotherSizeIsOtherData)
{
    EXPECT_EQ(notice({stats::Approach::Sequences, stats::TestKind::C, 0.05,
                      stats::TMatrix::Create(4, 4)}),
              "Cambiaron los datos: pulse Analizar");
}
