// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisRange.h"

namespace chart {

/// Where the plot lies along one axis, in logical pixels of the control.
struct PixelSpan {
    int atLow;   ///< The pixel of the low bound: the left, or for y the bottom, edge of the plot.
    int atHigh;  ///< The pixel of the high bound.
    int farEdge; ///< The greater of the two edges: right or bottom.
    int middle;  ///< Of the control, where everything falls when the plot has no extent.
    bool hasExtent;

    /// The x axis of a control: plot from `leftRim` to `size` - `rightRim` - `shadow`.
    static PixelSpan horizontal(int size, int leftRim, int rightRim, int shadow);
    /// The y axis, which grows upwards: low at `size` - `bottomRim` - `shadow`, high at `topRim`.
    static PixelSpan vertical(int size, int topRim, int bottomRim, int shadow);
};

/// Data coordinates to pixels and back along one axis.
///
/// pixel = factor() x + offset(), on a logarithmic axis with ln x in place of x. It is computed
/// relative to the low bound, so that a narrow range far from 0 loses no digits.
class AxisScale {
public:
    AxisScale(const AxisRange& range, const PixelSpan& span);

    // Published; only tests and the outside call these two.
    /// Pixels per unit, or per e-fold; 0 when the plot has no extent.
    long double factor() const { return m_factor; }
    long double offset() const;

    /// The position, clamped to -2147483647..2147483647 so that no far-off point overflows a
    /// drawing call. What has no logarithm is placed at 0; or at the far edge of a plot without
    /// extent. The value must not be NaN.
    double toPosition(long double value) const;
    /// The same rounded to a pixel.
    int toPixel(long double value) const;

    /// The inverse; the low bound everywhere when the plot has no extent.
    long double toValue(double pixel) const;

private:
    bool m_logarithmic;
    long double m_low; ///< ln of it on a logarithmic axis.
    long double m_factor;
    PixelSpan m_span;
};

} // namespace chart
