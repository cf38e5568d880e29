// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace square {

/// What the user should know of a file that is no square: the order of an analysis is the number of
/// columns, so rows that are missing count as zeros and further rows are left out. Empty for a
/// square.
QString shapeNotice(int columns, int rows);

} // namespace square
