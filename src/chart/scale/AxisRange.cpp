// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/AxisRange.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr long double limit = largestBound;

} // namespace

void AxisRange::setLow(long double value)
{
    if (!isUsable(value))
        return;
    const long double least = leastWidthAt(value);
    apply(value, std::abs(m_high - value) < least ? value + least : m_high);
}

void AxisRange::setHigh(long double value)
{
    if (!isUsable(value))
        return;
    const long double least = leastWidthAt(value);
    apply(std::abs(value - m_low) < least ? value - least : m_low, value);
}

void AxisRange::setBounds(long double low, long double high)
{
    if (!isUsable(low) || !isUsable(high))
        return;
    const long double least = leastWidthAt(low);
    apply(low, std::abs(high - low) < least ? low + least : high);
}

void AxisRange::goBackTo(const AxisRange& earlier)
{
    if (m_logarithmic == earlier.m_logarithmic && m_minRange == earlier.m_minRange)
        *this = earlier;
    else
        setBounds(earlier.m_low, earlier.m_high);
}

void AxisRange::setMinRange(double width)
{
    if (!hasLogarithm(width) || !std::isfinite(width))
        return;
    m_minRange = width;
    if (std::abs(m_high - m_low) >= width)
        return;
    const long double half = width / 2.0L;
    const long double wantedLow = (m_low + m_high) / 2 - half;
    const long double low =
        m_logarithmic && !hasLogarithm(wantedLow) ? std::min(m_low, m_high) : wantedLow;
    apply(low, (m_high + low) / 2 + half);
}

void AxisRange::setLogarithmic(bool on)
{
    m_logarithmic = on;
    if (!on || (hasLogarithm(m_low) && hasLogarithm(m_high)))
        return;
    const long double positive = std::max(m_low, m_high);
    const long double other = positive / 1000;
    if (hasLogarithm(other))
        setBounds(m_low < m_high ? other : positive, m_low < m_high ? positive : other);
    // So great a minimum range that it leaves no room above 0 is no better than bounds below it.
    if (!hasLogarithm(m_low) || !hasLogarithm(m_high)) {
        m_low = 1.0L;
        m_high = std::clamp(1.0L + leastWidthAt(1.0L), 10.0L, limit);
    }
}

bool AxisRange::isUsable(long double value) const
{
    return std::abs(value) <= limit && (!m_logarithmic || hasLogarithm(value));
}

/// The minimum range, or more where the bounds are so far from 0 that it would be lost in their
/// last digits: 32 units of the last place, enough for a few ticks.
long double AxisRange::leastWidthAt(long double value) const
{
    constexpr long double digitsNeeded = 32 * std::numeric_limits<long double>::epsilon();
    return std::max<long double>(m_minRange, std::abs(value) * digitsNeeded);
}

void AxisRange::apply(long double low, long double high)
{
    // A bound pushed out of the doubles takes the other one back with it.
    const long double above = std::max({low - limit, high - limit, 0.0L});
    const long double below = std::min({low + limit, high + limit, 0.0L});
    low = std::clamp(low - above - below, -limit, limit);
    high = std::clamp(high - above - below, -limit, limit);
    if (m_logarithmic && !(hasLogarithm(low) && hasLogarithm(high)))
        return;
    m_low = low;
    m_high = high;
}

} // namespace chart
