// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisRange.h"

#include <cstddef>
#include <deque>

namespace chart {

/// What a chart shows: the ranges of both axes.
struct View {
    AxisRange x;
    AxisRange y;

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

    std::size_t size() const { return m_views.size(); }
    const View& newest() const { return m_views.back(); }

private:
    std::deque<View> m_views; ///< Never empty.
};

} // namespace chart
