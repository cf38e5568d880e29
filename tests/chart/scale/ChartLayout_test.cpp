// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ChartLayout.h"

#include "chart/scale/AxisScale.h"
#include "chart/scale/AxisTicks.h"
#include "chart/scale/TickLabels.h"

#include <gtest/gtest.h>

#include <algorithm>

using chart::ChartLayout;
using chart::LabelledTicks;
using chart::LayoutRequest;
using chart::PlacedLabel;
using chart::TextSizes;

namespace {

/// A font whose characters are all 7 x 15 pixels.
const TextSizes sevenByFifteen{15, [](const QString& text) { return 7 * int(text.size()); }};

LayoutRequest requestFor(QSize size)
{
    return {size,
            4,
            {},
            QStringLiteral("Gráfica"),
            QStringLiteral("Valor C"),
            QStringLiteral("P(C=c)"),
            {QStringLiteral("0.000"), QStringLiteral("0.100")},
            {QStringLiteral("0.0000"), QStringLiteral("0.1000")},
            sevenByFifteen,
            sevenByFifteen};
}

/// Linear ticks from 0 to `high` over pixels `first`..`last`.
LabelledTicks ticksFor(double high, int intervals, int decimals, int first, int last)
{
    chart::AxisRange range;
    range.setBounds(0.0L, high);
    const chart::AxisTicks ticks = linearTicks(range, intervals, false);
    LabelledTicks labelled;
    labelled.texts = tickLabels(ticks, range, {chart::LabelType::ftNum, decimals, {}, {}});
    for (const long double value : ticks.main) {
        labelled.pixels.push_back(first + int(value / high * (last - first)));
        labelled.indices.push_back(value / ticks.step);
    }
    return labelled;
}

void expectApart(const std::vector<PlacedLabel>& labels)
{
    for (std::size_t i = 0; i < labels.size(); ++i) {
        for (std::size_t j = i + 1; j < labels.size(); ++j)
            EXPECT_FALSE(labels[i].place.intersects(labels[j].place)) << i << " and " << j;
    }
}

} // namespace

TEST(ChartLayout, RoomForEverythingInAnOrdinarySize)
{
    const ChartLayout layout = layOut(requestFor({544, 375}));
    EXPECT_FALSE(layout.caption.isNull());
    EXPECT_FALSE(layout.abscissa.isNull());
    EXPECT_FALSE(layout.ordinate.isNull());
    EXPECT_TRUE(layout.xLabels);
    EXPECT_TRUE(layout.yLabels);
    EXPECT_GT(layout.plot.width(), 400);
    EXPECT_GT(layout.plot.height(), 250);
}

TEST(ChartLayout, PartsNeverOverlapAndStayInside)
{
    for (const QSize size : {QSize(160, 100), QSize(200, 400), QSize(400, 110), QSize(544, 160),
                             QSize(1280, 800), QSize(4096, 4096)}) {
        const ChartLayout layout = layOut(requestFor(size));
        const QRect whole(QPoint(0, 0), size);
        std::vector<QRect> parts{layout.plot};
        for (const QRect& part : {layout.caption, layout.abscissa, layout.ordinate}) {
            if (!part.isNull())
                parts.push_back(part);
        }
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_TRUE(whole.contains(parts[i])) << size.width() << " part " << i;
            for (std::size_t j = i + 1; j < parts.size(); ++j)
                EXPECT_FALSE(parts[i].intersects(parts[j]))
                    << size.width() << ": " << i << ", " << j;
        }
        EXPECT_GE(layout.plot.width(), std::max(40, size.width() / 3)) << size.width();
        EXPECT_GE(layout.plot.height(), std::max(40, size.height() / 3)) << size.width();
    }
}

TEST(ChartLayout, LongCaptionOfTheXAxisGoesOnInFurtherLines)
{
    LayoutRequest request = requestFor({544, 375});
    EXPECT_EQ(layOut(request).abscissaLines, QStringList{QStringLiteral("Valor C")});
    const ChartLayout ofOne = layOut(request);
    request.idAbscissa = QStringLiteral("Diferencia (tamaño 6, 5000 pruebas) ").repeated(3);
    const ChartLayout layout = layOut(request);
    EXPECT_EQ(layout.abscissaLines.size(), 2);
    EXPECT_EQ(layout.abscissaLines.join(QLatin1Char(' ')), request.idAbscissa.trimmed());
    for (const QString& line : layout.abscissaLines)
        EXPECT_LE(request.text.width(line), layout.plot.width());
    EXPECT_EQ(layout.abscissa.height(), 2 * ofOne.abscissa.height());
    EXPECT_EQ(layout.plot.bottom(), ofOne.plot.bottom() - ofOne.abscissa.height());
    EXPECT_EQ(layout.abscissa.bottom(), ofOne.abscissa.bottom());

    request.idAbscissa = request.idAbscissa.repeated(5);
    EXPECT_EQ(layOut(request).abscissaLines.size(), chart::mostAbscissaLines);
}

TEST(ChartLayout, SmallControlsKeepTheirPlot)
{
    const ChartLayout layout = layOut(requestFor({160, 100}));
    EXPECT_TRUE(layout.abscissa.isNull());
    EXPECT_TRUE(layout.xLabels);
    const ChartLayout tiny = layOut(requestFor({90, 60}));
    EXPECT_TRUE(tiny.caption.isNull());
    EXPECT_FALSE(tiny.xLabels);
}

/// What stands left of the plot leaves it its share at every width; what is left out would not.
TEST(ChartLayout, WhatStandsLeftOfThePlotLeavesItAFairShare)
{
    LayoutRequest request = requestFor({544, 375});
    const int withBoth = layOut(request).rims.left;
    request.idOrdinate.clear();
    const int withLabels = layOut(request).rims.left;
    request.yLabels.clear();
    const int withNeither = layOut(request).rims.left;

    bool captionWasLeftOut = false;
    for (int width = 60; width < 300; ++width) {
        const ChartLayout layout = layOut(requestFor({width, 375}));
        const int share = std::max(40, static_cast<int>(0.35 * width));
        const int plot = layout.plot.width();
        const bool captionLeftOut = layout.yLabels && layout.ordinate.isNull();
        if (layout.yLabels) {
            EXPECT_GE(plot, share) << width;
        } else {
            EXPECT_LT(plot - (withLabels - withNeither), share) << width;
        }
        if (captionLeftOut) {
            EXPECT_LT(plot - (withBoth - withLabels), share) << width;
        }
        captionWasLeftOut = captionWasLeftOut || captionLeftOut;
    }
    EXPECT_TRUE(captionWasLeftOut) << "the caption goes first";
}

TEST(ChartLayout, RimsOfTheProgramAreKept)
{
    LayoutRequest request = requestFor({544, 375});
    request.fixed = {50, 30, 40, 45};
    const ChartLayout layout = layOut(request);
    EXPECT_EQ(layout.rims, (chart::Rims{50, 30, 40, 45}));
    EXPECT_EQ(layout.plot, QRect(QPoint(50, 40), QPoint(544 - 30 - 4, 375 - 45 - 4)));
}

/// Also where the fixed rim leaves no room for what the layout would have put into its own.
TEST(ChartLayout, ItsOwnLeftRimIsKnownBesideAFixedOne)
{
    for (const QSize size : {QSize(544, 375), QSize(160, 100), QSize(90, 60)}) {
        LayoutRequest request = requestFor(size);
        const int own = layOut(request).rims.left;
        for (const int fixed : {0, own, 80, 500}) {
            request.fixed.left = fixed;
            EXPECT_EQ(layOut(request).rims.left, fixed);
            EXPECT_EQ(layOut(request).ownLeftRim, own) << size.width() << ' ' << fixed;
        }
        EXPECT_FALSE(layOut(request).yLabels) << "500 pixels leave no plot";
    }
}

TEST(ChartLayout, CaptionsWithoutRoomInFixedRimsAreLeftOut)
{
    LayoutRequest request = requestFor({544, 375});
    request.fixed = {10, 10, 10, 10};
    const ChartLayout layout = layOut(request);
    EXPECT_TRUE(layout.caption.isNull());
    EXPECT_TRUE(layout.abscissa.isNull());
    EXPECT_TRUE(layout.ordinate.isNull());
}

TEST(ChartLayout, NothingToSayTakesNoRoom)
{
    LayoutRequest bare = requestFor({544, 375});
    bare.caption.clear();
    bare.idAbscissa.clear();
    bare.idOrdinate.clear();
    bare.xLabels.assign(2, {});
    bare.yLabels.assign(2, {});
    const ChartLayout layout = layOut(bare);
    EXPECT_FALSE(layout.xLabels);
    EXPECT_FALSE(layout.yLabels);
    EXPECT_GT(layout.plot.width(), layOut(requestFor({544, 375})).plot.width() + 60);
}

TEST(ChartLayout, SurvivesControlsOfNoSize)
{
    for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(0, 500), QSize(500, 3)})
        EXPECT_NO_FATAL_FAILURE(layOut(requestFor(size)));
}

TEST(XLabels, StandCenteredSevenPixelsBelowTheAxis)
{
    const auto labels = placeXLabels(ticksFor(4.0, 4, 1, 100, 500), 300, 600, sevenByFifteen);
    ASSERT_EQ(labels.size(), 5U);
    EXPECT_EQ(labels[1].place, QRect(200 - 10, 307, 21, 15));
}

TEST(XLabels, LabelThatWouldReachTheRightRimEndsThere)
{
    // Half of 21 pixels: 500 + 10.5 reaches 510 and 510.5, but not 511.
    const auto ticks = ticksFor(4.0, 4, 1, 100, 500);
    for (const int edge : {505, 510})
        EXPECT_EQ(placeXLabels(ticks, 300, edge, sevenByFifteen).back().place.left(), edge - 21);
    EXPECT_EQ(placeXLabels(ticks, 300, 511, sevenByFifteen).back().place.left(), 490);
}

TEST(XLabels, NeverTouchAndKeepRoundValues)
{
    for (int width = 0; width <= 4096; width += 13) {
        for (const int decimals : {0, 3, 12}) {
            const auto ticks = ticksFor(1.0, 8, decimals, 60, 60 + width);
            const auto labels = placeXLabels(ticks, 300, 60 + width + 16, sevenByFifteen);
            ASSERT_FALSE(labels.empty());
            expectApart(labels);
        }
    }
    const auto ticks = ticksFor(1.0, 10, 3, 60, 260);
    const auto labels = placeXLabels(ticks, 300, 276, sevenByFifteen);
    ASSERT_EQ(labels.size(), 3U); // 11 ticks 20 pixels apart: every fifth
    EXPECT_EQ(ticks.texts[labels[1].tick].left(3).right(1), QStringLiteral("5"));
}

TEST(YLabels, NeverTouchEachOtherOrTheRowOfXLabels)
{
    for (int height = 0; height <= 4096; height += 13) {
        const int axisRow = 30 + height;
        const auto labels =
            placeYLabels(ticksFor(1.0, 4, 4, axisRow, 30), 80, axisRow, sevenByFifteen);
        ASSERT_FALSE(labels.empty());
        expectApart(labels);
        for (const PlacedLabel& label : labels) {
            EXPECT_LT(label.place.right(), 80 - chart::mainTickLengthY);
            EXPECT_LT(label.place.bottom(), axisRow + chart::xLabelDistance);
        }
    }
}
