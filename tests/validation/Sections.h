// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "validation/AnovaOfR.h"
#include "validation/Page.h"

#include <optional>

/// The sections of the document, each computed as it is written.
namespace validation {

/// The F tables of published squares beside what their books print.
void writePublishedSquares(Page& page);

/// The F tables of random squares, and of squares with constant leading digits, beside R's and a
/// plain transcription of the formulas in doubles. Without R's results its columns are left out.
void writeRandomSquares(Page& page, const std::optional<AnovasOfR>& ofR);
void writeStiffSquares(Page& page, const std::optional<AnovasOfR>& ofR);

/// The exact distributions of C and M against counting, and their decisions at every level.
void writeSequences(Page& page);

/// Distribution functions, quantiles and the generator beside Boost.Math and GSL.
void writeDistributions(Page& page);

/// How far apart the values of C's approximation lie that one square gets in many runs.
void writeSpreadOfC(Page& page, int runs);

} // namespace validation
