// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/Estad.h"

#include "stats/Squares.h"
#include "support/Golden.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

namespace {

class FTest : public ::testing::Test {
protected:
    static std::string report(const stats::TMatrix& square, int n, double alpha)
    {
        return stats::FTest(square, n, alpha).join(QLatin1Char('\n')).toStdString() + '\n';
    }

private:
    UserLocale m_point{"C"};
};

const QString exceptionStart = QStringLiteral("**** EXCEPCION : La varianza del error es 0");

} // namespace

TEST_F(FTest, ReportsThePropellantSquare)
{
    EXPECT_TRUE(
        matchesGolden("stats/data/f_propelente_95.txt", report(propellantSquare(), 5, 0.05)));
    EXPECT_TRUE(
        matchesGolden("stats/data/f_propelente_99.txt", report(propellantSquare(), 5, 0.01)));
}

TEST_F(FTest, ReportsTheAssemblySquare)
{
    EXPECT_TRUE(matchesGolden("stats/data/f_montaje_95.txt", report(assemblySquare(), 4, 0.05)));
}

TEST_F(FTest, NumbersCarryTheUsersSeparator)
{
    const UserLocale spanish("es_ES");
    EXPECT_TRUE(
        matchesGolden("stats/data/f_propelente_95_coma.txt", report(propellantSquare(), 5, 0.05)));
}

TEST_F(FTest, WideValuesPushTheRestOfTheirLine)
{
    const stats::TMatrix square =
        squareOf({{1234.5, 20, 3}, {-712.25, 14, 9876.5}, {0.125, 0.25, 1000}});
    EXPECT_TRUE(matchesGolden("stats/data/f_ancho_95.txt", report(square, 3, 0.05)));
}

TEST_F(FTest, WithoutErrorVarianceTheReportEndsAfterSayingSo)
{
    const QStringList lines = stats::FTest(squareFrom(4, [](int, int) { return 12.0; }), 4, 0.05);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], QStringLiteral("                 Análisis de Covarianza (Enfoque Clásico) "
                                       "                "));
    EXPECT_EQ(lines[1], QStringLiteral(" "));
    EXPECT_EQ(lines[2], exceptionStart +
                            QStringLiteral(", no se pueden calcular estadísticas. La hipótesis se "
                                           "rechaza con alpha = 0"));
}

TEST_F(FTest, DataTooSmallForTheirSquaresStillGetATable)
{
    const QStringList lines = stats::FTest(
        squareFrom(3, [](int column, int row) { return 1e-200 * (column + row * row * column); }),
        3, 0.05);
    EXPECT_EQ(lines.size(), 13);
}

TEST_F(FTest, OrdersThatOnlyAFileCanBring)
{
    for (const int n : {1, 2}) {
        const QStringList lines = stats::FTest(
            squareFrom(n, [](int column, int row) { return column + 2.0 * row; }), n, 0.05);
        ASSERT_EQ(lines.size(), 13) << n;
        EXPECT_TRUE(lines[7].endsWith(QStringLiteral("    NAN            0"))) << n;
        EXPECT_TRUE(lines[8].startsWith(QStringLiteral("Error            0"))) << n;
        EXPECT_TRUE(lines[8].endsWith(QStringLiteral("    NAN"))) << n;
    }
    for (const int n : {7, 8, 20, 100}) {
        const QStringList lines = stats::FTest(
            squareFrom(n, [](int column, int row) { return column * row % 7 + 0.5 * column; }), n,
            0.05);
        EXPECT_EQ(lines.size(), 13) << n;
        EXPECT_FALSE(lines.join(QLatin1Char(' ')).contains(QStringLiteral("NAN"))) << n;
    }
}

TEST(TestKind, TestsAreGroupedByApproachWithTheirCaptions)
{
    using namespace stats;
    QStringList seen;
    for (const Approach approach : approaches()) {
        seen << caption(approach);
        for (const TestKind kind : testsOf(approach))
            seen << QStringLiteral("  ") + caption(kind);
    }
    EXPECT_EQ(seen.join(QLatin1Char('\n')),
              QStringLiteral("Clásico\n  Prueba F\n"
                             "Rangos\n  Zimmerman (F)\n  Bennett (Chi-2)\n"
                             "Secuencias\n  Prueba C (Exacta -> Normal)\n"
                             "  Prueba M (Exacta -> F)"));
}
