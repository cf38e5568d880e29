// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "record/SquareData.h"

#include <QByteArray>

/// What a window needs to know of a file before it touches its grids.
namespace square {

/// A square and the fingerprint of the file that it was read from.
struct LoadedSquare {
    record::SquareData square;
    QByteArray fingerprint;
};

/// Reads a file once, whole, and decides on all of it: a file with a bad observation in its last
/// row is refused like one that is no square at all. The reason is the text of the error box.
base::Outcome<LoadedSquare> loadSquare(const QString& fileName);

/// What the user should know of a file that is no square: the order of an analysis is the number of
/// columns, so rows that are missing count as zeros and further rows are left out. Empty for a
/// square.
QString shapeNotice(int columns, int rows);

} // namespace square
