// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/words/TestKind.h"

#include <QString>

/// The tool tips of what can be chosen: what it asks, what it assumes and what is to be known
/// before it is believed, in two or three lines. What they say of errors comes from the manual's
/// chapter "antes-de-creer".
namespace analysis {

QString tipOf(stats::Approach approach);
QString tipOf(stats::TestKind test);
QString tipOfLevel();

} // namespace analysis
