// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/Aleatorio.h"
#include "power/study/CriticalValues.h"
#include "power/study/StudySettings.h"

namespace power {

/// The share of simulated squares that each test rejects, from 0 to 1.
struct Powers {
    double c = 0.0;
    double m = 0.0;
    double b = 0.0;
    double z = 0.0;
};

/// Simulates settings.trials squares in which treatment t (1 to n) is shifted by t * difference.
///
/// Numbers are drawn square after square, within a square row after row.
/// @param settings   an order other than 3 to 6 gives no powers but zeros
/// @param difference from 0 to 1.05
/// @throws UnknownErrorKind
Powers simulatedPowers(const StudySettings& settings, const CriticalValues& critical,
                       double difference, Aleatorio& generator);

} // namespace power
