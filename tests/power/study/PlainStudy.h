// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/PowerStudy.h"

#include <vector>

/// The power study written down as its method reads: bubble sorts, ranks by counting, one square
/// after the other. It is what the study of the program is compared with, bit for bit, and what its
/// speed is measured against.
namespace plain {

/// Observations by row and column, both from 0.
using Square = std::vector<std::vector<double>>;

double sequenceC(const Square& square);
double sequenceM(const Square& square);
double bennett(const Square& square);
double zimmerman(const Square& square);

power::CriticalValues criticalValues(int n, double level, stats::RandomIntegers& integers);

/// The powers at each of several sets of critical values, all from the same simulated squares.
std::vector<power::Powers> simulatedPowers(const power::StudySettings& settings,
                                           const std::vector<power::CriticalValues>& criticals,
                                           double difference, power::Aleatorio& generator);

} // namespace plain
