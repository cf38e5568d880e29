// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/ExactDistribution.h"
#include "stats/numbers/MATRIX.h"
#include "stats/words/TestKind.h"

#include <QStringList>

#include <array>
#include <optional>

/// The tests as the user reads them: each takes the observations of a square and gives the lines of
/// its report, in order.
///
/// Observations are addressed (column, row) from 1, in the cyclic layout of treatments
/// (treatmentOf()); n is the order of the square and alpha the significance level as a fraction.
/// The program offers orders 3 to 6; a file can bring any other from 1 on, and then what cannot be
/// computed, a critical value without degrees of freedom included, is reported as "NAN" and never
/// makes a test reject. Numbers carry the user's decimal separator.
namespace stats {

/// The classical F test: the analysis-of-variance table, or, where the error variance is exactly
/// zero, a report that says so. A source is marked when its F exceeds the critical value strictly.
QStringList FTest(const TMatrix& observations, int n, double alpha);

/// Zimmerman's rank test against F(n - 1, n (n - 1)); Z equal to the critical value rejects.
QStringList ZimmermanTest(const TMatrix& observations, int n, double alpha);

/// Bennett's rank test against chi-square with n - 1 degrees of freedom; equality rejects.
QStringList BennettTest(const TMatrix& observations, int n, double alpha);

/// The largest order whose cells a file can have. With more columns some cells would be missing,
/// and from order 8531 on the products of M no longer fit into their 128 bits.
constexpr int largestOrder = 4000;

/// What a test answers: its lines and, where it is a sequence test up to order 3, the exact
/// distribution.
struct TestReport {
    QStringList lines;
    std::optional<ExactDistribution> exact;
    QString exactTitle; ///< Of a sequence test, exact or not.
};

/// Sequence test C, decided, as M is, in SequenceTests.h: exact up to order 3, by a Normal fitted
/// to 5000 simulated squares beyond, drawn from the program's generator, so that two runs on one
/// square differ: their z by some per cent. Beyond largestSimulatedOrder the report says that C is
/// not approximated, and decides nothing.
TestReport reportC(const TMatrix& observations, int n, double alpha);

/// Sequence test M: exact up to order 3, against F(n - 1, n (n - 1)) beyond, where equality
/// rejects.
TestReport reportM(const TMatrix& observations, int n, double alpha);

/// Any of the five; beyond largestOrder one line that says so, and nothing is decided.
TestReport runTest(TestKind kind, const TMatrix& observations, int n, double alpha);

/// An exact distribution as it is handed to the outside: first the values, ascending, then as many
/// probabilities. Order 3 has 86 values of C and 112 of M.
using ExactValues = std::array<double, 1000>;

/// reportC() and reportM() for tests and the outside. The exact case sets exactAvailable and fills
/// values and exactCount; any other clears exactAvailable and leaves them alone. The title is set
/// always.
QStringList TestC(const TMatrix& observations, int n, double alpha, ExactValues& values,
                  bool& exactAvailable, int& exactCount, QString& exactTitle);
QStringList TestM(const TMatrix& observations, int n, double alpha, ExactValues& values,
                  bool& exactAvailable, int& exactCount, QString& exactTitle);

} // namespace stats
