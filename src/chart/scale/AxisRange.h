// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>

namespace chart {

/// The bounds of a range never leave the doubles.
inline constexpr double largestBound = std::numeric_limits<double>::max();

/// A number at or below it has no logarithm for a chart.
inline constexpr double noLogarithm = 1e-100;

/// The least bound that a margin may give a logarithmic axis.
inline constexpr double leastLogarithmicBound = 1.0000000001e-100;

inline bool hasLogarithm(long double value)
{
    return value > noLogarithm;
}

/// What one axis shows: its two bounds and the rules by which they move.
///
/// The bounds are kept in extended precision, so that a view of 1e-10 at 1e6 still has digits to
/// tell its ticks apart. They are always finite and different; low() may be the greater one, which
/// turns the axis round. On a logarithmic axis both have a logarithm. A call that asks for a bound
/// that is no finite double, or on a logarithmic axis for one without a logarithm, changes nothing.
class AxisRange {
public:
    long double low() const { return m_low; }
    long double high() const { return m_high; }
    double minRange() const { return m_minRange; }
    bool isLogarithmic() const { return m_logarithmic; }

    /// Moves one bound; the other one gives way where it would be nearer than the minimum range.
    void setLow(long double value);
    void setHigh(long double value);
    /// Both at once; where they are too near each other, high moves.
    void setBounds(long double low, long double high);

    /// The bounds of an earlier range, to the last digit where the rules have not changed since. By
    /// setBounds() the one that gave way to the minimum range might do so again by a rounding.
    void goBackTo(const AxisRange& earlier);

    /// A least width; at or below 1e-100 it is ignored. A narrower range is widened, low first and
    /// then high around the centre of the range that this leaves, so not quite to the minimum.
    void setMinRange(double width);

    /// Bounds without a logarithm are replaced when it is switched on: by a thousandth of the other
    /// one, or where neither has one by 1 and 10.
    void setLogarithmic(bool on);

    bool operator==(const AxisRange&) const = default;

private:
    bool isUsable(long double value) const;
    long double leastWidthAt(long double value) const;
    void apply(long double low, long double high);

    long double m_low = 0.0L;
    long double m_high = 10.0L;
    double m_minRange = 1e-10;
    bool m_logarithmic = false;
};

} // namespace chart
