// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/Aleatorio.h"
#include "power/study/CriticalValues.h"
#include "power/study/ErrorTerms.h"
#include "stats/numbers/SimulatedSquares.h"

#include <functional>
#include <vector>

/// The power study: how often each of the four tests without assumptions on the distribution
/// rejects when the treatments' locations rise in equal steps, as a function of the step.
namespace power {

/// What a study is asked for.
struct StudySettings {
    int order = 3;       ///< of the squares, 3 to 6
    int trials = 1000;   ///< simulated squares per difference
    double level = 0.95; ///< the probability of the critical values' quantiles
    ErrorKind errorKind = ErrorKind::Uniform;
};

/// The share of simulated squares that each test rejects, from 0 to 1.
using Powers = PerTest<double>;

/// Simulates settings.trials squares in which treatment t (1 to n) is shifted by t * difference,
/// which is from 0 to 1.05.
///
/// Numbers are drawn square after square, within a square column after column.
/// @throws ImpossibleSetting
Powers simulatedPowers(const StudySettings& settings, const CriticalValues& critical,
                       double difference, Aleatorio& generator);

/// One point of each of the four curves.
struct PowerPoint {
    double difference = 0.0; ///< between the locations of neighbouring treatments
    Powers powers;
};

/// The differences of a study: from 0 in steps of 0.05, added up, while below 1.05.
std::vector<double> studyDifferences();

/// Is told all points that there are whenever there is one more.
using PointDone = std::function<void(const std::vector<PowerPoint>& points)>;

/// Runs a study to its end.
///
/// @param generator draws the error terms
/// @param integers  draws the squares that show how C is distributed
/// @return a point for each of studyDifferences()
/// @throws ImpossibleSetting before there is any point
std::vector<PowerPoint> runPowerStudy(const StudySettings& settings, Aleatorio& generator,
                                      stats::RandomIntegers& integers, const PointDone& pointDone);

} // namespace power
