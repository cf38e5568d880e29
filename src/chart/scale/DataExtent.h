// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/ItemList.h"

namespace chart {

/// The least and greatest coordinate of some items along one axis.
struct AxisExtent {
    double min = 1.7e308;
    double max = -1.7e308;

    bool isEmpty() const { return min > max; }
    void include(double value);
};

struct DataExtent {
    AxisExtent x;
    AxisExtent y;
};

/// How far the items reach: both points of the two-point kinds, the whole of the error bars.
///
/// Items that are not finite do not count, nor along a logarithmic axis the coordinates that have
/// no logarithm (hasLogarithm() of AxisRange.h).
DataExtent extentOf(const ItemList& items, bool logarithmicX, bool logarithmicY);

/// Two bounds, in the precision of the axes.
struct Bounds {
    long double low;
    long double high;
};

/// The bounds of an axis that shows the extent with a margin of so many percent on both sides.
///
/// Linear: each end moves out by percent/100 of the width. Logarithmic: by the factor max/min to
/// the power percent/100. Both bounds are 0 for an empty extent; no bound leaves the doubles. A
/// margin that is no finite number counts as 0.
Bounds boundsAround(const AxisExtent& extent, double percent, bool logarithmic);

} // namespace chart
