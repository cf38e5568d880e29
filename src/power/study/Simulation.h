// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/Aleatorio.h"
#include "power/study/CriticalValues.h"
#include "power/study/ErrorTerms.h"

namespace power {

/// What a power study is asked for.
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
/// Numbers are drawn square after square, within a square row after row.
/// @throws ImpossibleSetting
Powers simulatedPowers(const StudySettings& settings, const CriticalValues& critical,
                       double difference, Aleatorio& generator);

} // namespace power
