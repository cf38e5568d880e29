// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/SquareData.h"

namespace grid {
class TNTabEd;
}

/// A square on its way into a grid and out of it.
namespace square {

/// Fills the grid with a square: its size, title line, names, attributes and observations, three
/// decimals in every column. Marks, what a resize had hidden and what could be undone go. Repaints
/// once.
/// @throws grid::GridError where the memory does not suffice; the grid is then as it was
void showSquare(const SquareData& data, grid::TNTabEd& table);

/// The square that the grid holds.
SquareData squareOf(const grid::TNTabEd& table);

} // namespace square
