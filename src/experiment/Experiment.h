// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QString>
#include <QStringView>

#include <vector>

namespace experiment {

/// One observation of an experiment with its labels, and the clipboard line that it came from.
struct Observation {
    QString row;
    QString column;
    QString treatment;
    double value = 0.0;
    int line = 0; ///< From 1.
};

using Experiment = std::vector<Observation>;

/// The fields of a clipboard text, line by line.
using FieldLines = std::vector<std::vector<QStringView>>;

/// A label without blanks around it and with single blanks inside, so that "A  1" is "A 1".
QString labelText(QStringView field);

/// Whether the lines look like a list of observations rather than a square of cells.
///
/// Most of its lines have four fields, the one for the observation a number; beyond five lines the
/// four fields alone decide, since a square with lines of four fields has at most five of them.
bool isExperimentList(const FieldLines& lines);

/// Reads lines of row, column, treatment and observation, any labels.
///
/// A first line without an observation is a header. A header that names all four ("Fila",
/// "Columna", "Tratamiento", "Observación" and the like) may give them in any order; one that names
/// some of them where they are not expected is refused, since a Latin square stays one when rows,
/// columns and treatments change places and the error would never show.
base::Outcome<Experiment> readExperimentList(const FieldLines& lines);

/// What a square of cells carries beside its cells.
enum class SquareLabels {
    None,    ///< Cells only; rows and columns are called "R-1", "C-1" and so on.
    Columns, ///< A first line of column names.
    Rows,    ///< A first field of row names.
    Both,    ///< Both, the first line with or without a field above the row names.
};

/// The ways in which the lines can be read as a square, the likeliest first; none for lines that
/// have no square shape.
std::vector<SquareLabels> possibleSquareLabels(const FieldLines& lines);

/// Reads a square of cells that hold a treatment and an observation, in the order "A 24" or, where
/// it can mean nothing else, "24 A"; letters and number may touch: "A24".
base::Outcome<Experiment> readExperimentSquare(const FieldLines& lines, SquareLabels labels);

} // namespace experiment
