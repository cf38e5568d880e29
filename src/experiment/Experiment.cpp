// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/Experiment.h"

#include "base/FieldLines.h"

namespace experiment {

QString unreadableNotice(const QString& row, const QString& column, QStringView field)
{
    return QStringLiteral("Es la celda de la fila «%1» y la columna «%2». %3")
        .arg(row, column, base::adviceOnObservation(field));
}

QString numbersArePasted()
{
    return QStringLiteral("Los números sin tratamientos no se extraen: péguelos con «Paste» "
                          "(Ctrl+V).");
}

} // namespace experiment
