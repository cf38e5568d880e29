// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/MATRIX.h"
#include "stats/words/TestKind.h"

#include <QString>

namespace analysis {

/// What a report rests on: a test at a level of the observations of a square.
struct ReportBasis {
    stats::Approach approach;
    stats::TestKind test;
    double alpha; ///< The significance level as a fraction.
    stats::TMatrix observations;
};

/// What the user is told while the report that he sees rests on something else than what now stands
/// in the window: what of it has changed, and what to do. Empty where nothing has.
QString staleNotice(const ReportBasis& reported, const ReportBasis& now);

} // namespace analysis
