// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisRange.h"

/// A range with these bounds, for tests of what is built upon ranges.
inline chart::AxisRange rangeOf(long double low, long double high, bool logarithmic = false)
{
    chart::AxisRange range;
    range.setBounds(low, high);
    range.setLogarithmic(logarithmic);
    return range;
}
