// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/AxisScale.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr long double furthestPixel = 2147483647.0L;

} // namespace

PixelSpan PixelSpan::horizontal(int size, int leftRim, int rightRim, int shadow)
{
    const int right = size - rightRim - shadow;
    return {leftRim, right, right, size / 2, right - leftRim > 0};
}

PixelSpan PixelSpan::vertical(int size, int topRim, int bottomRim, int shadow)
{
    const int bottom = size - bottomRim - shadow;
    return {bottom, topRim, bottom, size / 2, bottom - topRim >= 1};
}

AxisScale::AxisScale(const AxisRange& range, const PixelSpan& span)
    : m_logarithmic(range.isLogarithmic())
    , m_low(m_logarithmic ? std::log(range.low()) : range.low())
    , m_factor(0.0L)
    , m_span(span)
{
    const long double high = m_logarithmic ? std::log(range.high()) : range.high();
    // Two bounds can differ in their last digits and still have one logarithm.
    if (span.hasExtent && high != m_low)
        m_factor = (span.atHigh - span.atLow) / (high - m_low);
}

long double AxisScale::offset() const
{
    return m_factor == 0 ? m_span.middle : m_span.atLow - m_factor * m_low;
}

double AxisScale::toPosition(long double value) const
{
    if (m_logarithmic && !hasLogarithm(value))
        return m_factor == 0 ? m_span.farEdge : 0.0;
    if (m_factor == 0)
        return m_span.middle;
    const long double scaled = m_logarithmic ? std::log(value) : value;
    const long double position = m_factor * (scaled - m_low) + m_span.atLow;
    return static_cast<double>(std::clamp(position, -furthestPixel, furthestPixel));
}

int AxisScale::toPixel(long double value) const
{
    return static_cast<int>(std::lround(toPosition(value)));
}

long double AxisScale::toValue(double pixel) const
{
    if (m_factor == 0)
        return m_logarithmic ? std::exp(m_low) : m_low;
    const long double scaled = (pixel - m_span.atLow) / m_factor + m_low;
    return m_logarithmic ? std::exp(scaled) : scaled;
}

} // namespace chart
