// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ZoomHistory.h"

namespace chart {

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

} // namespace chart
