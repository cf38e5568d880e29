// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The one layout of treatments: the cyclic standard square.
namespace stats {

/// The treatment (1 to n) of a cell; column, row from 1. Row 1 reads 1, 2, ..., n from left to
/// right, and each further row is the one above shifted by one place. Column and row may be
/// exchanged.
constexpr int treatmentOf(int column, int row, int n)
{
    const int remainder = (column + row - 1) % n;
    return remainder == 0 ? n : remainder;
}

} // namespace stats
