// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/drawing/ChartDrawing.h"

#include "support/SpecialNumbers.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <cmath>

using chart::ItemKind;

namespace {

/// A curved line covers no pixel quite.
constexpr int mostlyInked = 150;

/// Items drawn on white into a plot whose data coordinates are its pixels: x to the right from 20,
/// y up from 120, both 0..100 over 100 pixels.
class ItemDrawing : public ::testing::Test {
protected:
    static constexpr int left = 20;
    static constexpr int bottom = 120;

    ItemDrawing()
    {
        for (chart::AxisRange* range : {&m_view.x, &m_view.y})
            range->setBounds(0.0L, 100.0L);
        m_contents.rims = {20, 16, 20, 16};
        m_contents.style.shadowWidth = 4;
    }

    void add(ItemKind kind, double x, double y, double x2 = 0.0, double y2 = 0.0)
    {
        constexpr std::uint8_t filledSquare = 4;
        m_items.add({.kind = kind,
                     .markKind = filledSquare,
                     .x = x,
                     .y = y,
                     .x2 = x2,
                     .y2 = y2,
                     .attributes = attributes});
    }

    QImage drawn(double scale = 1.0) const
    {
        QImage image(QSize(140, 140) * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const chart::ChartGeometry geometry = measure(m_contents, m_view, QSize(140, 140), QFont());
        EXPECT_EQ(geometry.layout.plot, QRect(QPoint(left, 20), QPoint(120, bottom)));
        drawItems(painter, m_items, geometry, QColor(0, 255, 0));
        return image;
    }

    /// How dark the pixel at a data point is: 0 white to 255 black.
    static int inkAt(const QImage& image, int x, int y)
    {
        return 255 - qGray(image.pixel(left + x, bottom - y));
    }

    static bool isBlank(const QImage& image)
    {
        QImage blank = image;
        blank.fill(Qt::white);
        return image == blank;
    }

    chart::ItemAttributes attributes;

private:
    chart::ChartContents m_contents;
    chart::View m_view;
    chart::ItemList m_items;
};

} // namespace

TEST_F(ItemDrawing, LineGoesFromThePenToItsPoint)
{
    add(ItemKind::Move, 10.0, 50.0);
    add(ItemKind::Line, 90.0, 50.0);
    const QImage image = drawn();
    EXPECT_EQ(inkAt(image, 10, 50), 255);
    EXPECT_EQ(inkAt(image, 50, 50), 255);
    EXPECT_EQ(inkAt(image, 90, 50), 255);
    EXPECT_EQ(inkAt(image, 50, 51), 0);
    EXPECT_EQ(inkAt(image, 50, 49), 0);
    EXPECT_EQ(inkAt(image, 5, 50), 0);
    EXPECT_EQ(inkAt(image, 95, 50), 0);
}

TEST_F(ItemDrawing, LineIsSharpOnAScreenOfScaleTwo)
{
    add(ItemKind::Move, 10.0, 50.0);
    add(ItemKind::Line, 90.0, 50.0);
    const QImage image = drawn(2.0);
    const int x = 2 * (left + 50);
    const int y = 2 * (bottom - 50);
    EXPECT_EQ(qGray(image.pixel(x, y - 1)), 255);
    EXPECT_EQ(qGray(image.pixel(x, y)), 0);
    EXPECT_EQ(qGray(image.pixel(x, y + 1)), 0);
    EXPECT_EQ(qGray(image.pixel(x, y + 2)), 255);
}

TEST_F(ItemDrawing, FirstLineWithoutAMoveOnlyBringsThePen)
{
    add(ItemKind::Line, 50.0, 50.0);
    EXPECT_TRUE(isBlank(drawn()));
    add(ItemKind::Line, 90.0, 50.0);
    EXPECT_EQ(inkAt(drawn(), 70, 50), 255);
}

TEST_F(ItemDrawing, OneMoveDrawsNothing)
{
    add(ItemKind::Move, 50.0, 50.0);
    EXPECT_TRUE(isBlank(drawn()));
}

TEST_F(ItemDrawing, PointThatIsNotFiniteLeavesAGap)
{
    for (const double hole : {infinity, notANumber}) {
        add(ItemKind::Move, 10.0, 50.0);
        add(ItemKind::Line, 30.0, 50.0);
        add(ItemKind::Line, 50.0, hole);
        add(ItemKind::Line, 70.0, 50.0);
        add(ItemKind::Line, 90.0, 50.0);
    }
    const QImage image = drawn();
    EXPECT_EQ(inkAt(image, 20, 50), 255);
    EXPECT_EQ(inkAt(image, 50, 50), 0);
    EXPECT_EQ(inkAt(image, 80, 50), 255);
}

TEST_F(ItemDrawing, FiguresThatAreNotFiniteAreNotDrawn)
{
    for (const ItemKind kind : {ItemKind::Segment, ItemKind::Rectangle, ItemKind::FilledRectangle,
                                ItemKind::Ellipse, ItemKind::ErrorBars}) {
        add(kind, 10.0, 10.0, notANumber, 50.0);
        add(kind, 10.0, infinity, 20.0, 50.0);
    }
    add(ItemKind::Mark, notANumber, 10.0);
    EXPECT_TRUE(isBlank(drawn()));
}

TEST_F(ItemDrawing, FarOffPointIsCutAtThePlotAndNotWrapped)
{
    add(ItemKind::Move, 50.0, 50.0);
    add(ItemKind::Line, 1e8, 50.0); // a million ranges away
    const QImage image = drawn();
    EXPECT_EQ(inkAt(image, 75, 50), 255);
    EXPECT_EQ(inkAt(image, 99, 50), 255);
    EXPECT_EQ(inkAt(image, 25, 50), 0);
}

TEST_F(ItemDrawing, NothingIsDrawnOutsideThePlot)
{
    attributes.lineWidth = 20;
    add(ItemKind::Move, -500.0, 0.0);
    add(ItemKind::Line, 500.0, 0.0);
    add(ItemKind::Mark, 100.0, 100.0);
    add(ItemKind::FilledRectangle, -50.0, 80.0, 50.0, 150.0);
    QImage image = drawn();
    EXPECT_FALSE(isBlank(image));
    QPainter painter(&image);
    painter.fillRect(QRect(QPoint(left, 20), QPoint(120, bottom)), Qt::white);
    painter.end();
    EXPECT_TRUE(isBlank(image));
}

TEST_F(ItemDrawing, FiguresStandWhereTheirPointsAre)
{
    add(ItemKind::Segment, 10.0, 90.0, 40.0, 90.0);
    add(ItemKind::Rectangle, 60.0, 60.0, 90.0, 90.0);
    add(ItemKind::FilledRectangle, 40.0, 10.0, 10.0, 40.0);
    add(ItemKind::Ellipse, 60.0, 10.0, 90.0, 40.0);
    add(ItemKind::Mark, 50.0, 50.0);
    const QImage image = drawn();
    EXPECT_EQ(inkAt(image, 25, 90), 255);
    EXPECT_EQ(inkAt(image, 75, 60), 255);
    EXPECT_EQ(inkAt(image, 60, 75), 255);
    EXPECT_EQ(inkAt(image, 75, 75), 0);
    EXPECT_EQ(image.pixelColor(left + 25, bottom - 25), QColor(0, 255, 0));
    EXPECT_EQ(inkAt(image, 25, 10), 255);
    EXPECT_GT(inkAt(image, 60, 25), mostlyInked); // the left end of the ellipse
    EXPECT_GT(inkAt(image, 75, 40), mostlyInked);
    EXPECT_EQ(inkAt(image, 75, 25), 0);
    EXPECT_EQ(inkAt(image, 61, 39), 0); // the corner of its box
    EXPECT_EQ(inkAt(image, 50, 50), 255);
}

TEST_F(ItemDrawing, ErrorBarsReachTheirHalfWidths)
{
    add(ItemKind::ErrorBars, 50.0, 50.0, 30.0, 20.0);
    const QImage image = drawn();
    for (const auto& [x, y] : {std::pair{50, 50}, {20, 50}, {80, 50}, {50, 30}, {50, 70}, {48, 70}})
        EXPECT_GT(inkAt(image, x, y), mostlyInked) << x << ", " << y;
    EXPECT_EQ(inkAt(image, 15, 50), 0);
    EXPECT_EQ(inkAt(image, 50, 75), 0);
}

TEST_F(ItemDrawing, EllipseFarLargerThanThePlotPassesWhereItShould)
{
    // Radius 1e6 around (50, 50 - 1e6): its top touches y = 50 over the whole plot.
    add(ItemKind::Ellipse, 50.0 - 1e6, 50.0, 50.0 + 1e6, 50.0 - 2e6);
    const QImage image = drawn();
    for (const int x : {1, 50, 99})
        EXPECT_GT(inkAt(image, x, 50), mostlyInked) << x;
    EXPECT_EQ(inkAt(image, 50, 60), 0);
}

TEST_F(ItemDrawing, ItemsKeepTheColourTheyWereAddedWith)
{
    attributes.color = 0xffff0000;
    add(ItemKind::Move, 0.0, 20.0);
    add(ItemKind::Line, 50.0, 20.0);
    attributes.color = 0xff0000ff;
    add(ItemKind::Line, 100.0, 20.0);
    const QImage image = drawn();
    EXPECT_EQ(image.pixelColor(left + 25, bottom - 20), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(left + 75, bottom - 20), QColor(Qt::blue));
}

TEST_F(ItemDrawing, DashesHaveGapsAlsoInALineWithoutEnd)
{
    attributes.penStyle = Qt::DashLine;
    add(ItemKind::Move, -1e12, 50.0);
    add(ItemKind::Line, 1e12, 50.0);
    const QImage image = drawn();
    int inked = 0;
    for (int x = 0; x < 100; ++x)
        inked += inkAt(image, x, 50) > 128 ? 1 : 0;
    EXPECT_GT(inked, 30);
    EXPECT_LT(inked, 95);
}

TEST_F(ItemDrawing, DenseCurveReachesItsExtremesInEveryColumn)
{
    add(ItemKind::Move, 0.0, 50.0);
    for (int i = 0; i <= 100000; ++i)
        add(ItemKind::Line, i / 1000.0, i % 2 == 0 ? 20.0 : 80.0);
    const QImage image = drawn();
    for (const int y : {21, 50, 79})
        EXPECT_GT(inkAt(image, 50, y), mostlyInked) << y;
    EXPECT_EQ(inkAt(image, 50, 85), 0);
    EXPECT_EQ(inkAt(image, 50, 15), 0);
}

TEST_F(ItemDrawing, EveryMarkKindDrawsSomething)
{
    for (int kind = 0; kind < 256; ++kind) {
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        chart::drawMark(painter, {10.0, 10.0}, static_cast<std::uint8_t>(kind), Qt::black, 1);
        painter.end();
        EXPECT_FALSE(isBlank(image)) << kind;
    }
}
