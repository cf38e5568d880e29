// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/PowerStudy.h"

#include "power/study/PlainStudy.h"
#include "power/study/StudyLines.h"
#include "support/Golden.h"
#include "support/Text.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <cmath>

namespace power {
namespace {

constexpr double levels[] = {0.90, 0.95, 0.98, 0.99};
constexpr ErrorKind kinds[] = {ErrorKind::Uniform, ErrorKind::Exponential, ErrorKind::Triangular};

/// What a study finds, and how many points there were each time that one more was told.
struct Record {
    StudySettings settings;
    std::vector<PowerPoint> points;
    std::vector<std::size_t> told;

    QStringList lines() const { return studyLines(settings, points); }
    std::string text() const { return (lines().join(QLatin1Char('\n')) + u'\n').toStdString(); }
};

Record record(const StudySettings& settings, Aleatorio& generator, stats::RandomIntegers& integers)
{
    Record record{settings, {}, {}};
    record.points =
        runPowerStudy(settings, generator, integers, [&](const std::vector<PowerPoint>& points) {
            record.told.push_back(points.size());
        });
    return record;
}

/// The first study after a start of the program.
Record studyOf(const StudySettings& settings)
{
    Aleatorio generator;
    stats::RandomIntegers integers;
    return record(settings, generator, integers);
}

class PowerStudy : public testing::Test {
protected:
    void SetUp() override { QLocale::setDefault(QLocale::c()); }
};

TEST_F(PowerStudy, GoldenLogs)
{
    EXPECT_TRUE(matchesGolden("power/data/3_1000_95_uniforme.txt",
                              studyOf({3, 1000, 0.95, ErrorKind::Uniform}).text()));
    EXPECT_TRUE(matchesGolden("power/data/4_500_90_exponencial.txt",
                              studyOf({4, 500, 0.90, ErrorKind::Exponential}).text()));
    EXPECT_TRUE(matchesGolden("power/data/6_500_99_triangular.txt",
                              studyOf({6, 500, 0.99, ErrorKind::Triangular}).text()));
}

TEST_F(PowerStudy, SpeaksWithTheUsersDecimalSeparator)
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    const Record record = studyOf({3, 500, 0.95, ErrorKind::Uniform});
    EXPECT_TRUE(record.lines().contains(QStringLiteral("Potencias con dif = 0,05 : ")));
}

void expectSame(const Powers& actual, const Powers& expected)
{
    EXPECT_EQ(actual.c, expected.c);
    EXPECT_EQ(actual.m, expected.m);
    EXPECT_EQ(actual.b, expected.b);
    EXPECT_EQ(actual.z, expected.z);
}

TEST_F(PowerStudy, EverySettingGivesThePlainPowers)
{
    constexpr int trials = 500;
    for (int order = 3; order <= 6; ++order) {
        std::vector<CriticalValues> criticals;
        for (const double level : levels) {
            stats::RandomIntegers integers;
            criticals.push_back(criticalValues(order, level, integers));
        }
        for (const ErrorKind kind : kinds) {
            std::vector<Record> records;
            for (const double level : levels)
                records.push_back(studyOf({order, trials, level, kind}));
            Aleatorio generator;
            for (std::size_t point = 0; point < 21; ++point) {
                const double difference = records.front().points.at(point).difference;
                const std::vector<Powers> expected = plain::simulatedPowers(
                    {order, trials, 0.0, kind}, criticals, difference, generator);
                for (std::size_t level = 0; level < records.size(); ++level)
                    expectSame(records[level].points.at(point).powers, expected[level]);
            }
        }
    }
}

TEST_F(PowerStudy, LogOfOnePoint)
{
    const QStringList lines = studyOf({5, 500, 0.98, ErrorKind::Triangular}).lines();
    ASSERT_EQ(lines.size(), 5 + 21 * 6);
    EXPECT_EQ(lines[0],
              QStringLiteral("Iniciado análisis de potencia (Cuadrado tamaño 5), 500 pruebas..."));
    EXPECT_EQ(lines[1], QStringLiteral("Datos provenientes de Distribución Triangular [0,1]"));
    EXPECT_EQ(lines[2], QStringLiteral("Calculando valores críticos..."));
    EXPECT_EQ(lines[3], QStringLiteral("Comenzando las pruebas..."));
    EXPECT_EQ(lines[4], QString());
    EXPECT_EQ(lines[5 + 6 * 20], QStringLiteral("Potencias con dif = 1 : "));
    EXPECT_EQ(lines[10], QString());
}

TEST_F(PowerStudy, PointsAreToldOneByOne)
{
    const Record record = studyOf({3, 500, 0.95, ErrorKind::Exponential});
    ASSERT_EQ(record.points.size(), 21U);
    ASSERT_EQ(record.told.size(), 21U);
    for (std::size_t i = 0; i < record.told.size(); ++i)
        EXPECT_EQ(record.told[i], i + 1);
}

TEST_F(PowerStudy, DifferencesAreAddedUp)
{
    const std::vector<double> differences = studyDifferences();
    ASSERT_EQ(differences.size(), 21U);
    double sum = 0.0;
    for (const double difference : differences) {
        EXPECT_EQ(difference, sum);
        sum += 0.05;
    }
    EXPECT_NE(differences.back(), 1.0);
    EXPECT_NEAR(differences.back(), 1.0, 1e-15);
}

TEST_F(PowerStudy, TheNextStudyGoesOnWithTheNumbers)
{
    const StudySettings settings{4, 500, 0.95, ErrorKind::Uniform};
    Aleatorio generator;
    stats::RandomIntegers integers;
    const Record first = record(settings, generator, integers);
    const Record second = record(settings, generator, integers);
    EXPECT_EQ(first.text(), studyOf(settings).text());
    EXPECT_NE(first.text(), second.text());

    Aleatorio skipped;
    std::vector<std::uint32_t> numbers(21 * 500 * 16);
    skipped.NextNumbers(numbers);
    skipped.NextNumbers(numbers);
    EXPECT_EQ(generator.NextUniform(), skipped.NextUniform());
}

TEST_F(PowerStudy, TrialsThatFillNoBatch)
{
    const StudySettings settings{4, 37, 0.95, ErrorKind::Uniform};
    const CriticalValues critical{{1.6, 0.8476, 7.8, 3.5}, 0.02, 0.01};
    Aleatorio generator;
    Aleatorio plainGenerator;
    const Powers powers = simulatedPowers(settings, critical, 0.2, generator);
    expectSame(powers, plain::simulatedPowers(settings, {critical}, 0.2, plainGenerator).front());
    EXPECT_EQ(generator.NextUniform(), plainGenerator.NextUniform());
}

TEST_F(PowerStudy, AnUnknownKindEndsTheStudyAtTheFirstErrorTerm)
{
    Aleatorio generator;
    stats::RandomIntegers integers;
    const StudySettings settings{3, 500, 0.95, static_cast<ErrorKind>(3)};
    const auto fail = [](const std::vector<PowerPoint>&) { FAIL() << "a point"; };
    EXPECT_THROW(runPowerStudy(settings, generator, integers, fail), ImpossibleSetting);
}

TEST_F(PowerStudy, AnUnknownOrderIsNoSetting)
{
    Aleatorio generator;
    for (const int order : {0, 2, 7}) {
        const StudySettings settings{order, 500, 0.95, ErrorKind::Uniform};
        EXPECT_THROW(simulatedPowers(settings, CriticalValues(), 0.0, generator),
                     ImpossibleSetting);
    }
}

TEST(CriticalValuesTest, OfOrder3AreExact)
{
    stats::RandomIntegers integers;
    const CriticalValues at95 = criticalValues(3, 0.95, integers);
    // By counting all 1680 arrangements: 1596 of them are at or below, 95 % exactly.
    EXPECT_EQ(at95.c, 235.0 / 1512.0);
    EXPECT_EQ(at95.m, 273.0 / 326.0);
    EXPECT_EQ(at95.meanOfC, 0.0);
    EXPECT_EQ(at95.deviationOfC, 1.0);
    double previousC = 0.0;
    double previousM = 0.0;
    for (const double level : levels) {
        const CriticalValues critical = criticalValues(3, level, integers);
        EXPECT_GT(critical.c, previousC);
        EXPECT_GT(critical.m, previousM);
        previousC = critical.c;
        previousM = critical.m;
    }
    stats::RandomIntegers fresh;
    EXPECT_EQ(integers.next(), fresh.next()) << "order 3 draws no squares";
}

TEST(CriticalValuesTest, OfOrder4HaveATabulatedM)
{
    for (const double level : levels) {
        stats::RandomIntegers integers;
        EXPECT_EQ(criticalValues(4, level, integers).m, 0.8476);
    }
}

TEST(CriticalValuesTest, OfLargerOrdersAreThePlainOnes)
{
    for (int order = 4; order <= 6; ++order) {
        for (const double level : levels) {
            stats::RandomIntegers integers;
            stats::RandomIntegers plainIntegers;
            const CriticalValues critical = criticalValues(order, level, integers);
            const CriticalValues expected = plain::criticalValues(order, level, plainIntegers);
            EXPECT_EQ(critical.c, expected.c);
            EXPECT_EQ(critical.m, expected.m);
            EXPECT_EQ(critical.b, expected.b);
            EXPECT_EQ(critical.z, expected.z);
            EXPECT_EQ(critical.meanOfC, expected.meanOfC);
            EXPECT_EQ(critical.deviationOfC, expected.deviationOfC);
            EXPECT_EQ(integers.next(), plainIntegers.next());
        }
    }
}

/// Without an effect the rejection share of C and M of order 3 at 95 % is 84 / 1680 = 5 %.
TEST_F(PowerStudy, SizeOfTheExactTests)
{
    constexpr double size = 84.0 / 1680.0;
    constexpr int trials = 5000;
    // Five standard deviations of a binomial share: once in two million by chance.
    const double bound = 5.0 * std::sqrt(size * (1.0 - size) / trials);
    for (const ErrorKind kind : kinds) {
        const Powers powers = studyOf({3, trials, 0.95, kind}).points.front().powers;
        EXPECT_NEAR(powers.c, size, bound);
        EXPECT_NEAR(powers.m, size, bound);
    }
}

TEST_F(PowerStudy, PowerRisesWithTheDifference)
{
    for (int order = 3; order <= 6; ++order) {
        const Record record = studyOf({order, 500, 0.90, ErrorKind::Uniform});
        EXPECT_GT(record.points.back().powers.c, record.points.front().powers.c + 0.5);
        EXPECT_GT(record.points.back().powers.b, record.points.front().powers.b + 0.5);
    }
}

} // namespace
} // namespace power
