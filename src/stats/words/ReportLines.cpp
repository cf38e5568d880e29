// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/words/ReportLines.h"

#include "base/NumberText.h"

namespace stats {

namespace {

QString verb(bool rejected)
{
    return rejected ? QStringLiteral("rechaza") : QStringLiteral("acepta");
}

} // namespace

QStringList hypothesisLines()
{
    return {QStringLiteral("H0 = Los parámetros de localización son iguales"),
            QStringLiteral("Ha = Los parametros de localización son diferentes")};
}

QString rankDecisionLine(QChar statistic, bool rejected)
{
    return QStringLiteral("Según el valor de ") + statistic + QStringLiteral(", se ") +
           verb(rejected) + QStringLiteral(" H0");
}

QString sequenceDecisionLine(double alpha, bool rejected)
{
    return QStringLiteral("Para alpha = ") + base::generalText(alpha) + QStringLiteral(" se ") +
           verb(rejected) + QStringLiteral(" la hipótesis.");
}

} // namespace stats
