// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/MATRIX.h"
#include "stats/TestKind.h"

#include <QStringList>

/// The tests as the user reads them: each takes the observations of a square and gives the lines of
/// its report, in order.
///
/// Observations are addressed (column, row) from 1, in the cyclic layout of treatments
/// (treatmentOf()); n is the order of the square and alpha the significance level as a fraction.
/// The program offers orders 3 to 6; a file can bring any other, and then what cannot be computed
/// is reported as "NAN" and never makes a test reject. Numbers carry the user's decimal separator.
namespace stats {

/// The classical F test: the analysis-of-variance table, or, where the error variance is exactly
/// zero, a report that says so. A source is marked when its F exceeds the critical value strictly.
QStringList FTest(const TMatrix& observations, int n, double alpha);

} // namespace stats
