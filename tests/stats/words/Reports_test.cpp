// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/words/Estad.h"

#include "base/NumberText.h"
#include "stats/numbers/RankStatistics.h"
#include "stats/numbers/STATIS.h"
#include "stats/numbers/SequenceTests.h"
#include "stats/numbers/SimulatedSquares.h"
#include "stats/numbers/Squares.h"
#include "support/Golden.h"
#include "support/Sanitizers.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

using base::generalText;
using stats::TestKind;
using stats::TMatrix;

namespace {

/// What a sequence test hands back besides its lines.
struct Exact {
    stats::ExactValues values{};
    bool available = false;
    int count = -1;
    QString title;
};

QStringList reportOf(TestKind kind, const TMatrix& square, int n, double alpha, Exact& exact)
{
    switch (kind) {
    case TestKind::F:
        return stats::FTest(square, n, alpha);
    case TestKind::Zimmerman:
        return stats::ZimmermanTest(square, n, alpha);
    case TestKind::Bennett:
        return stats::BennettTest(square, n, alpha);
    case TestKind::C:
        return stats::TestC(square, n, alpha, exact.values, exact.available, exact.count,
                            exact.title);
    case TestKind::M:
        break;
    }
    return stats::TestM(square, n, alpha, exact.values, exact.available, exact.count, exact.title);
}

QStringList reportOf(TestKind kind, const TMatrix& square, int n, double alpha)
{
    Exact ignored;
    return reportOf(kind, square, n, alpha, ignored);
}

struct NamedSquare {
    std::string name;
    int n = 0;
    TMatrix square;
};

/// Orders 3 to 6, each without ties and with ties. The made-up ones are in no book.
std::vector<NamedSquare> goldenSquares()
{
    return {
        {"orden3_distintos", 3, squareOf({{12.5, 14, 9.75}, {11, 10.2, 16.1}, {8.3, 12, 13}})},
        {"orden3_empates", 3, squareOf({{4, 5, 4}, {6, 4, 5}, {5, 7, 4}})},
        {"orden4_distintos", 4,
         squareOf({{2.5, 7.1, 3.3, 9.8},
                   {6.4, 1.9, 8.2, 5.5},
                   {4.7, 9.1, 7.6, 2.2},
                   {8.8, 3.9, 5.1, 6.6}})},
        {"orden4_empates", 4, assemblySquare()},
        {"orden5_distintos", 5,
         squareOf({{31.2, 18.4, 22.7, 40.1, 35.9},
                   {17.3, 25.6, 38.8, 29.4, 12.1},
                   {28.2, 33.5, 19.9, 15.7, 26.3},
                   {36.4, 21.8, 14.6, 24.9, 30.7},
                   {20.3, 11.5, 27.1, 34.2, 16.8}})},
        {"orden5_empates", 5, propellantSquare()},
        {"orden6_distintos", 6,
         squareFrom(6,
                    [](int column, int row) { return 29 * (6 * (row - 1) + column) % 37 / 4.0; })},
        {"orden6_empates", 6,
         squareFrom(6, [](int column, int row) { return (5 * column + 3 * row * row) % 7; })},
    };
}

const std::vector<std::pair<TestKind, std::string>>& testNames()
{
    static const std::vector<std::pair<TestKind, std::string>> names{
        {TestKind::F, "f"},
        {TestKind::Zimmerman, "zimmerman"},
        {TestKind::Bennett, "bennett"},
        {TestKind::C, "c"},
        {TestKind::M, "m"}};
    return names;
}

/// The report at five levels, each as after a fresh start of the program.
std::string reportsAtLevels(TestKind kind, const NamedSquare& square)
{
    QStringList lines;
    for (const int position : {1, 50, 90, 95, 99}) {
        stats::programIntegers() = stats::RandomIntegers();
        lines << QStringLiteral("[%1 %]").arg(position);
        lines += reportOf(kind, square.square, square.n, (100 - position) / 100.0);
    }
    return lines.join(QLatin1Char('\n')).toStdString() + '\n';
}

class Reports : public ::testing::Test {
    UserLocale m_point{"C"};
};

class GoldenReports : public Reports, public ::testing::WithParamInterface<int> {};

} // namespace

TEST_P(GoldenReports, OfAllTestsAtFiveLevels)
{
    const NamedSquare square = goldenSquares().at(static_cast<std::size_t>(GetParam()));
    for (const auto& [kind, name] : testNames()) {
        EXPECT_TRUE(matchesGolden("stats/data/" + name + '_' + square.name + ".txt",
                                  reportsAtLevels(kind, square)));
    }
}

INSTANTIATE_TEST_SUITE_P(Squares, GoldenReports, ::testing::Range(0, 8));

TEST_F(Reports, CarryTheNumbersOfTheirResults)
{
    const TMatrix square = propellantSquare();
    const QStringList zimmerman = stats::ZimmermanTest(square, 5, 0.05);
    const stats::ZimmermanResult z = stats::zimmermanResult(square, 5);
    EXPECT_EQ(zimmerman[2], QStringLiteral("Valor T = ") + generalText(z.t));
    EXPECT_EQ(zimmerman[6], QStringLiteral("Estadística Z = 0.613322502030869"));
    EXPECT_EQ(zimmerman[7], QStringLiteral("Valor Crítico F(4,20) = ") +
                                generalText(stats::FQuantile(0.95, 4, 20)));
    EXPECT_EQ(zimmerman.last(), QStringLiteral("Según el valor de Z, se acepta H0"));

    const QStringList bennett = stats::BennettTest(square, 5, 0.05);
    EXPECT_EQ(bennett[2], QStringLiteral("Estadística de prueba B= 21.1495384615385"));
    EXPECT_EQ(bennett[4], QStringLiteral("Valor Crítico Chi2(4 grados de libertad) = ") +
                              generalText(stats::ChiSquareQuantile(4, 0.95)));
    EXPECT_EQ(bennett.last(), QStringLiteral("Según el valor de B, se rechaza H0"));

    EXPECT_EQ(reportOf(TestKind::C, square, 5, 0.05)[0], QStringLiteral("C = 0.242786561264822"));
    const QStringList m = reportOf(TestKind::M, square, 5, 0.05);
    EXPECT_EQ(m[0], QStringLiteral("M = 0.601234142418722"));
    EXPECT_TRUE(m[6].startsWith(QStringLiteral("El valor crítico es = 2.86608148776")));
    EXPECT_EQ(m.last(), QStringLiteral("Para alpha = 0.05 se acepta la hipótesis."));
}

TEST_F(Reports, NumbersCarryTheUsersSeparator)
{
    const UserLocale spanish("es_ES");
    const TMatrix square = propellantSquare();
    EXPECT_EQ(reportOf(TestKind::Zimmerman, square, 5, 0.05)[6],
              QStringLiteral("Estadística Z = 0,613322502030869"));
    EXPECT_EQ(reportOf(TestKind::M, square, 5, 0.05).last(),
              QStringLiteral("Para alpha = 0,05 se acepta la hipótesis."));
}

TEST_F(Reports, SequenceTestsOfOrderThreeHandOverTheirDistribution)
{
    const TMatrix square = squareOf({{12.5, 14, 9.75}, {11, 10.2, 16.1}, {8.3, 12, 13}});
    Exact c;
    EXPECT_EQ(reportOf(TestKind::C, square, 3, 0.05, c)[2],
              QStringLiteral("El valor de la distribución acumulada para C es 0.942857142857143"));
    EXPECT_TRUE(c.available);
    EXPECT_EQ(c.count, 86);
    EXPECT_EQ(c.title, QStringLiteral("Distribución exacta de C para cuadrados de 3x3"));
    EXPECT_EQ(c.values[85], 53.0 / 270.0);
    EXPECT_EQ(c.values[86], stats::exactDistributionOfC(3).probability(0));
    EXPECT_EQ(c.values[172], 0.0);

    Exact m;
    EXPECT_EQ(reportOf(TestKind::M, square, 3, 0.05, m)[2],
              QStringLiteral("El valor de la distribución acumulada para M es 0.964285714285714"));
    EXPECT_TRUE(m.available);
    EXPECT_EQ(m.count, 112);
    EXPECT_EQ(m.title, QStringLiteral("Distribución exacta de M para cuadrados de 3x3"));
    EXPECT_EQ(m.values[111], 1.5);
}

TEST_F(Reports, SequenceTestsOfHigherOrderHandOverOnlyTheTitle)
{
    for (const TestKind kind : {TestKind::C, TestKind::M}) {
        Exact exact;
        exact.available = true;
        exact.values[0] = 77.0;
        reportOf(kind, assemblySquare(), 4, 0.05, exact);
        EXPECT_FALSE(exact.available);
        EXPECT_EQ(exact.count, -1);
        EXPECT_EQ(exact.values[0], 77.0);
        EXPECT_TRUE(exact.title.endsWith(QStringLiteral(" para cuadrados de 4x4")));
    }
}

TEST_F(Reports, TestCGoesOnWithTheProgramsGenerator)
{
    stats::programIntegers() = stats::RandomIntegers();
    const QStringList first = reportOf(TestKind::C, propellantSquare(), 5, 0.05);
    const QStringList second = reportOf(TestKind::C, propellantSquare(), 5, 0.05);
    EXPECT_EQ(first[0], second[0]);
    EXPECT_NE(first[6], second[6]);
    stats::programIntegers() = stats::RandomIntegers();
    EXPECT_EQ(reportOf(TestKind::C, propellantSquare(), 5, 0.05), first);
}

TEST_F(Reports, RankTestsRejectAtEquality)
{
    // alpha = 1 leaves critical values of 0.
    EXPECT_EQ(stats::BennettTest(balancedSquare(), 4, 1.0).mid(2),
              QStringList({QStringLiteral("Estadística de prueba B= 0"), QString(),
                           QStringLiteral("Valor Crítico Chi2(3 grados de libertad) = 0"),
                           QStringLiteral("alpha = 1"), QString(),
                           QStringLiteral("H0 = Los parámetros de localización son iguales"),
                           QStringLiteral("Ha = Los parametros de localización son diferentes"),
                           QStringLiteral("Según el valor de B, se rechaza H0")}));
    // Only the rows differ: T and Z are exactly 0, which the report says.
    const QStringList zimmerman =
        stats::ZimmermanTest(squareOf({{1, 1, 1}, {2, 2, 2}, {3, 3, 3}}), 3, 1.0);
    ASSERT_EQ(zimmerman.size(), 13 - 1);
    EXPECT_EQ(zimmerman[2], QStringLiteral("Valor T = 0"));
    EXPECT_EQ(zimmerman[3], QStringLiteral("T=0 ==> Se acepta la hípótesis."));
    EXPECT_EQ(zimmerman[7], QStringLiteral("Estadística Z = 0"));
    EXPECT_EQ(zimmerman.last(), QStringLiteral("Según el valor de Z, se rechaza H0"));
}

TEST_F(Reports, EqualObservationsHaveNoZAndAreAccepted)
{
    const QStringList lines =
        stats::ZimmermanTest(squareFrom(4, [](int, int) { return 2.5; }), 4, 0.05);
    ASSERT_EQ(lines.size(), 11);
    EXPECT_EQ(lines[2], QStringLiteral("Valor T = NAN"));
    EXPECT_EQ(lines[6], QStringLiteral("Estadística Z = NAN"));
    EXPECT_EQ(lines[10], QStringLiteral("Según el valor de Z, se acepta H0"));
}

TEST_F(Reports, OrderOneIsReportedWithoutAStatisticOfM)
{
    const TMatrix square = squareFrom(1, [](int, int) { return 2.5; });
    const QStringList lines = reportOf(TestKind::M, square, 1, 0.05);
    EXPECT_EQ(lines[0], QStringLiteral("M = NAN"));
    EXPECT_EQ(lines[2], QStringLiteral("El valor de la distribución acumulada para M es NAN"));
    EXPECT_EQ(lines.last(), QStringLiteral("Para alpha = 0.05 se acepta la hipótesis."));
}

TEST_F(Reports, OrderOneIsNeverRejected)
{
    const TMatrix square = squareFrom(1, [](int, int) { return 2.5; });
    for (int position = 1; position <= 99; ++position) {
        const double alpha = (100 - position) / 100.0;
        for (const auto& [kind, name] : testNames()) {
            const QStringList lines = reportOf(kind, square, 1, alpha);
            EXPECT_TRUE(lines.filter(QStringLiteral("rechaza")).isEmpty())
                << name << ' ' << position;
        }
    }
    const QStringList bennett = reportOf(TestKind::Bennett, square, 1, 0.05);
    EXPECT_EQ(bennett[2], QStringLiteral("Estadística de prueba B= 0"));
    EXPECT_EQ(bennett[4], QStringLiteral("Valor Crítico Chi2(0 grados de libertad) = NAN"));
    EXPECT_EQ(bennett.last(), QStringLiteral("Según el valor de B, se acepta H0"));
    const QStringList zimmerman = reportOf(TestKind::Zimmerman, square, 1, 0.05);
    EXPECT_EQ(zimmerman[7], QStringLiteral("Valor Crítico F(0,0) = NAN"));
    const QStringList c = reportOf(TestKind::C, square, 1, 0.05);
    EXPECT_EQ(c[0], QStringLiteral("C = 0"));
    EXPECT_EQ(c[2], QStringLiteral("El valor de la distribución acumulada para C es 1"));
    EXPECT_EQ(c.last(), QStringLiteral("Para alpha = 0.05 se acepta la hipótesis."));
}

TEST_F(Reports, TestCBeyondItsLargestOrderSaysSoInOneLine)
{
    Exact exact;
    exact.available = true;
    const TMatrix square =
        squareFrom(41, [](int column, int row) { return (column * 37 + row * row * 11) % 101; });
    const QStringList lines = reportOf(TestKind::C, square, 41, 0.99, exact);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("C = 0.")));
    EXPECT_EQ(lines[1], QStringLiteral("C no se aproxima para cuadrados de orden 41 (el mayor es "
                                       "40): no se decide nada."));
    EXPECT_FALSE(exact.available);
    EXPECT_EQ(exact.title, QStringLiteral("Distribución exacta de C para cuadrados de 41x41"));
    EXPECT_EQ(reportOf(TestKind::C, square, 40, 0.05).size(), 11);
}

TEST_F(Reports, AnyTestIsRunByItsKind)
{
    const TMatrix square = squareOf({{12.5, 14, 9.75}, {11, 10.2, 16.1}, {8.3, 12, 13}});
    for (const auto& [kind, name] : testNames()) {
        Exact exact;
        const QStringList lines = reportOf(kind, square, 3, 0.05, exact);
        const stats::TestReport report = stats::runTest(kind, square, 3, 0.05);
        EXPECT_EQ(report.lines, lines) << name;
        EXPECT_EQ(report.exactTitle, exact.title) << name;
        ASSERT_EQ(report.exact.has_value(), exact.available) << name;
        if (report.exact) {
            EXPECT_EQ(report.exact->count(), exact.count) << name;
        }
    }
}

TEST_F(Reports, BeyondTheLargestOrderEveryTestSaysSoInOneLine)
{
    const TMatrix line = TMatrix::Create(4001, 1);
    for (const auto& [kind, name] : testNames()) {
        const stats::TestReport report = stats::runTest(kind, line, 4001, 0.05);
        ASSERT_EQ(report.lines.size(), 1) << name;
        EXPECT_EQ(report.lines[0],
                  QStringLiteral("No se analizan cuadrados de orden 4001 (el mayor es 4000): no se "
                                 "decide nada."));
        EXPECT_FALSE(report.exact.has_value());
    }
}

TEST_F(Reports, OrderTwentyIsAnswered)
{
    const TMatrix square =
        squareFrom(20, [](int column, int row) { return (column * 37 + row * row * 11) % 101; });
    for (const auto& [kind, name] : testNames()) {
        const QStringList lines = reportOf(kind, square, 20, 0.05);
        EXPECT_GE(lines.size(), 8) << name;
        EXPECT_FALSE(lines.join(QLatin1Char(' ')).contains(QStringLiteral("NAN"))) << name;
    }
}

namespace {

/// Distinct, all equal, two values, huge and tiny observations.
std::vector<TMatrix> kindsOfSquares(int n)
{
    const auto number = [n](int column, int row) { return (row - 1.0) * n + column; };
    return {
        squareFrom(n, [&](int column, int row) { return std::sin(number(column, row)); }),
        squareFrom(n, [](int, int) { return 7.0; }),
        squareFrom(n, [](int column, int row) { return column * row % 2 ? 1.0 : 2.0; }),
        squareFrom(n, [&](int column, int row) { return 1.7e308 * std::sin(number(column, row)); }),
        squareFrom(n, [&](int column, int row) { return 5e-324 * number(column, row); }),
    };
}

/// The numbers of lines that a report can have.
std::vector<qsizetype> linesOf(TestKind kind, int n)
{
    const bool exact = n <= stats::largestExactOrder;
    switch (kind) {
    case TestKind::F:
        return {13, 3};
    case TestKind::Zimmerman:
        return {11, 12};
    case TestKind::Bennett:
        return {10};
    case TestKind::C:
        return {exact ? 8 : 11};
    case TestKind::M:
        break;
    }
    return {exact ? 8 : 9};
}

void expectReport(TestKind kind, const TMatrix& square, int n, int position)
{
    const auto possible = linesOf(kind, n);
    const qsizetype lines = reportOf(kind, square, n, (100 - position) / 100.0).size();
    EXPECT_NE(std::find(possible.begin(), possible.end(), lines), possible.end())
        << lines << " lines of test " << static_cast<int>(kind) << ", order " << n << ", level "
        << position;
}

} // namespace

/// Every position of the bar, every ninth under the sanitizers.
constexpr int simulatedPositions = isSanitized ? 9 : 1;

class EveryLevel : public Reports, public ::testing::WithParamInterface<int> {};

TEST_P(EveryLevel, OfEveryTestOnEveryKindOfSquare)
{
    const int n = GetParam();
    const std::vector<TMatrix> squares = kindsOfSquares(n);
    for (int position = 1; position <= 99; ++position) {
        for (const TMatrix& square : squares) {
            for (const TestKind kind :
                 {TestKind::F, TestKind::Zimmerman, TestKind::Bennett, TestKind::M})
                expectReport(kind, square, n, position);
        }
        // Beyond order 3 test C simulates each time, and the simulation looks at the order alone:
        // one kind of square after the other.
        if (n <= stats::largestExactOrder) {
            for (const TMatrix& square : squares)
                expectReport(TestKind::C, square, n, position);
        } else if (position % simulatedPositions == 0) {
            const auto kind = static_cast<std::size_t>(position / simulatedPositions);
            expectReport(TestKind::C, squares[kind % squares.size()], n, position);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, EveryLevel, ::testing::Range(1, 9));
