// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/PowerStudy.h"

#include "base/NumberText.h"

namespace power {

using base::generalText;

namespace {

void logStart(const StudySettings& settings, StudyObserver& observer)
{
    observer.logLine(QStringLiteral("Iniciado análisis de potencia (Cuadrado tamaño ") +
                     QString::number(settings.order) + QStringLiteral("), ") +
                     QString::number(settings.trials) + QStringLiteral(" pruebas..."));
    observer.logLine(QStringLiteral("Datos provenientes de ") + caption(settings.errorKind));
    observer.logLine(QStringLiteral("Calculando valores críticos..."));
}

void logPoint(const PowerPoint& point, StudyObserver& observer)
{
    observer.logLine(QStringLiteral("Potencias con dif = ") + generalText(point.difference) +
                     QStringLiteral(" : "));
    observer.logLine(QStringLiteral("C : ") + generalText(point.powers.c));
    observer.logLine(QStringLiteral("M : ") + generalText(point.powers.m));
    observer.logLine(QStringLiteral("B : ") + generalText(point.powers.b));
    observer.logLine(QStringLiteral("Z : ") + generalText(point.powers.z));
    observer.logLine(QString());
}

} // namespace

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

std::vector<double> studyDifferences()
{
    constexpr double step = 0.05;
    constexpr double end = 1.05;
    std::vector<double> differences;
    for (double difference = 0.0; difference < end; difference += step)
        differences.push_back(difference);
    return differences;
}

void runPowerStudy(const StudySettings& settings, Aleatorio& generator,
                   stats::RandomIntegers& integers, StudyObserver& observer)
{
    logStart(settings, observer);
    const CriticalValues critical = criticalValues(settings.order, settings.level, integers);
    observer.logLine(QStringLiteral("Comenzando las pruebas..."));
    observer.logLine(QString());

    const std::vector<double> differences = studyDifferences();
    PowerPoint point;
    point.count = static_cast<int>(differences.size());
    for (const double difference : differences) {
        point.difference = difference;
        point.powers = simulatedPowers(settings, critical, difference, generator);
        ++point.number;
        observer.pointDone(point);
        logPoint(point, observer);
    }
}

} // namespace power
