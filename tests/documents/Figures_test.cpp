// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers and reports that stand in the manual are the program's.
#include "base/NumberText.h"
#include "distribution/DistributionTable.h"
#include "documents/Chapter.h"
#include "experiment/CyclicArrangement.h"
#include "experiment/CyclicSquareReading.h"
#include "power/study/Aleatorio.h"
#include "power/study/ErrorTerms.h"
#include "power/study/PowerStudy.h"
#include "power/study/StudyLog.h"
#include "square/file/SquareFile.h"
#include "stats/numbers/LatinSquareAnova.h"
#include "stats/numbers/RankStatistics.h"
#include "stats/numbers/STATIS.h"
#include "stats/numbers/SequenceTests.h"
#include "stats/numbers/SimulatedSquares.h"
#include "stats/numbers/Treatments.h"
#include "stats/words/Estad.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <random>

namespace {

constexpr double fivePercent = 0.05;

struct Square {
    int n = 0;
    stats::TMatrix matrix;
};

Square sampleSquare(const char* name)
{
    QFile file(QStringLiteral(CL_SOURCE_DIR "/ejemplos/%1.asc").arg(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const record::SquareData data = *square::decode(file.readAll()).data;
    Square square{data.NrOfColumns(), stats::TMatrix::Create(data.NrOfColumns(), data.NrOfRows())};
    for (int column = 1; column <= square.n; ++column) {
        for (int row = 1; row <= square.n; ++row)
            square.matrix.Elem(column, row, data.value(column, row));
    }
    return square;
}

/// The lines of the F table, without what stands above it.
QStringList fTable(const Square& square)
{
    return stats::FTest(square.matrix, square.n, fivePercent).mid(2, 9);
}

using SequenceTest = decltype(stats::TestC);

QStringList sequenceReport(SequenceTest* test, const Square& square)
{
    stats::programIntegers() = stats::RandomIntegers(); // as after a start of the program
    stats::ExactValues values{};
    bool available = false;
    int count = 0;
    QString title;
    return test(square.matrix, square.n, fivePercent, values, available, count, title);
}

/// A table with row and column names as a spreadsheet copies it.
QString copied(const Chapter::Table& table)
{
    QString text;
    for (const QStringList& row : table)
        text += row.join(QLatin1Char('\t')) + QLatin1Char('\n');
    return text;
}

Chapter::Table harvest()
{
    for (const Chapter::Table& table : Chapter("del-campo-al-programa").tables()) {
        if (table.front().front() == QStringLiteral("Franja"))
            return table;
    }
    throw std::runtime_error("no harvest");
}

/// Calls `visit` with the layout of each Latin square whose first row and column are in order.
void forEachReducedSquare(int n, const std::function<void(const std::vector<int>&)>& visit)
{
    const auto size = static_cast<std::size_t>(n);
    std::vector<int> layout(size * size);
    std::vector<unsigned> inRow(size);
    std::vector<unsigned> inColumn(size);
    const std::function<void(std::size_t)> fill = [&](std::size_t cell) {
        if (cell == layout.size()) {
            visit(layout);
            return;
        }
        const std::size_t row = cell / size;
        const std::size_t column = cell % size;
        const bool given = row == 0 || column == 0;
        for (std::size_t treatment = given ? row + column : 0;
             treatment < (given ? row + column + 1 : size); ++treatment) {
            const unsigned bit = 1U << treatment;
            if (((inRow[row] | inColumn[column]) & bit) != 0)
                continue;
            inRow[row] |= bit;
            inColumn[column] |= bit;
            layout[cell] = static_cast<int>(treatment);
            fill(cell + 1);
            inRow[row] &= ~bit;
            inColumn[column] &= ~bit;
        }
    };
    fill(0);
}

experiment::LatinSquare squareWithLayout(int n, const std::vector<int>& layout)
{
    experiment::LatinSquare square;
    for (int i = 0; i < n; ++i) {
        const QString name = QString::number(i);
        square.rows << name;
        square.columns << name;
        square.treatments << name;
    }
    square.layout = layout;
    square.values.resize(layout.size());
    return square;
}

struct Curves {
    std::vector<power::PowerPoint> points;
    QStringList log;
};

/// The first study after a start of the program.
Curves firstStudy(int order)
{
    power::StudySettings settings;
    settings.order = order;
    power::Aleatorio generator;
    stats::RandomIntegers integers;
    const std::vector<power::PowerPoint> points =
        power::runPowerStudy(settings, generator, integers, [](const auto&) {});
    return {points, power::startLines(settings) + power::pointLines(points.front())};
}

double rounded(double value, int decimals)
{
    return std::round(value * std::pow(10, decimals)) / std::pow(10, decimals);
}

class ManualFigures : public ::testing::Test {
    UserLocale m_comma{"es_ES"};
};

} // namespace

TEST_F(ManualFigures, ReportsOfTheSampleOfOrderThree)
{
    const Chapter tests("las-pruebas");
    const Square square = sampleSquare("orden3");
    EXPECT_TRUE(tests.shows(stats::FTest(square.matrix, 3, fivePercent).mid(2)));
    EXPECT_TRUE(tests.shows(stats::ZimmermanTest(square.matrix, 3, fivePercent)));
    EXPECT_TRUE(tests.shows(stats::BennettTest(square.matrix, 3, fivePercent)));
    EXPECT_TRUE(tests.shows(sequenceReport(stats::TestC, square)));
    EXPECT_TRUE(tests.shows(sequenceReport(stats::TestM, square)));
}

TEST_F(ManualFigures, GreatBlockDifferencesHideTheTreatmentsFromZimmerman)
{
    EXPECT_TRUE(Chapter("las-pruebas")
                    .says(QStringLiteral("las filas suben de 100 en 100, las columnas de 1000 en "
                                         "1000 y los tratamientos de 10 en 10, sin error alguno, "
                                         "T = 0 y Z = 0")));
    for (int n = 3; n <= 6; ++n) {
        stats::TMatrix square = stats::TMatrix::Create(n, n);
        stats::visitCells(n, [&square](int column, int row, int treatment) {
            square.Elem(column, row, 100 * row + 1000 * column + 10 * treatment);
        });
        const stats::ZimmermanResult result = stats::zimmermanResult(square, n);
        EXPECT_EQ(result.t, 0.0) << n;
        EXPECT_EQ(result.z, 0.0) << n;
    }
}

TEST_F(ManualFigures, ReportsOfThePropellant)
{
    const Square square = sampleSquare("propelente");
    EXPECT_TRUE(Chapter("cinco-minutos").shows(fTable(square)));
    const Chapter tests("las-pruebas");
    EXPECT_TRUE(tests.shows(sequenceReport(stats::TestC, square)));
    EXPECT_TRUE(tests.shows(sequenceReport(stats::TestM, square).mid(5, 2)));
}

TEST_F(ManualFigures, TheHarvestBecomesCyclicAndGivesItsReport)
{
    const auto read = experiment::readCyclicSquare(copied(harvest()));
    ASSERT_TRUE(read.value) << read.reason.toStdString();
    const experiment::LatinSquare& arranged = read.value->square;
    QStringList key;
    for (int i = 0; i < arranged.order(); ++i)
        key << QStringLiteral("%1 = %2").arg(i + 1).arg(arranged.treatments[i]);
    const Chapter chapter("del-campo-al-programa");
    EXPECT_TRUE(chapter.says(QLatin1Char('`') + key.join(QStringLiteral(", ")) + QLatin1Char('`')));

    Square square{4, stats::TMatrix::Create(4, 4)};
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row)
            square.matrix.Elem(column + 1, row + 1, arranged.values[arranged.place(column, row)]);
    }
    EXPECT_TRUE(chapter.shows(fTable(square)));
}

TEST_F(ManualFigures, ThePlanIsTheHarvestsAndTheOtherSquareHasNoCyclicOrder)
{
    int plans = 0;
    int others = 0;
    for (Chapter::Table table : Chapter("del-campo-al-programa").tables()) {
        const bool hasLetters = table.size() == 5 && table[1].size() == 5 &&
                                table[1][1].size() == 1 && table[1][1].front().isLetter();
        if (!hasLetters)
            continue;
        const bool isPlan = table[1][0].startsWith(QStringLiteral("Franja"));
        for (std::size_t row = 1; row < table.size(); ++row) {
            for (int column = 1; column < 5; ++column) {
                if (isPlan) {
                    EXPECT_EQ(table[row][column], harvest()[row][column].left(1));
                }
                table[row][column] += QStringLiteral(" 1");
            }
        }
        EXPECT_EQ(experiment::readCyclicSquare(copied(table)).value.has_value(), isPlan);
        ++(isPlan ? plans : others);
    }
    EXPECT_EQ(plans, 1);
    EXPECT_EQ(others, 1);
}

TEST_F(ManualFigures, HowManySquaresCanBecomeCyclic)
{
    const Chapter::Table table =
        Chapter("del-campo-al-programa")
            .table({QStringLiteral("orden"), QStringLiteral("cuadrados latinos"),
                    QStringLiteral("se vuelven cíclicos"), QStringLiteral("parte")});
    ASSERT_EQ(table.size(), 5U);
    for (std::size_t line = 1; line < table.size(); ++line) {
        const int n = table[line][0].toInt();
        double all = 0;
        double cyclic = 0;
        forEachReducedSquare(n, [&](const std::vector<int>& layout) {
            ++all;
            cyclic += experiment::cyclicArrangement(squareWithLayout(n, layout)) ? 1 : 0;
        });
        // Each reduced square stands for those with its columns and its other rows in any order.
        const double orders = std::tgamma(n + 1) * std::tgamma(n);
        EXPECT_EQ(Chapter::number(table[line][1]), std::round(all * orders));
        EXPECT_EQ(Chapter::number(table[line][2]), std::round(cyclic * orders));
        const double percent = Chapter::number(table[line][3].chopped(2));
        EXPECT_NEAR(percent, 100 * cyclic / all, percent < 1 ? 0.005 : 0.05);
    }
}

TEST_F(ManualFigures, TypedNumbers)
{
    const Chapter::Table table =
        Chapter("del-campo-al-programa")
            .table({QStringLiteral("en la hoja"), QStringLiteral("se lee")});
    int typed = 0;
    for (std::size_t line = 1; line < table.size(); ++line) {
        const QStringList pieces = table[line][0].split(QLatin1Char('`'));
        for (qsizetype i = 1; i < pieces.size(); i += 2, ++typed) {
            const auto value = base::readTypedNumber(pieces[i]).value;
            const bool refused = table[line][1] == QStringLiteral("se rechaza");
            EXPECT_EQ(value.has_value(), !refused) << pieces[i].toStdString();
            if (value) {
                EXPECT_EQ(*value, Chapter::number(table[line][1]));
            }
        }
    }
    EXPECT_EQ(typed, 10);
}

TEST_F(ManualFigures, TheLostObservation)
{
    ASSERT_TRUE(Chapter("del-campo-al-programa")
                    .shows({QStringLiteral("x = (5 (87 + 83 + 119) − 2 · 611) / (4 · 3) = 223 / 12 "
                                           "= 18,58")}));
    const auto errorWith = [](double value) {
        Square square = sampleSquare("propelente");
        square.matrix.Elem(1, 1, value);
        const auto anova = stats::latinSquareAnova(square.matrix, 5, fivePercent);
        return static_cast<double>(*anova.errorSumOfSquares);
    };
    // The estimate is the value that leaves the least error.
    EXPECT_LT(errorWith(223.0 / 12), errorWith(18.57));
    EXPECT_LT(errorWith(223.0 / 12), errorWith(18.60));
}

TEST_F(ManualFigures, TheEndOfTheTableOfC)
{
    const stats::ExactDistribution exact = stats::exactDistributionOfC(3);
    distribution::ShownDistribution shown;
    shown.figures = exact.figures();
    shown.StatName = QStringLiteral("c");
    const QStringList lines = QString::fromUtf8(distribution::distributionTable(shown))
                                  .split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    EXPECT_TRUE(Chapter("distribucion").shows(lines.last(3)));
    EXPECT_TRUE(Chapter("las-pruebas").shows(lines.last(2)));
    EXPECT_EQ(rounded(exact.probability(exact.count() - 1), 4), 0.0143);
}

TEST_F(ManualFigures, BennettOfThePropellantInAnyOrder)
{
    const Square propellant = sampleSquare("propelente");
    std::vector<double> values;
    for (int row = 1; row <= propellant.n; ++row) {
        for (int column = 1; column <= propellant.n; ++column)
            values.push_back(propellant.matrix.Elem(column, row));
    }
    constexpr int orders = 2000;
    std::mt19937 generator;
    stats::TMatrix shuffled = propellant.matrix;
    int rejected = 0;
    for (int i = 0; i < orders; ++i) {
        std::shuffle(values.begin(), values.end(), generator);
        auto next = values.begin();
        for (int row = 1; row <= propellant.n; ++row) {
            for (int column = 1; column <= propellant.n; ++column)
                shuffled.Elem(column, row, *next++);
        }
        const double b = stats::BennettStatistic(shuffled, propellant.n);
        rejected += b >= stats::ChiSquareQuantile(propellant.n - 1, 1 - fivePercent) ? 1 : 0;
    }
    EXPECT_TRUE(Chapter("antes-de-creer").says(QStringLiteral("cerca de dos de cada tres veces")));
    EXPECT_NEAR(static_cast<double>(rejected) / orders, 2.0 / 3, 0.04);
}

TEST_F(ManualFigures, ThePowerOfTheExample)
{
    const Chapter::Table table = Chapter("estudio-de-potencia")
                                     .table({QStringLiteral("orden"), QStringLiteral("prueba"),
                                             QStringLiteral("dif 0"), QStringLiteral("dif 0,05"),
                                             QStringLiteral("dif 0,1"), QStringLiteral("dif 0,15"),
                                             QStringLiteral("dif 0,2"), QStringLiteral("dif 0,3")});
    ASSERT_EQ(table.size(), 11U);
    constexpr std::array<std::size_t, 6> places{0, 1, 2, 3, 4, 6};
    for (int order = 3; order <= 6; ++order) {
        const Curves study = firstStudy(order);
        for (const QStringList& row : table) {
            if (row[0] != QString::number(order))
                continue;
            for (std::size_t i = 0; i < places.size(); ++i) {
                const power::Powers& powers = study.points.at(places[i]).powers;
                const double power = row[1] == QStringLiteral("C")   ? powers.c
                                     : row[1] == QStringLiteral("M") ? powers.m
                                                                     : powers.b;
                EXPECT_EQ(Chapter::number(row[static_cast<qsizetype>(i) + 2]), rounded(power, 3));
            }
        }
        if (order >= 5) { // M has no row there: the text says that it is 0
            for (const std::size_t place : places)
                EXPECT_EQ(study.points.at(place).powers.m, 0.0);
        }
        if (order == 5) {
            EXPECT_TRUE(Chapter("potencia").shows(study.log.mid(0, 10)));
        }
    }
}

TEST_F(ManualFigures, TheLawsOfTheErrors)
{
    const Chapter::Table table =
        Chapter("estudio-de-potencia")
            .table({QStringLiteral("ley"), QStringLiteral("densidad"), QStringLiteral("media"),
                    QStringLiteral("desviación estándar")});
    ASSERT_EQ(table.size(), 4U);
    const std::array kinds{power::ErrorKind::Uniform, power::ErrorKind::Exponential,
                           power::ErrorKind::Triangular};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        constexpr int steps = 400000;
        double sum = 0;
        double squares = 0;
        for (int step = 0; step < steps; ++step) {
            const double error = power::ErrorDraw(kinds[i], (step + 0.5) / steps, 0.0);
            sum += error;
            squares += error * error;
        }
        const double mean = sum / steps;
        EXPECT_NEAR(Chapter::number(table[i + 1][2]), mean, 6e-5);
        EXPECT_NEAR(Chapter::number(table[i + 1][3]), std::sqrt(squares / steps - mean * mean),
                    6e-5);
    }
}

TEST_F(ManualFigures, TheErrorOfTheSimulation)
{
    const Chapter::Table table =
        Chapter("estudio-de-potencia")
            .table({QStringLiteral("cuadrados por punto"), QStringLiteral("p = 0,05"),
                    QStringLiteral("p = 0,5"), QStringLiteral("p = 0,8")});
    ASSERT_EQ(table.size(), 4U);
    constexpr std::array powers{0.05, 0.5, 0.8};
    for (std::size_t line = 1; line < table.size(); ++line) {
        for (std::size_t i = 0; i < powers.size(); ++i) {
            const double p = powers[i];
            const double error = std::sqrt(p * (1 - p) / table[line][0].toInt());
            EXPECT_EQ(Chapter::number(table[line][static_cast<qsizetype>(i) + 1]),
                      rounded(error, 4));
        }
    }
}

TEST_F(ManualFigures, CriticalValuesThatAreOutOfReach)
{
    for (int n = 3; n <= 6; ++n) {
        for (const double level : {0.90, 0.95, 0.98, 0.99}) {
            const double critical = stats::FQuantile(level, n - 1, n * (n - 1));
            EXPECT_GT(critical, 2.0) << n;                              // Z is below 1
            EXPECT_GT(critical, static_cast<double>(n) / (n - 1)) << n; // the most that M can be
        }
    }
    const Chapter chapter("antes-de-creer");
    EXPECT_EQ(rounded(stats::ChiSquareQuantile(2, 0.98), 2), 7.82);
    EXPECT_TRUE(chapter.says(QStringLiteral("el valor crítico al 98 % es 7,82")));
}

TEST_F(ManualFigures, TheCorrectedDecisionOfC)
{
    const Chapter chapter("antes-de-creer");
    for (const auto& [level, said] : {std::pair(0.90, "1,28 al 90 %"),
                                      {0.95, "1,64 al 95 %"},
                                      {0.98, "2,05 al 98 %"},
                                      {0.99, "2,33 al 99 %"}}) {
        const QString text = QString::fromUtf8(said);
        EXPECT_TRUE(chapter.says(text)) << said;
        EXPECT_EQ(Chapter::number(text.left(4)), rounded(stats::NormalQuantile(level), 2));
    }
    stats::RandomIntegers integers;
    const Square square = sampleSquare("propelente");
    const stats::TestCResult result = stats::testC(square.matrix, 5, fivePercent, integers);
    const double z = (result.statistic - result.simulated->mean) / result.simulated->deviation;
    EXPECT_EQ(rounded(z, 2), 4.07);
    EXPECT_TRUE(chapter.says(QStringLiteral("/ 0,0432 = 4,07")));
}

TEST_F(ManualFigures, TheFiles)
{
    const std::vector<QStringList> blocks = Chapter("archivo").blocks();
    ASSERT_EQ(blocks.size(), 2U);
    QFile file(QStringLiteral(CL_SOURCE_DIR "/ejemplos/orden3.asc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const auto asFile = [](const QStringList& lines) {
        return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
    };
    EXPECT_EQ(asFile(blocks[0]), bytes);
    const auto little = square::decode(asFile(blocks[1]));
    ASSERT_EQ(little.code, square::Usable);
    const auto whole = square::decode(bytes);
    for (int column = 1; column <= 3; ++column) {
        for (int row = 1; row <= 3; ++row)
            EXPECT_EQ(little.data->value(column, row), whole.data->value(column, row));
    }
    EXPECT_TRUE(Chapter("archivo").says(QStringLiteral("de un archivo se acepta hasta 4000")));
    EXPECT_TRUE(record::sizeProblem(4000, 4000).isEmpty());
    EXPECT_FALSE(record::sizeProblem(4001, 4000).isEmpty());
    QByteArray withoutCarriageReturns = asFile(blocks[1]);
    withoutCarriageReturns.replace("\r", "");
    EXPECT_NE(square::decode(withoutCarriageReturns).code, square::Usable);
}
