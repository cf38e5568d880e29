// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/ErrorTerms.h"

namespace power {

/// What a power study is asked for.
struct StudySettings {
    int order = 3;       ///< of the squares, 3 to 6
    int trials = 1000;   ///< simulated squares per difference
    double level = 0.95; ///< the probability of the critical values' quantiles
    ErrorKind errorKind = ErrorKind::Uniform;
};

} // namespace power
