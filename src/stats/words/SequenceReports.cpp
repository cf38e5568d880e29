// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"
#include "stats/numbers/DegreesOfFreedom.h"
#include "stats/numbers/SequenceTests.h"
#include "stats/words/Estad.h"
#include "stats/words/ReportLines.h"

namespace stats {

using base::generalText;

namespace {

/// The lines between the statistic and the decision where the distribution is exact.
QStringList exactLines(QChar statistic, double cumulative)
{
    QStringList lines{
        QStringLiteral("Se calculó la distribución exacta para ") + statistic + QLatin1Char('.'),
        QStringLiteral("El valor de la distribución acumulada para ") + statistic +
            QStringLiteral(" es ") + generalText(cumulative),
        QString(),
    };
    lines += hypothesisLines();
    lines << QString();
    return lines;
}

/// The first of those lines where it is approximated.
QStringList approximationStart()
{
    QStringList lines{QString()};
    lines += hypothesisLines();
    lines << QString();
    return lines;
}

/// The lines of the Normal approximation between the statistic and the decision.
QStringList approximationLines(const SimulatedC& simulated, const TestCResult& result)
{
    QStringList lines = approximationStart();
    lines << QStringLiteral("La distribución de C se aproximó a partir de ") +
                 QString::number(SimulatedC::squares) + QStringLiteral(" cuadrados latinos")
          << QStringLiteral("mediante una Normal con media = ") + generalText(simulated.mean) +
                 QStringLiteral(" y desviación estandar = ") + generalText(simulated.deviation)
          << QStringLiteral("El valor normalizado de C es ") + generalText(result.normalised)
          << QStringLiteral("La distribución acumulada para C = ") + generalText(result.cumulative)
          << QString();
    return lines;
}

QString exactTitleOf(QChar statistic, int n)
{
    return QStringLiteral("Distribución exacta de ") + statistic +
           QStringLiteral(" para cuadrados de ") + QString::number(n) + QLatin1Char('x') +
           QString::number(n);
}

void handOver(const std::optional<ExactDistribution>& exact, ExactValues& values,
              bool& exactAvailable, int& exactCount)
{
    exactAvailable = exact.has_value();
    if (!exact)
        return;
    exact->handOver(values);
    exactCount = exact->count();
}

} // namespace

QStringList TestC(const TMatrix& observations, int n, double alpha, ExactValues& values,
                  bool& exactAvailable, int& exactCount, QString& exactTitle)
{
    constexpr QLatin1Char name('C');
    const TestCResult result = testC(observations, n, alpha, programIntegers());
    handOver(result.exact, values, exactAvailable, exactCount);
    exactTitle = exactTitleOf(name, n);

    QStringList lines{QStringLiteral("C = ") + generalText(result.statistic)};
    if (!result.exact && !result.simulated) {
        lines << QStringLiteral("C no se aproxima para cuadrados de orden ") + QString::number(n) +
                     QStringLiteral(" (el mayor es ") + QString::number(largestSimulatedOrder) +
                     QStringLiteral("): no se decide nada.");
        return lines;
    }
    lines += result.exact ? exactLines(name, result.cumulative)
                          : approximationLines(*result.simulated, result);
    lines << sequenceDecisionLine(alpha, result.rejected);
    return lines;
}

QStringList TestM(const TMatrix& observations, int n, double alpha, ExactValues& values,
                  bool& exactAvailable, int& exactCount, QString& exactTitle)
{
    constexpr QLatin1Char name('M');
    const TestMResult result = testM(observations, n, alpha);
    handOver(result.exact, values, exactAvailable, exactCount);
    exactTitle = exactTitleOf(name, n);

    QStringList lines{QStringLiteral("M = ") + generalText(result.statistic)};
    if (result.exact) {
        lines += exactLines(name, result.cumulative);
    } else {
        const RankDegrees degrees(n);
        lines += approximationStart();
        lines << QStringLiteral("La distribución de M se aproximó a la F con(") +
                     QString::number(degrees.numerator) + QLatin1Char(',') +
                     QString::number(degrees.denominator) + QStringLiteral(") grados de libertad.")
              << QStringLiteral("El valor crítico es = ") + generalText(result.criticalValue)
              << QString();
    }
    lines << sequenceDecisionLine(alpha, result.rejected);
    return lines;
}

} // namespace stats
