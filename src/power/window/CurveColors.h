// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace power {

/// The colours of the curves, in the chart and in its legend.
constexpr QColor colorOfC(255, 0, 0);
constexpr QColor colorOfBennett(0, 0, 255);
constexpr QColor colorOfM(0, 128, 0);
constexpr QColor colorOfZimmerman(0, 0, 0);

} // namespace power
