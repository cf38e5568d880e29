// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/words/Estad.h"

#include "stats/numbers/Squares.h"
#include "stats/numbers/TypedSquares.h"
#include "support/Golden.h"
#include "support/Sanitizers.h"
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

using Fraction = boost::multiprecision::cpp_rational;

/// The pattern "#.##" of an exact number: two decimals, rounded half away from zero.
QString patternText(const Fraction& value)
{
    using boost::multiprecision::cpp_int;
    const Fraction doubled = abs(value) * 200 + 1; // twice the hundredths, and one half
    const cpp_int hundredths = numerator(doubled) / (denominator(doubled) * 2);
    std::string decimals = cpp_int(hundredths % 100 + 100).str().substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    const cpp_int whole = hundredths / 100;
    if (hundredths == 0)
        return QStringLiteral("0");
    return QString::fromStdString((value < 0 ? "-" : "") + (whole == 0 ? "" : whole.str()) +
                                  (decimals.empty() ? "" : '.' + decimals));
}

/// The numbers of a line of the table, behind its label and without its mark.
QStringList numbersOf(const QString& line)
{
    QStringList numbers = line.mid(16).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    numbers.removeAll(QStringLiteral("*"));
    return numbers;
}

/// The numbers that the table of an analysis must have, line by line, critical values left out.
QList<QStringList> exactTable(const TypedSquare& square)
{
    const ExactAnova exact(square);
    const int n = square.n;
    const Fraction errorMean = exact.error / ((n - 1) * (n - 2));
    const auto source = [&](const Fraction& sum) {
        const Fraction mean = sum / (n - 1);
        return QStringList{QString::number(n - 1), patternText(sum), patternText(mean),
                           patternText(mean / errorMean)};
    };
    return {
        source(exact.rows),
        source(exact.columns),
        source(exact.treatments),
        {QString::number((n - 1) * (n - 2)), patternText(exact.error), patternText(errorMean)},
        {QString::number(n * n - 1), patternText(exact.total)},
    };
}

/// Compares every number of the report with the exact one. @return how many numbers were compared
int comparedNumbers(const TypedSquare& square)
{
    const QStringList lines = stats::FTest(square.doubles, square.n, 0.05);
    if (ExactAnova(square).error == 0) {
        EXPECT_EQ(lines.size(), 3);
        return 0;
    }
    const QList<QStringList> expected = exactTable(square);
    int compared = 0;
    for (int k = 0; k < expected.size(); ++k) {
        constexpr int firstSource = 5;
        const int line = k < 4 ? firstSource + k : firstSource + k + 1; // the rule between
        EXPECT_EQ(numbersOf(lines.at(line)).mid(0, expected.at(k).size()), expected.at(k))
            << lines.at(line).toStdString();
        compared += static_cast<int>(expected.at(k).size()) - 1;
    }
    return compared;
}

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

TEST_F(FTest, RoundsTheExactNumberAndNotTheDoubleBesideIt)
{
    const TypedSquare square = typedSquare(
        4, 1, {413, 347, 323, 175, 334, 289, 197, 135, 303, 304, 282, 222, 215, 274, 150, 89});
    const QStringList lines = stats::FTest(square.doubles, 4, 0.05);
    EXPECT_EQ(numbersOf(lines[5])[1], QStringLiteral("385.55")); // exactly 385.545
    EXPECT_EQ(numbersOf(lines[8])[1], QStringLiteral("65.41"));  // exactly 65.405
    comparedNumbers(square);
}

TEST_F(FTest, EveryNumberIsTheExactOneRoundedOnce)
{
    // One, two and no decimals; at order 4 many sums of squares end in an exact half.
    constexpr int squares = isSanitized ? 50 : 3800;
    std::mt19937_64 generator(2026);
    int compared = 0;
    for (int n = 3; n <= 6; ++n) {
        for (int decimals = 0; decimals <= 2; ++decimals) {
            for (const std::int64_t range : {20, 600}) {
                for (int k = 0; k < squares; ++k) {
                    compared +=
                        comparedNumbers(randomTypedSquare(n, decimals, 0, range, generator));
                    if (HasFailure())
                        return;
                }
            }
        }
    }
    EXPECT_GE(compared, isSanitized ? 10000 : 1000000);
}

TEST_F(FTest, NumbersBehindTwelveConstantDigitsAreExact)
{
    std::mt19937_64 generator(9);
    for (int n = 3; n <= 6; ++n) {
        for (int k = 0; k < 100; ++k)
            comparedNumbers(randomTypedSquare(n, 1, 10000000000000, 10, generator));
    }
}

TEST_F(FTest, SumsBeyondTheDoublesAreWrittenInTheGeneralForm)
{
    const QStringList lines =
        stats::FTest(squareOf({{1e300, 0, 0}, {0, 2e300, 0}, {0, 0, 4e300}}), 3, 0.05);
    // Rows 21 / 3, correction 49 / 9.
    EXPECT_EQ(numbersOf(lines[5])[1], QStringLiteral("1.55555555555556E600"));
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
    for (const int n : {1, 2}) { // no error degrees of freedom: neither F nor a critical value
        const QStringList lines = stats::FTest(
            squareFrom(n, [](int column, int row) { return column + 2.0 * row; }), n, 0.05);
        ASSERT_EQ(lines.size(), 13) << n;
        EXPECT_TRUE(lines[7].endsWith(QStringLiteral("    NAN          NAN"))) << n;
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
    for (const stats::Approach approach : approaches()) {
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
