// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/PowerStudy.h"

/// The power study as a simple program would be quick: one square after the other, one sorting of
/// each, everything else counted from the order. What squares side by side win is measured against
/// it.
namespace scalar {

constexpr int order = 6;

/// As power::simulatedPowers(), for settings.order == order.
power::Powers simulatedPowers(const power::StudySettings& settings,
                              const power::CriticalValues& critical, double difference,
                              power::Aleatorio& generator);

} // namespace scalar
