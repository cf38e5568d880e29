// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/Aleatorio.h"
#include "power/study/Simulation.h"
#include "power/study/StudySettings.h"
#include "stats/numbers/RandomIntegers.h"

#include <QString>

#include <vector>

/// The power study: how often each of the four tests without assumptions on the distribution
/// rejects when the treatments' locations rise in equal steps, as a function of the step.
namespace power {

/// One point of each of the four curves.
struct PowerPoint {
    double difference = 0.0; ///< between the locations of neighbouring treatments
    Powers powers;
    int number = 0; ///< of this point, from 1
    int count = 0;  ///< points in the study
};

/// Who is told what a study finds, as it finds it.
class StudyObserver {
public:
    virtual ~StudyObserver() = default;

    virtual void logLine(const QString& line) = 0;
    /// A difference is done; its log lines follow.
    virtual void pointDone(const PowerPoint& point) = 0;
};

/// "Distribución Uniforme" and the like; empty for a kind that is none.
QString caption(ErrorKind kind);

/// The differences of a study: from 0 in steps of 0.05, added up, while below 1.05.
std::vector<double> studyDifferences();

/// Runs a study to its end.
///
/// @param generator draws the error terms
/// @param integers  draws the squares that show how C is distributed
/// @throws UnknownErrorKind when the first error term is to be drawn
void runPowerStudy(const StudySettings& settings, Aleatorio& generator,
                   stats::RandomIntegers& integers, StudyObserver& observer);

} // namespace power
