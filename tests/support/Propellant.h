// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

/// Burning rates of a rocket propellant, row by row: batches in rows, operators in columns,
/// formulations in cyclic layout. D. C. Montgomery, Design and Analysis of Experiments.
inline const std::vector<std::vector<double>> propellantRows{{24, 20, 19, 24, 24},
                                                             {17, 24, 30, 27, 36},
                                                             {18, 38, 26, 27, 21},
                                                             {26, 31, 26, 23, 22},
                                                             {22, 30, 20, 29, 31}};
