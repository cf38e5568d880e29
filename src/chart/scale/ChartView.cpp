// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ChartView.h"

#include "chart/scale/DateTimeScale.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace chart {

namespace {

long double widthOf(const AxisRange& range)
{
    return std::abs(range.high() - range.low());
}

/// What throws only where dates are refused: then nothing happens.
template <typename Call>
void unlessRefused(Call call)
{
    try {
        call();
    } catch (const ChartError&) {
        return;
    }
}

} // namespace

ZoomHistory::ZoomHistory(const View& full)
    : m_views{full}
{
}

void ZoomHistory::record(const View& view)
{
    if (view == m_views.back())
        return;
    m_views.push_back(view);
    if (m_views.size() > depth)
        m_views.erase(std::next(m_views.begin()));
}

void ZoomHistory::restart(const View& full)
{
    m_views.assign(1, full);
}

const View& ZoomHistory::goBack()
{
    if (canGoBack())
        m_views.pop_back();
    return m_views.back();
}

const View& ZoomHistory::goToFull()
{
    m_views.resize(1, m_views.front());
    return m_views.back();
}

bool ZoomHistory::goBackTo(const AxisRange& x)
{
    const auto found = std::find_if(m_views.rbegin(), m_views.rend(),
                                    [&x](const View& view) { return view.x == x; });
    if (found == m_views.rend())
        return false;
    m_views.erase(found.base(), m_views.end());
    return true;
}

ChartView::ChartView(UnitRatio unitRatio)
    : m_unitRatio(std::move(unitRatio))
    , m_history(m_shown)
{
}

void ChartView::setIsometric(bool on)
{
    m_isometric = on;
    keepIsometric();
}

void ChartView::keepIsometric()
{
    unlessRefused([this] { change(isometric(m_shown, Axis::X)); });
}

void ChartView::setDates(Axis axis, bool on)
{
    if (on)
        requireDateTimeRange(m_shown.along(axis));
    (axis == Axis::X ? m_datesX : m_datesY) = on;
}

void ChartView::setRange(Axis axis, const AxisRange& range)
{
    View changed = m_shown;
    changed.along(axis) = range;
    change(isometric(changed, axis));
}

void ChartView::fit(const Bounds& x, const Bounds& y)
{
    View fitted = with(x, y);
    // Of the two ways to equal units the one that still shows all the data.
    const View byX = isometric(fitted, Axis::X);
    fitted = widthOf(byX.y) >= widthOf(fitted.y) ? byX : isometric(fitted, Axis::Y);
    requireDates(fitted);
    m_shown = fitted;
    makeFull();
}

void ChartView::zoomTo(const Bounds& x, const Bounds& y)
{
    unlessRefused([&] { change(isometric(with(x, y), Axis::X)); });
}

void ChartView::moveTo(const Bounds& x, const Bounds& y)
{
    show(with(x, y));
}

void ChartView::followX(const AxisRange& x, bool isStep)
{
    if (isStep && m_history.goBackTo(x)) {
        restore(m_history.newest());
        return;
    }
    moveTo({x.low(), x.high()}, {m_shown.y.low(), m_shown.y.high()});
    if (isStep)
        record();
}

void ChartView::restore(const View& earlier)
{
    View view = m_shown;
    view.x.goBackTo(earlier.x);
    view.y.goBackTo(earlier.y);
    show(view);
}

View ChartView::with(const Bounds& x, const Bounds& y) const
{
    View view = m_shown;
    view.x.setBounds(x.low, x.high);
    view.y.setBounds(y.low, y.high);
    return view;
}

/// Shows a view as it is, on an axis of dates only where it can.
void ChartView::show(const View& wanted)
{
    unlessRefused([&] {
        requireDates(wanted);
        m_shown = wanted;
    });
}

/// The view with the high bound of the other axis where one unit is as long on both; as it is for a
/// chart that is not isometric, has a logarithmic axis or a plot without extent.
View ChartView::isometric(View wanted, Axis changed) const
{
    if (!m_isometric || wanted.x.isLogarithmic() || wanted.y.isLogarithmic())
        return wanted;
    const Axis other = changed == Axis::X ? Axis::Y : Axis::X;
    const AxisRange& given = wanted.along(changed);
    const long double length = given.high() - given.low();
    View found = wanted;
    // The labels, and so the rims, follow the range that they help to find: a few rounds settle it.
    constexpr int mostRounds = 4;
    for (int round = 0; round < mostRounds; ++round) {
        const std::optional<long double> yPerX = m_unitRatio(found);
        if (!yPerX)
            return wanted;
        AxisRange& range = found.along(other);
        const AxisRange before = range;
        range.setHigh(range.low() + (other == Axis::Y ? length * *yPerX : length / *yPerX));
        if (range == before)
            break;
    }
    return found;
}

void ChartView::requireDates(const View& wanted) const
{
    if (m_datesX)
        requireDateTimeRange(wanted.x);
    if (m_datesY)
        requireDateTimeRange(wanted.y);
}

void ChartView::change(const View& wanted)
{
    requireDates(wanted);
    if (wanted == m_shown)
        return;
    m_shown = wanted;
    m_history.record(wanted);
}

} // namespace chart
