// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The lines that several reports share.
namespace stats {

/// The two hypotheses about the treatments' location.
QStringList hypothesisLines();

/// "Según el valor de Z, se acepta H0"
QString rankDecisionLine(QChar statistic, bool rejected);

/// "Para alpha = 0.05 se acepta la hipótesis."
QString sequenceDecisionLine(double alpha, bool rejected);

} // namespace stats
