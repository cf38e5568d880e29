// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/Extraction.h"

#include <QString>

#include <functional>

namespace square {

/// The answer to "Extract from Clpbrd" of a grid, which does not know what an experiment is: a
/// copied one comes in as the cyclic square, and the status line tells the number of each treatment
/// and what was reordered. The numbers also become the identifier of a table that has none of its
/// own.
/// @param warning what else the status line says of an extraction, empty for nothing
grid::Extractor extractionAnswer(std::function<QString()> warning = {});

} // namespace square
