// SPDX-License-Identifier: GPL-3.0-or-later
// The tests that assume no distribution. The F test's report is in FTestReport.cpp.
#include "stats/words/Estad.h"

#include "base/NumberText.h"
#include "stats/numbers/CriticalFAndChiSquare.h"
#include "stats/numbers/RankStatistics.h"
#include "stats/numbers/SequenceTests.h"

namespace stats {

using base::generalText;

namespace {

/// The hypotheses about the treatments' location.
QStringList hypothesisLines()
{
    return {QStringLiteral("H0 = Los parámetros de localización son iguales"),
            QStringLiteral("Ha = Los parametros de localización son diferentes")};
}

QString verb(bool rejected)
{
    return rejected ? QStringLiteral("rechaza") : QStringLiteral("acepta");
}

/// "Según el valor de Z, se acepta H0"
QString rankDecisionLine(QChar statistic, bool rejected)
{
    return QStringLiteral("Según el valor de ") + statistic + QStringLiteral(", se ") +
           verb(rejected) + QStringLiteral(" H0");
}

/// "Para alpha = 0.05 se acepta la hipótesis."
QString sequenceDecisionLine(double alpha, bool rejected)
{
    return QStringLiteral("Para alpha = ") + generalText(alpha) + QStringLiteral(" se ") +
           verb(rejected) + QStringLiteral(" la hipótesis.");
}

/// "2,6", numerator and denominator.
QString degreesText(const RankDegrees& degrees)
{
    return QString::number(degrees.numerator) + QLatin1Char(',') +
           QString::number(degrees.denominator);
}

/// The lines of a sequence test between the statistic and what the approximation has to say.
QStringList separatedHypotheses()
{
    return QStringList{QString()} + hypothesisLines() + QStringList{QString()};
}

/// The lines between the statistic and the decision where the distribution is exact.
QStringList exactLines(QChar statistic, double cumulative)
{
    return QStringList{QStringLiteral("Se calculó la distribución exacta para ") + statistic +
                           QLatin1Char('.'),
                       QStringLiteral("El valor de la distribución acumulada para ") + statistic +
                           QStringLiteral(" es ") + generalText(cumulative)} +
           separatedHypotheses();
}

/// Those lines of C where a Normal approximates it.
QStringList normalLines(const TestCResult& result)
{
    return separatedHypotheses() +
           QStringList{
               QStringLiteral("La distribución de C se aproximó a partir de ") +
                   QString::number(SimulatedC::squares) + QStringLiteral(" cuadrados latinos"),
               QStringLiteral("mediante una Normal con media = ") +
                   generalText(result.simulated->mean) +
                   QStringLiteral(" y desviación estandar = ") +
                   generalText(result.simulated->deviation),
               QStringLiteral("El valor normalizado de C es ") + generalText(result.normalised),
               QStringLiteral("La distribución acumulada para C = ") +
                   generalText(result.cumulative),
               QString(),
           };
}

/// Those lines of M where the F distribution approximates it.
QStringList fLines(const TestMResult& result, int n)
{
    return separatedHypotheses() +
           QStringList{
               QStringLiteral("La distribución de M se aproximó a la F con(") +
                   degreesText(RankDegrees(n)) + QStringLiteral(") grados de libertad."),
               QStringLiteral("El valor crítico es = ") + generalText(result.criticalValue),
               QString(),
           };
}

/// Where the order is too large for any test.
QString noAnalysisLine(int n)
{
    return QStringLiteral("No se analizan cuadrados de orden ") + QString::number(n) +
           QStringLiteral(" (el mayor es ") + QString::number(largestOrder) +
           QStringLiteral("): no se decide nada.");
}

QString exactTitleOf(QChar statistic, int n)
{
    return QStringLiteral("Distribución exacta de ") + statistic +
           QStringLiteral(" para cuadrados de ") + QString::number(n) + QLatin1Char('x') +
           QString::number(n);
}

/// A report in its published form.
QStringList handOver(const TestReport& report, ExactValues& values, bool& exactAvailable,
                     int& exactCount, QString& exactTitle)
{
    exactTitle = report.exactTitle;
    exactAvailable = report.exact.has_value();
    if (report.exact) {
        report.exact->handOver(values);
        exactCount = report.exact->count();
    }
    return report.lines;
}

} // namespace

QStringList ZimmermanTest(const TMatrix& observations, int n, double alpha)
{
    const ZimmermanResult result = zimmermanResult(observations, n);
    const RankDegrees degrees(n);
    const double criticalValue = criticalF(alpha, degrees);

    QStringList lines{
        QStringLiteral("Prueba de Zimmerman basada en Rangos"),
        QString(),
        QStringLiteral("Valor T = ") + generalText(result.t),
    };
    if (result.t == 1.0)
        lines << QStringLiteral("T=1 ==> Se rechaza a un nivel de 0.00007");
    if (result.t == 0.0)
        lines << QStringLiteral("T=0 ==> Se acepta la hípótesis.");
    lines << QString() << hypothesisLines()
          << QStringLiteral("Estadística Z = ") + generalText(result.z)
          << QStringLiteral("Valor Crítico F(") + degreesText(degrees) + QStringLiteral(") = ") +
                 generalText(criticalValue)
          << QStringLiteral("alpha = ") + generalText(alpha) << QString()
          << rankDecisionLine(QLatin1Char('Z'), result.z >= criticalValue);
    return lines;
}

QStringList BennettTest(const TMatrix& observations, int n, double alpha)
{
    const double b = BennettStatistic(observations, n);
    const int degrees = n - 1;
    const double criticalValue = criticalChiSquare(alpha, degrees);

    QStringList lines{
        QStringLiteral("Prueba de Bennett basada en Rangos"),
        QString(),
        QStringLiteral("Estadística de prueba B= ") + generalText(b),
        QString(),
        QStringLiteral("Valor Crítico Chi2(") + QString::number(degrees) +
            QStringLiteral(" grados de libertad) = ") + generalText(criticalValue),
        QStringLiteral("alpha = ") + generalText(alpha),
        QString(),
    };
    lines << hypothesisLines() << rankDecisionLine(QLatin1Char('B'), b >= criticalValue);
    return lines;
}

TestReport reportC(const TMatrix& observations, int n, double alpha)
{
    constexpr QLatin1Char name('C');
    const TestCResult result = testC(observations, n, alpha, programIntegers());
    QStringList lines{QStringLiteral("C = ") + generalText(result.statistic)};
    if (!result.exact && !result.simulated) {
        lines << QStringLiteral("C no se aproxima para cuadrados de orden ") + QString::number(n) +
                     QStringLiteral(" (el mayor es ") + QString::number(largestSimulatedOrder) +
                     QStringLiteral("): no se decide nada.");
        return {lines, std::nullopt, exactTitleOf(name, n)};
    }
    lines << (result.exact ? exactLines(name, result.cumulative) : normalLines(result))
          << sequenceDecisionLine(alpha, result.rejected);
    return {lines, result.exact, exactTitleOf(name, n)};
}

TestReport reportM(const TMatrix& observations, int n, double alpha)
{
    constexpr QLatin1Char name('M');
    const TestMResult result = testM(observations, n, alpha);
    QStringList lines{QStringLiteral("M = ") + generalText(result.statistic)};
    lines << (result.exact ? exactLines(name, result.cumulative) : fLines(result, n))
          << sequenceDecisionLine(alpha, result.rejected);
    return {lines, result.exact, exactTitleOf(name, n)};
}

TestReport runTest(TestKind kind, const TMatrix& observations, int n, double alpha)
{
    if (n > largestOrder)
        return {{noAnalysisLine(n)}, std::nullopt, {}};
    switch (kind) {
    case TestKind::F:
        return {FTest(observations, n, alpha), std::nullopt, {}};
    case TestKind::Zimmerman:
        return {ZimmermanTest(observations, n, alpha), std::nullopt, {}};
    case TestKind::Bennett:
        return {BennettTest(observations, n, alpha), std::nullopt, {}};
    case TestKind::C:
        return reportC(observations, n, alpha);
    case TestKind::M:
        return reportM(observations, n, alpha);
    }
    return {};
}

QStringList TestC(const TMatrix& observations, int n, double alpha, ExactValues& values,
                  bool& exactAvailable, int& exactCount, QString& exactTitle)
{
    return handOver(reportC(observations, n, alpha), values, exactAvailable, exactCount,
                    exactTitle);
}

QStringList TestM(const TMatrix& observations, int n, double alpha, ExactValues& values,
                  bool& exactAvailable, int& exactCount, QString& exactTitle)
{
    return handOver(reportM(observations, n, alpha), values, exactAvailable, exactCount,
                    exactTitle);
}

} // namespace stats
