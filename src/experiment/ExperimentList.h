// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "experiment/Experiment.h"

namespace experiment {

/// What a square with lines of four fields has at most: order 4, a line of names.
inline constexpr std::size_t mostLinesOfASquare = 5;

/// Whether the lines, at least one, look like a list of observations rather than a square of cells.
///
/// Its first line names the fields, or most of its lines have four fields, the one for the
/// observation a number; beyond five lines the four fields alone decide.
bool isExperimentList(const FieldLines& lines);

/// Reads lines of row, column, treatment and observation, any labels.
///
/// A first line without an observation is a header. A header that names all four ("Fila",
/// "Columna", "Tratamiento", "Observación" and the like) may give them in any order and among other
/// fields, which are not read; one that names some of them where they are not expected, or one of
/// them twice, is refused, since a Latin square stays one when rows, columns and treatments change
/// places and the error would never show. So are further fields behind commas where each
/// observation and what follows it are whole numbers: these could be its decimals.
base::Outcome<Experiment> readExperimentList(const FieldLines& lines, Separators separators);

} // namespace experiment
