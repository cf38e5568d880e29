// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/ReportBasis.h"

#include <QStringList>

namespace analysis {

namespace {

bool isSame(const stats::TMatrix& one, const stats::TMatrix& other)
{
    if (one.NrOfColumns() != other.NrOfColumns() || one.NrOfRows() != other.NrOfRows())
        return false;
    for (int row = 1; row <= one.NrOfRows(); ++row)
        for (int column = 1; column <= one.NrOfColumns(); ++column)
            if (one.Elem(column, row) != other.Elem(column, row))
                return false;
    return true;
}

} // namespace

QString staleNotice(const ReportBasis& reported, const ReportBasis& now)
{
    QStringList changed;
    const bool otherData = !isSame(reported.observations, now.observations);
    if (otherData)
        changed << QStringLiteral("los datos");
    if (reported.approach != now.approach)
        changed << QStringLiteral("el enfoque");
    else if (reported.test != now.test)
        changed << QStringLiteral("la prueba");
    if (reported.alpha != now.alpha)
        changed << QStringLiteral("el nivel");
    if (changed.isEmpty())
        return {};

    const bool isPlural = otherData || changed.size() > 1;
    const QString last = changed.takeLast();
    const QString named = changed.isEmpty()
                              ? last
                              : changed.join(QStringLiteral(", ")) + QStringLiteral(" y ") + last;
    return isPlural ? QStringLiteral("Cambiaron %1: pulse Analizar").arg(named)
                    : QStringLiteral("Cambió %1: pulse Analizar").arg(named);
}

} // namespace analysis
