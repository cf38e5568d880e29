// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
