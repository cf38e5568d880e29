// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "experiment/LatinSquare.h"

#include <optional>

namespace experiment {

/// The square with its rows, columns and treatments rearranged so that the treatment in column c
/// and row r, all counted from 0, is (c + r) mod n; nothing where no rearrangement does it.
///
/// Of the rearrangements there are the one that leaves most rows, and then most columns, where they
/// were; where several do, the one whose treatments come in the order of their labels, or nearest
/// to it: with the first label as treatment 1 if one has it there, then the second as 2, and so on.
/// Takes O(n^3) steps.
std::optional<LatinSquare> cyclicArrangement(const LatinSquare& square);

} // namespace experiment
