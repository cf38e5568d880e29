// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace chart {

/// Makes charts say to assistive technology what they show: a chart with its name, and as its
/// description TRChart::description(), worked out only when it is asked for. Once per process;
/// calling it again does nothing.
void installChartAccessibility();

} // namespace chart
