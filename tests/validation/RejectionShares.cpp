// SPDX-License-Identifier: GPL-3.0-or-later
#include "validation/RejectionShares.h"

#include "base/NumberText.h"
#include "power/study/PowerStudy.h"
#include "stats/numbers/CriticalFAndChiSquare.h"
#include "stats/numbers/LatinSquareAnova.h"
#include "stats/numbers/RankStatistics.h"
#include "stats/numbers/SequenceTests.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace validation {

namespace {

constexpr int lowestOrder = 3;
constexpr int highestOrder = 6;
constexpr int trialsOfAStudy = 5000;

QString inTheAnalysis()
{
    return QStringLiteral("análisis");
}

QString inTheStudy()
{
    return QStringLiteral("potencia");
}

using Noise = std::function<double(std::mt19937_64&)>;
/// Whether a square is rejected at each of the levels.
using Rejected = std::array<bool, studyLevels.size()>;
using Test = std::function<Rejected(const stats::TMatrix&, int n)>;

double uniform(std::mt19937_64& generator)
{
    return static_cast<double>(generator() >> 11U) * 0x1p-53;
}

double exponential(std::mt19937_64& generator)
{
    return -std::log1p(-uniform(generator));
}

double normal(std::mt19937_64& generator)
{
    return std::normal_distribution<double>()(generator);
}

/// Normal noise as an instrument of this unit, in standard deviations, gives it: with ties.
Noise readTo(double unit)
{
    return [unit](std::mt19937_64& generator) { return std::round(normal(generator) / unit); };
}

stats::TMatrix squareOfNoise(int n, const Noise& noise, std::mt19937_64& generator)
{
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column)
            square.Elem(column, row, noise(generator));
    }
    return square;
}

/// rejectedAt(alpha) at each of the levels.
template <typename RejectedAt>
Rejected atEachLevel(const RejectedAt& rejectedAt)
{
    Rejected rejected{};
    std::transform(studyLevels.begin(), studyLevels.end(), rejected.begin(),
                   [&](double level) { return rejectedAt(std::round(100 - 100 * level) / 100); });
    return rejected;
}

Rejected rejectedByF(const stats::TMatrix& square, int n)
{
    return atEachLevel([&](double alpha) {
        return stats::latinSquareAnova(square, n, alpha).treatments.significant;
    });
}

Rejected rejectedByZimmerman(const stats::TMatrix& square, int n)
{
    const double z = stats::ZimmermanStatistic(square, n);
    return atEachLevel(
        [&](double alpha) { return z >= stats::criticalF(alpha, n - 1, n * (n - 1)); });
}

Rejected rejectedByBennett(const stats::TMatrix& square, int n)
{
    const double b = stats::BennettStatistic(square, n);
    return atEachLevel([&](double alpha) { return b >= stats::criticalChiSquare(alpha, n - 1); });
}

/// One simulation for all levels: it is what takes the time.
Rejected rejectedByC(const stats::TMatrix& square, int n)
{
    const stats::TestCResult result = stats::testC(square, n, 0.05, stats::programIntegers());
    return atEachLevel([&](double alpha) {
        return result.exact ? stats::rejects(*result.exact, result.statistic, alpha)
                            : result.cumulative > 1.0 - alpha;
    });
}

Rejected rejectedByM(const stats::TMatrix& square, int n)
{
    return atEachLevel([&](double alpha) { return stats::testM(square, n, alpha).rejected; });
}

ShareRow shareRow(const QString& name, const Test& test, const Noise& noise, int n, int squares,
                  std::mt19937_64& generator)
{
    std::array<int, studyLevels.size()> counts{};
    for (int k = 0; k < squares; ++k) {
        const Rejected rejected = test(squareOfNoise(n, noise, generator), n);
        for (std::size_t level = 0; level < counts.size(); ++level)
            counts[level] += rejected[level] ? 1 : 0;
    }
    ShareRow row{inTheAnalysis(), name, n, {}};
    std::transform(counts.begin(), counts.end(), row.atLevels.begin(), [squares](int count) {
        const double share = static_cast<double>(count) / squares;
        return Share{100 * share, 100 * std::sqrt(share * (1 - share) / squares)};
    });
    return row;
}

/// Mean and standard error of the mean.
Share meanOf(const std::vector<double>& shares)
{
    const auto count = static_cast<double>(shares.size());
    double mean = 0.0;
    for (const double share : shares)
        mean += share / count;
    double variance = 0.0;
    for (const double share : shares)
        variance += (share - mean) * (share - mean) / (count - 1);
    return {mean, std::sqrt(variance / count)};
}

struct NamedPower {
    QString name;
    double power::Powers::*share;
};

const std::vector<NamedPower>& namedPowers()
{
    static const std::vector<NamedPower> all{{QStringLiteral("Zimmerman"), &power::Powers::z},
                                             {QStringLiteral("Bennett"), &power::Powers::b},
                                             {QStringLiteral("C"), &power::Powers::c},
                                             {QStringLiteral("M"), &power::Powers::m}};
    return all;
}

/// Studies of one order at one level.
std::vector<power::Powers> powersOfStudies(int n, double level, int studies,
                                           stats::RandomIntegers& integers,
                                           power::Aleatorio& generator)
{
    std::vector<power::Powers> powers;
    for (int study = 0; study < studies; ++study) {
        const power::StudySettings settings{n, trialsOfAStudy, level,
                                            static_cast<power::ErrorKind>(study % 3)};
        const power::CriticalValues critical = power::criticalValues(n, level, integers);
        powers.push_back(power::simulatedPowers(settings, critical, 0.0, generator));
    }
    return powers;
}

/// "10,02 ± 0,09"
QString cellOf(const Share& share)
{
    return base::fixedText(share.share, 2) + QStringLiteral(" ± ") +
           base::fixedText(share.standardError, 2);
}

std::optional<Share> shareOf(const QString& cell)
{
    const QStringList numbers = cell.split(QStringLiteral(" ± "));
    if (numbers.size() != 2)
        return std::nullopt;
    const auto share = base::readTypedNumber(numbers[0]).value;
    const auto error = base::readTypedNumber(numbers[1]).value;
    if (!share || !error)
        return std::nullopt;
    return Share{*share, *error};
}

} // namespace

std::vector<ShareRow> sharesOfTheAnalysis(int squares, std::uint64_t seed)
{
    struct Case {
        QString name;
        Test test;
        Noise noise;
    };
    const std::vector<Case> cases{
        {QStringLiteral("F, ruido normal"), rejectedByF, normal},
        {QStringLiteral("F, ruido uniforme"), rejectedByF, uniform},
        {QStringLiteral("F, ruido exponencial"), rejectedByF, exponential},
        {QStringLiteral("Zimmerman"), rejectedByZimmerman, uniform},
        {QStringLiteral("Bennett"), rejectedByBennett, uniform},
        {QStringLiteral("C"), rejectedByC, uniform},
        {QStringLiteral("M"), rejectedByM, uniform},
        {QStringLiteral("Bennett, ruido de 20 unidades"), rejectedByBennett, readTo(1.0 / 20)},
        {QStringLiteral("Bennett, ruido de 5 unidades"), rejectedByBennett, readTo(1.0 / 5)},
    };
    std::mt19937_64 generator(seed);
    std::vector<ShareRow> rows;
    for (const auto& [name, test, noise] : cases) {
        for (int n = lowestOrder; n <= highestOrder; ++n)
            rows.push_back(shareRow(name, test, noise, n, squares, generator));
    }
    return rows;
}

std::vector<ShareRow> sharesOfTheStudy(int studies, std::uint32_t seed)
{
    stats::RandomIntegers integers;
    power::Aleatorio generator;
    generator.SeedGenerator(seed);
    std::vector<ShareRow> rows;
    for (const NamedPower& named : namedPowers()) {
        for (int n = lowestOrder; n <= highestOrder; ++n)
            rows.push_back({inTheStudy(), named.name, n, {}});
    }
    for (int n = lowestOrder; n <= highestOrder; ++n) {
        for (std::size_t level = 0; level < studyLevels.size(); ++level) {
            const std::vector<power::Powers> powers =
                powersOfStudies(n, studyLevels[level], studies, integers, generator);
            for (ShareRow& row : rows) {
                if (row.order != n)
                    continue;
                const auto named =
                    std::find_if(namedPowers().begin(), namedPowers().end(),
                                 [&](const NamedPower& one) { return one.name == row.test; });
                std::vector<double> shares;
                for (const power::Powers& of : powers)
                    shares.push_back(100 * of.*named->share);
                row.atLevels[level] = meanOf(shares);
            }
        }
    }
    return rows;
}

void writeShares(Page& page, const std::vector<ShareRow>& analysis,
                 const std::vector<ShareRow>& study, int squares, int studies)
{
    page.heading(QStringLiteral("Cómo se comportan las pruebas"));
    page.paragraph(
        QStringLiteral(
            "Porcentaje de cuadrados de puro ruido, sin ningún efecto, que cada prueba rechaza, "
            "con "
            "su error estándar. Una prueba que cumple lo que promete rechaza 10, 5, 2 y 1 %. En el "
            "análisis, %1 cuadrados por orden y clase de ruido; F es la de los tratamientos. Las "
            "otras cuatro pruebas solo miran el orden de las observaciones: para ellas todo ruido "
            "sin empates es el mismo. «Ruido de 20 unidades» es ruido normal con una desviación "
            "estándar de 20 unidades de la última cifra anotada, y por eso con empates. En el "
            "estudio de potencia, con diferencia 0, %2 estudios de "
            "%3 "
            "pruebas, cada uno con sus propios valores críticos y con las tres distribuciones de "
            "errores por turno; el error estándar es el de la media de los estudios. Donde dice "
            "0,00 ± "
            "0,00 no se rechazó ninguno, o casi ninguno.")
            .arg(squares)
            .arg(studies)
            .arg(trialsOfAStudy));
    QList<QStringList> cells;
    for (const auto* const rows : {&analysis, &study}) {
        for (const ShareRow& row : *rows) {
            QStringList line{row.where, row.test, QString::number(row.order)};
            for (const Share& share : row.atLevels)
                line << cellOf(share);
            cells << line;
        }
    }
    QStringList header{QStringLiteral("en"), QStringLiteral("prueba"), QStringLiteral("orden")};
    for (const double level : studyLevels)
        header << base::fixedText(100 * level, 0) + QStringLiteral(" %");
    page.table(header, cells);
}

std::vector<ShareRow> readShares(const QString& document)
{
    std::vector<ShareRow> rows;
    for (const QString& line : document.split(QLatin1Char('\n'))) {
        const QStringList cells = line.split(QStringLiteral(" | "));
        if (cells.size() != static_cast<qsizetype>(3 + studyLevels.size()))
            continue;
        ShareRow row{cells[0].mid(2), cells[1], cells[2].toInt(), {}};
        bool whole = true;
        for (std::size_t level = 0; level < studyLevels.size(); ++level) {
            QString cell = cells[static_cast<qsizetype>(3 + level)];
            const auto share = shareOf(cell.remove(QStringLiteral(" |")));
            whole = whole && share;
            row.atLevels[level] = share.value_or(Share());
        }
        if (whole)
            rows.push_back(row);
    }
    return rows;
}

QStringList differences(const std::vector<ShareRow>& shares,
                        const std::vector<ShareRow>& documented)
{
    QStringList found;
    for (const ShareRow& row : shares) {
        const QString name =
            QStringLiteral("%1, %2, orden %3").arg(row.where, row.test).arg(row.order);
        const auto match =
            std::find_if(documented.begin(), documented.end(), [&](const ShareRow& other) {
                return other.where == row.where && other.test == row.test &&
                       other.order == row.order;
            });
        if (match == documented.end()) {
            found << name + QStringLiteral(": no está en el documento");
            continue;
        }
        for (std::size_t level = 0; level < studyLevels.size(); ++level) {
            constexpr double deviations = 4.5;
            constexpr double rounding = 0.02; // of share and error, as they are printed
            const Share& now = row.atLevels[level];
            const Share& then = match->atLevels[level];
            if (std::abs(now.share - then.share) >
                deviations * std::hypot(now.standardError, then.standardError) + rounding)
                found << QStringLiteral("%1: %2 y en el documento %3")
                             .arg(name, cellOf(now), cellOf(then));
        }
    }
    return found;
}

} // namespace validation
