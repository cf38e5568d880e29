// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/SquareData.h"

#include <optional>

namespace square {

/// The box that a window shows for a file that is none of its squares.
QString badFileMessage();

/// What a window needs to know of a file before it touches its grids: the whole square, or what to
/// say to the user.
struct LoadedSquare {
    int code = 0; ///< A ReadCode of SquareFile.h; 0 exactly when there is `data`.
    std::optional<SquareData> data;
    QString problem;        ///< The text of the error box; empty exactly when there is `data`.
    QByteArray fingerprint; ///< Of the file's bytes, where there is `data`.
};

/// Reads a file once, whole, and decides on all of it: a file with a bad observation in its last
/// row is refused like one that is no square at all.
LoadedSquare loadSquare(const QString& fileName);

} // namespace square
