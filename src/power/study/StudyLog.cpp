// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/StudyLog.h"

#include "base/NumberText.h"

namespace power {

using base::generalText;

QString caption(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::Uniform:
        return QStringLiteral("Distribución Uniforme");
    case ErrorKind::Exponential:
        return QStringLiteral("Distribución Exponencial");
    case ErrorKind::Triangular:
        return QStringLiteral("Distribución Triangular [0,1]");
    }
    return {};
}

QStringList startLines(const StudySettings& settings)
{
    return {
        QStringLiteral("Iniciado análisis de potencia (Cuadrado tamaño ") +
            QString::number(settings.order) + QStringLiteral("), ") +
            QString::number(settings.trials) + QStringLiteral(" pruebas..."),
        QStringLiteral("Datos provenientes de ") + caption(settings.errorKind),
        QStringLiteral("Calculando valores críticos..."),
        QStringLiteral("Comenzando las pruebas..."),
        QString(),
    };
}

QStringList pointLines(const PowerPoint& point)
{
    return {
        QStringLiteral("Potencias con dif = ") + generalText(point.difference) +
            QStringLiteral(" : "),
        QStringLiteral("C : ") + generalText(point.powers.c),
        QStringLiteral("M : ") + generalText(point.powers.m),
        QStringLiteral("B : ") + generalText(point.powers.b),
        QStringLiteral("Z : ") + generalText(point.powers.z),
        QString(),
    };
}

} // namespace power
