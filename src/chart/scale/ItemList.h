// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qt>

#include <array>
#include <cstddef>
#include <cstdint>
#include <list>

namespace chart {

/// What an item is; the numbers are those of the counters.
enum class ItemKind : std::uint8_t {
    End = 0,             ///< The terminator behind the last item.
    Mark = 1,            ///< A mark at the first point.
    Segment = 2,         ///< A line between the two points; the pen stays where it is.
    Line = 3,            ///< A line from the pen's position to the first point.
    Rectangle = 4,       ///< The outline whose opposite corners are the two points.
    FilledRectangle = 5, ///< As Rectangle, filled with the chart's fill colour.
    Ellipse = 6,         ///< The ellipse inside that rectangle.
    Move = 8,            ///< Moves the pen to the first point.
    ErrorBars = 9,       ///< Bars of half-width x2 and half-height y2 around the first point.
};

/// The kinds are numbered 0 to 11; those without a name here have no items.
inline constexpr std::size_t itemKindCount = 12;

/// Whether the kind's second pair of numbers means something.
bool hasSecondPair(ItemKind kind);

/// How an item is drawn: the chart's attributes at the time when it was added.
struct ItemAttributes {
    std::uint32_t color = 0xff000000; ///< 0xAARRGGBB
    Qt::PenStyle penStyle = Qt::SolidLine;
    int lineWidth = 1;   ///< In logical pixels.
    int classNumber = 0; ///< The program's own grouping of items; the chart only keeps it.

    bool operator==(const ItemAttributes&) const = default;
};

/// One thing to draw, in data coordinates.
struct ChartItem {
    ItemKind kind = ItemKind::End;
    std::uint8_t markKind = 0; ///< Marks only; see drawMark().
    double x = 0.0;
    double y = 0.0;
    double x2 = 0.0; ///< With hasSecondPair() only.
    double y2 = 0.0;
    ItemAttributes attributes{};

    /// Whether every coordinate that counts is a number. Other items are kept but not drawn.
    bool isFinite() const;
};

/// The items of a chart in the order in which they were added, and behind them a terminator of kind
/// ItemKind::End, which an empty list holds too.
class ItemList {
public:
    using Counters = std::array<std::size_t, itemKindCount>;

    ItemList();

    /// Adds an item of any kind but ItemKind::End.
    void add(const ChartItem& item);
    void clear();

    // Published; only tests and the outside call these two.
    /// The items with their terminator.
    const std::list<ChartItem>& withTerminator() const { return m_items; }
    /// How many items of each kind were added since the list was last empty.
    const Counters& counters() const { return m_counters; }

    /// The number of items, the terminator not counted.
    std::size_t size() const { return m_items.size() - 1; }

    /// The items without their terminator.
    auto begin() const { return m_items.begin(); }
    auto end() const { return std::prev(m_items.end()); }

private:
    std::list<ChartItem> m_items;
    Counters m_counters{};
};

} // namespace chart
