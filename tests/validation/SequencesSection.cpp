// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"
#include "stats/numbers/SequenceTests.h"
#include "stats/numbers/Squares.h"
#include "validation/Sections.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <cmath>
#include <map>

namespace validation {

namespace {

using Fraction = boost::multiprecision::cpp_rational;
using Labels = std::array<int, 9>;
using Counts = std::map<Fraction, int>;

Labels runIndices(const Labels& labels)
{
    Labels runs{1};
    for (std::size_t k = 1; k < labels.size(); ++k)
        runs[k] = runs[k - 1] + (labels[k] == labels[k - 1] ? 0 : 1);
    return runs;
}

std::array<Fraction, 3> meanRunIndices(const Labels& labels, const Labels& runs)
{
    std::array<Fraction, 3> means;
    for (std::size_t k = 0; k < labels.size(); ++k)
        means[static_cast<std::size_t>(labels[k])] += Fraction(runs[k], 3);
    return means;
}

/// C by its definition, in fractions.
Fraction definedC(const Labels& labels)
{
    const Labels runs = runIndices(labels);
    const int count = runs.back();
    Fraction sum = 0;
    for (const Fraction& mean : meanRunIndices(labels, runs)) {
        const Fraction deviation = mean - Fraction(count + 1, 2);
        sum += deviation * deviation;
    }
    return sum / (count * (count + 1));
}

/// M by its definition, in fractions.
Fraction definedM(const Labels& labels)
{
    const Labels runs = runIndices(labels);
    Fraction mean = 0;
    for (const int run : runs)
        mean += Fraction(run, 9);
    Fraction total = 0;
    for (const int run : runs)
        total += (run - mean) * (run - mean);
    Fraction between = 0;
    for (const Fraction& ofTreatment : meanRunIndices(labels, runs))
        between += (ofTreatment - mean) * (ofTreatment - mean);
    const Fraction q = between / total;
    return 3 * q / (1 - q);
}

/// All 9! / (3!)^3 arrangements, one by one.
template <typename Statistic>
Counts counted(const Statistic& statistic)
{
    Labels labels{0, 0, 0, 1, 1, 1, 2, 2, 2};
    Counts counts;
    do {
        ++counts[statistic(labels)];
    } while (std::next_permutation(labels.begin(), labels.end()));
    return counts;
}

struct Comparison {
    int arrangements = 0;
    int differentProbabilities = 0;
    int differentDecisions = 0;
    int equalities = 0; ///< pairs of value and level with P exactly at the level
};

Comparison compared(const Counts& counts, const stats::ExactDistribution& distribution)
{
    Comparison result;
    for (const auto& [value, count] : counts)
        result.arrangements += count;
    const int all = result.arrangements;
    int upTo = 0;
    int index = 0;
    for (const auto& [value, count] : counts) {
        upTo += count;
        const auto x = value.convert_to<double>();
        const bool same = index < distribution.count() && distribution.value(index) == x &&
                          distribution.probability(index) == static_cast<double>(count) / all &&
                          distribution.cumulative(x) == static_cast<double>(upTo) / all;
        result.differentProbabilities += same ? 0 : 1;
        for (int level = 1; level <= 99; ++level) {
            const bool rejected = (all - upTo) * 100 < (100 - level) * all;
            result.differentDecisions +=
                stats::rejects(distribution, x, (100 - level) / 100.0) == rejected ? 0 : 1;
            result.equalities += upTo * 100 == level * all ? 1 : 0;
        }
        ++index;
    }
    return result;
}

} // namespace

void writeSequences(Page& page)
{
    page.heading(QStringLiteral("Las distribuciones exactas de C y M"));
    page.paragraph(QStringLiteral(
        "Orden 3: cada una de las disposiciones de tratamientos se cuenta una por una, con C y M "
        "en "
        "fracciones según su definición. Se comparan cada valor, su probabilidad y la acumulada, "
        "bit "
        "por bit, y la decisión en cada valor y en los 99 niveles con la que dan los números "
        "enteros; "
        "«igualdades» son los pares de valor y nivel en que P es exactamente el nivel, donde no se "
        "rechaza."));
    QList<QStringList> rows;
    const auto write = [&](const QString& name, const Counts& counts,
                           const stats::ExactDistribution& distribution, int values) {
        const Comparison result = compared(counts, distribution);
        rows << QStringList{
            name,
            page.exactly(name + QStringLiteral(", disposiciones"), result.arrangements, 1680),
            page.exactly(name + QStringLiteral(", valores"), distribution.count(), values),
            page.exactly(name + QStringLiteral(", probabilidades distintas"),
                         result.differentProbabilities, 0),
            QString::number(distribution.count() * 99),
            page.exactly(name + QStringLiteral(", decisiones distintas"), result.differentDecisions,
                         0),
            QString::number(result.equalities)};
    };
    write(QStringLiteral("C"), counted(definedC), stats::exactDistributionOfC(3), 86);
    write(QStringLiteral("M"), counted(definedM), stats::exactDistributionOfM(3), 112);
    page.table({QString(), QStringLiteral("disposiciones"), QStringLiteral("valores"),
                QStringLiteral("probabilidades distintas"), QStringLiteral("decisiones"),
                QStringLiteral("decisiones distintas"), QStringLiteral("igualdades")},
               rows);
}

void writeSpreadOfC(Page& page, int runs)
{
    stats::RandomIntegers integers;
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    for (int run = 0; run < runs; ++run) {
        const double z = stats::testC(propellantSquare(), 5, 0.05, integers).normalised;
        least = std::min(least, z);
        most = std::max(most, z);
    }
    page.atLeast(QStringLiteral("menor z"), least, 75.0, 1);
    page.atMost(QStringLiteral("mayor z"), most, 105.0);
    page.paragraph(
        QStringLiteral("Desde el orden 4 la distribución de C se aproxima con 5000 cuadrados "
                       "simulados en cada corrida. En %1 corridas sobre el cuadrado del "
                       "propelente el valor normalizado fue de %2 a %3: dos corridas difieren en "
                       "la segunda cifra.")
            .arg(runs)
            .arg(base::fixedText(least, 1), base::fixedText(most, 1)));
}

} // namespace validation
