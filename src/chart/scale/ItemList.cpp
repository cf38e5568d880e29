// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ItemList.h"

#include <cmath>

namespace chart {

bool hasSecondPair(ItemKind kind)
{
    switch (kind) {
    case ItemKind::Segment:
    case ItemKind::Rectangle:
    case ItemKind::FilledRectangle:
    case ItemKind::Ellipse:
    case ItemKind::ErrorBars:
        return true;
    case ItemKind::End:
    case ItemKind::Mark:
    case ItemKind::Line:
    case ItemKind::Move:
        break;
    }
    return false;
}

bool ChartItem::isFinite() const
{
    return std::isfinite(x) && std::isfinite(y) &&
           (!hasSecondPair(kind) || (std::isfinite(x2) && std::isfinite(y2)));
}

ItemList::ItemList()
    : m_items(1)
{
}

void ItemList::add(const ChartItem& item)
{
    m_items.emplace_back(); // first, so that without memory for it the list stays as it was
    *std::prev(m_items.end(), 2) = item;
    ++m_counters.at(static_cast<std::size_t>(item.kind));
}

void ItemList::clear()
{
    m_items.resize(1);
    m_items.front() = ChartItem();
    m_counters.fill(0);
}

} // namespace chart
