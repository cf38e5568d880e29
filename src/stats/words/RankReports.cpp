// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"
#include "stats/numbers/Bennett.h"
#include "stats/numbers/CriticalPoints.h"
#include "stats/numbers/DegreesOfFreedom.h"
#include "stats/numbers/Zimmerman.h"
#include "stats/words/Estad.h"
#include "stats/words/ReportLines.h"

namespace stats {

using base::generalText;

QStringList ZimmermanTest(const TMatrix& observations, int n, double alpha)
{
    const ZimmermanResult result = zimmermanResult(observations, n);
    const RankDegrees degrees(n);
    const double criticalValue = criticalF(alpha, degrees.numerator, degrees.denominator);

    QStringList lines{
        QStringLiteral("Prueba de Zimmerman basada en Rangos"),
        QString(),
        QStringLiteral("Valor T = ") + generalText(result.t),
    };
    if (result.t == 1.0)
        lines << QStringLiteral("T=1 ==> Se rechaza a un nivel de 0.00007");
    if (result.t == 0.0)
        lines << QStringLiteral("T=0 ==> Se acepta la hípótesis.");
    lines << QString();
    lines += hypothesisLines();
    lines << QStringLiteral("Estadística Z = ") + generalText(result.z)
          << QStringLiteral("Valor Crítico F(") + QString::number(degrees.numerator) +
                 QLatin1Char(',') + QString::number(degrees.denominator) + QStringLiteral(") = ") +
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
    lines += hypothesisLines();
    lines << rankDecisionLine(QLatin1Char('B'), b >= criticalValue);
    return lines;
}

} // namespace stats
