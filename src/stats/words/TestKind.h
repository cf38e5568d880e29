// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

/// The five tests and the approaches that offer them, with the captions that the user reads.
namespace stats {

enum class Approach { Classical, Ranks, Sequences };

enum class TestKind { F, Zimmerman, Bennett, C, M };

/// The approaches in the order in which they are offered.
std::vector<Approach> approaches();

/// The tests of an approach in the order in which they are offered.
std::vector<TestKind> testsOf(Approach approach);

QString caption(Approach approach);
QString caption(TestKind kind);

} // namespace stats
