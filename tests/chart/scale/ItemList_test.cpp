// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ItemList.h"

#include <gtest/gtest.h>

#include <cmath>

using chart::ChartItem;
using chart::ItemKind;
using chart::ItemList;

namespace {

ChartItem itemOf(ItemKind kind, double x = 0.0, double y = 0.0)
{
    ChartItem item;
    item.kind = kind;
    item.x = x;
    item.y = y;
    return item;
}

std::size_t counter(const ItemList& items, ItemKind kind)
{
    return items.counters().at(static_cast<std::size_t>(kind));
}

} // namespace

TEST(ItemList, EmptyListHoldsOnlyItsTerminator)
{
    const ItemList items;
    EXPECT_EQ(items.size(), 0U);
    ASSERT_EQ(items.withTerminator().size(), 1U);
    EXPECT_EQ(items.withTerminator().front().kind, ItemKind::End);
    EXPECT_EQ(items.begin(), items.end());
}

TEST(ItemList, KeepsItemsInOrderWithTheirAttributesBeforeTheTerminator)
{
    ItemList items;
    ChartItem mark = itemOf(ItemKind::Mark, 1.5, -2.5);
    mark.markKind = 7;
    mark.attributes = {0xff0000ff, Qt::DashLine, 3, 12};
    items.add(itemOf(ItemKind::Move));
    items.add(mark);

    ASSERT_EQ(items.withTerminator().size(), 3U);
    EXPECT_EQ(items.withTerminator().back().kind, ItemKind::End);
    const ChartItem& kept = *std::next(items.begin());
    EXPECT_EQ(kept.kind, ItemKind::Mark);
    EXPECT_EQ(kept.markKind, 7);
    EXPECT_EQ(kept.x, 1.5);
    EXPECT_EQ(kept.y, -2.5);
    EXPECT_EQ(kept.attributes, mark.attributes);
}

TEST(ItemList, CountsEachKindUntilItIsCleared)
{
    ItemList items;
    for (const ItemKind kind : {ItemKind::Move, ItemKind::Line, ItemKind::Line, ItemKind::Mark,
                                ItemKind::ErrorBars, ItemKind::Segment})
        items.add(itemOf(kind));
    EXPECT_EQ(counter(items, ItemKind::Move), 1U);
    EXPECT_EQ(counter(items, ItemKind::Line), 2U);
    EXPECT_EQ(counter(items, ItemKind::Mark), 1U);
    EXPECT_EQ(counter(items, ItemKind::ErrorBars), 1U);
    EXPECT_EQ(counter(items, ItemKind::Segment), 1U);
    EXPECT_EQ(counter(items, ItemKind::Rectangle), 0U);
    EXPECT_EQ(items.counters().size(), 12U);

    items.clear();
    EXPECT_EQ(items.size(), 0U);
    EXPECT_EQ(items.counters(), ItemList::Counters{});
    EXPECT_EQ(items.withTerminator().front().kind, ItemKind::End);
}

TEST(ItemList, ItemIsFiniteWhenTheCoordinatesOfItsKindAre)
{
    ChartItem item = itemOf(ItemKind::Line, 1.0, 2.0);
    item.x2 = NAN;
    EXPECT_TRUE(item.isFinite());
    item.kind = ItemKind::Rectangle;
    EXPECT_FALSE(item.isFinite());
    EXPECT_FALSE(itemOf(ItemKind::Mark, NAN, 0.0).isFinite());
    EXPECT_FALSE(itemOf(ItemKind::Mark, 0.0, INFINITY).isFinite());
}
