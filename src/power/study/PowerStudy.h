// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/Aleatorio.h"
#include "power/study/Simulation.h"
#include "stats/numbers/SimulatedSquares.h"

#include <functional>
#include <vector>

/// The power study: how often each of the four tests without assumptions on the distribution
/// rejects when the treatments' locations rise in equal steps, as a function of the step.
namespace power {

/// One point of each of the four curves.
struct PowerPoint {
    double difference = 0.0; ///< between the locations of neighbouring treatments
    Powers powers;
};

/// The differences of a study: from 0 in steps of 0.05, added up, while below 1.05.
std::vector<double> studyDifferences();

/// Runs a study to its end.
///
/// @param generator draws the error terms
/// @param integers  draws the squares that show how C is distributed
/// @param pointDone is told all points that there are whenever there is one more
/// @return a point for each of studyDifferences()
/// @throws ImpossibleSetting before there is any point
std::vector<PowerPoint>
runPowerStudy(const StudySettings& settings, Aleatorio& generator, stats::RandomIntegers& integers,
              const std::function<void(const std::vector<PowerPoint>&)>& pointDone);

} // namespace power
