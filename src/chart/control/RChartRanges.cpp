// SPDX-License-Identifier: GPL-3.0-or-later
// The chart's ranges: one axis, both together, and the two rules that tie them to something else,
// equal units and dates.
#include "chart/control/RChart.h"
#include "chart/scale/DateTimeScale.h"

#include <algorithm>
#include <cmath>

namespace chart {

void TRChart::setRangeLoX(long double value)
{
    AxisRange range = m_contents.x.range;
    range.setLow(value);
    changeRange(Axis::X, range);
}

void TRChart::setRangeHiX(long double value)
{
    AxisRange range = m_contents.x.range;
    range.setHigh(value);
    changeRange(Axis::X, range);
}

void TRChart::setRangeLoY(long double value)
{
    AxisRange range = m_contents.y.range;
    range.setLow(value);
    changeRange(Axis::Y, range);
}

void TRChart::setRangeHiY(long double value)
{
    AxisRange range = m_contents.y.range;
    range.setHigh(value);
    changeRange(Axis::Y, range);
}

void TRChart::setMinRangeX(double width)
{
    AxisRange range = m_contents.x.range;
    range.setMinRange(width);
    changeRange(Axis::X, range);
}

void TRChart::setMinRangeY(double width)
{
    AxisRange range = m_contents.y.range;
    range.setMinRange(width);
    changeRange(Axis::Y, range);
}

void TRChart::setLogScaleX(bool on)
{
    AxisRange range = m_contents.x.range;
    range.setLogarithmic(on);
    changeRange(Axis::X, range);
}

void TRChart::setLogScaleY(bool on)
{
    AxisRange range = m_contents.y.range;
    range.setLogarithmic(on);
    changeRange(Axis::Y, range);
}

void TRChart::setIsometric(bool on)
{
    m_isometric = on;
    keepIsometric();
}

void TRChart::setXLabelType(LabelType type)
{
    setLabelType(Axis::X, type);
}

void TRChart::setYLabelType(LabelType type)
{
    setLabelType(Axis::Y, type);
}

void TRChart::setLabelType(Axis axis, LabelType type)
{
    AxisContents& contents = contentsOf(axis);
    if (type == LabelType::ftDateTime)
        requireDateTimeRange(contents.range);
    assign(contents.labels.type, type);
}

AxisContents& TRChart::contentsOf(Axis axis)
{
    return axis == Axis::X ? m_contents.x : m_contents.y;
}

void TRChart::changeRange(Axis axis, const AxisRange& range)
{
    View changed = view();
    (axis == Axis::X ? changed.x : changed.y) = range;
    changeView(isometricView(changed, axis));
}

void TRChart::changeView(const View& changed)
{
    requireDates(changed);
    if (changed == view())
        return;
    m_history.record(changed);
    showView(changed);
}

void TRChart::showView(const View& shown)
{
    m_contents.x.range = shown.x;
    m_contents.y.range = shown.y;
    redraw();
}

/// Shows the bounds of an earlier view. The kind of an axis may have changed since: bounds that it
/// can no longer show are left out.
void TRChart::restore(const View& earlier)
{
    View restored = view();
    restored.x.setBounds(earlier.x.low(), earlier.x.high());
    restored.y.setBounds(earlier.y.low(), earlier.y.high());
    try {
        requireDates(restored);
    } catch (const ChartError&) {
        return;
    }
    showView(restored);
}

void TRChart::requireDates(const View& wanted) const
{
    if (XLabelType() == LabelType::ftDateTime)
        requireDateTimeRange(wanted.x);
    if (YLabelType() == LabelType::ftDateTime)
        requireDateTimeRange(wanted.y);
}

/// The view with the high bound of the other axis where one unit is as long on both; as it is for a
/// chart that is not isometric, has a logarithmic axis or a plot without extent.
View TRChart::isometricView(View wanted, Axis changed) const
{
    if (!m_isometric || wanted.x.isLogarithmic() || wanted.y.isLogarithmic())
        return wanted;
    ChartContents contents = m_contents;
    contents.x.range = wanted.x;
    contents.y.range = wanted.y;
    // The labels, and so the rims, follow the range that they help to find: a few rounds settle it.
    constexpr int mostRounds = 4;
    for (int round = 0; round < mostRounds; ++round) {
        const Rims rims = measure(contents, size(), font()).layout.rims;
        const long double plotWidth = width() - rims.left - rims.right - ShadowWidth();
        const long double plotHeight = height() - rims.top - rims.bottom - ShadowWidth();
        if (plotWidth < 1 || plotHeight < 1)
            return wanted;
        const long double density =
            static_cast<long double>(std::max(physicalDpiY(), 1)) / std::max(physicalDpiX(), 1);
        const long double yPerX = plotHeight / plotWidth * density;
        const AxisRange& x = contents.x.range;
        const AxisRange& y = contents.y.range;
        const AxisRange before = changed == Axis::X ? y : x;
        if (changed == Axis::X)
            contents.y.range.setHigh(y.low() + (x.high() - x.low()) * yPerX);
        else
            contents.x.range.setHigh(x.low() + (y.high() - y.low()) / yPerX);
        if (before == (changed == Axis::X ? y : x))
            break;
    }
    return {contents.x.range, contents.y.range};
}

/// After a change of size, where there is nobody to be told of an axis of dates that would lose
/// them: it then keeps its range.
void TRChart::keepIsometric()
{
    const View kept = isometricView(view(), Axis::X);
    try {
        changeView(kept);
    } catch (const ChartError&) {
        redraw();
    }
}

} // namespace chart
