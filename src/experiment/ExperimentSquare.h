// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "experiment/Experiment.h"

namespace experiment {

/// What the lines, at least one, come to as a square of cells, the likeliest way of reading them
/// first; none where they have no square shape.
///
/// A cell holds a treatment and an observation, in the order "A 24" or, where it can mean nothing
/// else, "24 A"; letters and number may touch: "A24". Rows and columns without names are called
/// "R-1", "C-1" and so on.
std::vector<base::Outcome<Experiment>> readExperimentSquare(const FieldLines& lines);

} // namespace experiment
