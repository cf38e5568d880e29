// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisRange.h"
#include "chart/scale/DataExtent.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>

namespace chart {

enum class Axis { X, Y };

/// What a chart shows: the ranges of both axes.
struct View {
    AxisRange x;
    AxisRange y;

    AxisRange& along(Axis axis) { return axis == Axis::X ? x : y; }
    const AxisRange& along(Axis axis) const { return axis == Axis::X ? x : y; }

    bool operator==(const View&) const = default;
};

/// The views of a chart in the order in which they came, the newest being the one on the screen.
///
/// The oldest is the full view. When the history is full the one after it is forgotten.
class ZoomHistory {
public:
    static constexpr std::size_t depth = 64;

    explicit ZoomHistory(const View& full);

    /// A new view becomes the newest; one equal to the newest changes nothing.
    void record(const View& view);
    /// Forgets everything: `full` is the full view and the only one.
    void restart(const View& full);

    bool canGoBack() const { return m_views.size() > 1; }
    /// Drops the newest view where there is an older one. @return the newest now
    const View& goBack();
    /// Drops all but the full view. @return it
    const View& goToFull();
    /// Drops what is newer than the newest view of this x range. @return whether there is one
    bool goBackTo(const AxisRange& x);

    std::size_t size() const { return m_views.size(); }
    const View& newest() const { return m_views.back(); }

private:
    std::deque<View> m_views; ///< Never empty.
};

/// What a chart shows, how it came to it, and the two rules that tie its ranges to something else:
/// equal units and dates.
///
/// On an axis of dates a range without dates is refused. What throws then has changed nothing.
class ChartView {
public:
    /// How many units of y are as long as one of x on the screen where a view is shown; nothing
    /// where its plot has no extent.
    using UnitRatio = std::function<std::optional<long double>(const View&)>;

    explicit ChartView(UnitRatio unitRatio);

    const View& shown() const { return m_shown; }
    /// What was shown; the newest view is the present one.
    const ZoomHistory& history() const { return m_history; }

    /// One unit as long on both linear axes. A change of one axis moves the high bound of the
    /// other.
    bool isIsometric() const { return m_isometric; }
    void setIsometric(bool on);
    /// After a change of what UnitRatio depends on. There is nobody to be told of an axis of dates
    /// that would lose them: it then keeps its range.
    void keepIsometric();

    /// @throws ChartError as requireDateTimeRange()
    void setDates(Axis axis, bool on);
    /// Gives one axis a range. @throws ChartError as requireDateTimeRange()
    void setRange(Axis axis, const AxisRange& range);
    /// Shows at least these bounds, as the full view. @throws ChartError as requireDateTimeRange()
    void fit(const Bounds& x, const Bounds& y);
    /// Makes what is shown the full view, and forgets how it came to it.
    void makeFull() { m_history.restart(m_shown); }

    /// Shows what the user asked for, on an axis of dates only where it can.
    void zoomTo(const Bounds& x, const Bounds& y);
    /// The same on its way, by other bounds of the same kind: neither made isometric nor recorded.
    void moveTo(const Bounds& x, const Bounds& y);
    /// Records where the moves have led.
    void record() { m_history.record(m_shown); }
    /// Whether what is shown is a step, and not on its way to one.
    bool isStep() const { return m_shown == m_history.newest(); }
    /// Shows the x range of another chart, whose user has made a step or is on its way to one. A
    /// range that was shown before is gone back to, as the other chart will have done.
    void followX(const AxisRange& x, bool isStep);
    /// One step back in the history, and back to the full view.
    void goBack() { restore(m_history.goBack()); }
    void goToFull() { restore(m_history.goToFull()); }
    /// Shows the bounds of an earlier view. The kind of an axis may have changed since: bounds that
    /// it can no longer show are left out.
    void restore(const View& earlier);

private:
    View with(const Bounds& x, const Bounds& y) const;
    void show(const View& wanted);
    View isometric(View wanted, Axis changed) const;
    void requireDates(const View& wanted) const;
    void change(const View& wanted);

    UnitRatio m_unitRatio;
    View m_shown;
    ZoomHistory m_history;
    bool m_isometric = false;
    bool m_datesX = false;
    bool m_datesY = false;
};

} // namespace chart
