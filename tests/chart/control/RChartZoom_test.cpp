// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/RChart.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include <algorithm>
#include <vector>

using chart::TRChart;

namespace {

/// A chart on the screen that shows 0..100 in both directions.
class RChartZoom : public ::testing::Test {
protected:
    RChartZoom()
    {
        chart.resize(500, 400);
        chart.setMouseAction(chart::MouseAction::maZoomDrag);
        chart.MoveToXY(0.0, 0.0);
        chart.LineToXY(100.0, 100.0);
        chart.FitRangeToData(0.0);
        chart.show();
        QApplication::processEvents();
    }

    QPoint at(double x, double y) const
    {
        const chart::ChartGeometry geometry = chart.geometry();
        return {geometry.xScale.toPixel(x), geometry.yScale.toPixel(y)};
    }

    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {},
              Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(&chart, button, modifiers, from);
        QTest::mouseMove(&chart, (from + to) / 2);
        QTest::mouseMove(&chart, to);
        QTest::mouseRelease(&chart, button, modifiers, to);
    }

    void expectView(double loX, double hiX, double loY, double hiY, double tolerance)
    {
        EXPECT_NEAR(static_cast<double>(chart.RangeLoX()), loX, tolerance);
        EXPECT_NEAR(static_cast<double>(chart.RangeHiX()), hiX, tolerance);
        EXPECT_NEAR(static_cast<double>(chart.RangeLoY()), loY, tolerance);
        EXPECT_NEAR(static_cast<double>(chart.RangeHiY()), hiY, tolerance);
    }

    /// 100 units on more than 250 pixels, rounded to one at either end.
    static constexpr double onePixel = 0.5;

    /// How often the chart is laid out by a call and by the painting that follows.
    template <typename Call>
    int layoutsOf(Call call)
    {
        QApplication::processEvents();
        m_laidOut.clear();
        call();
        QApplication::processEvents();
        return static_cast<int>(m_laidOut.size());
    }

    /// What was laid out then.
    const std::vector<chart::View>& laidOut() const { return m_laidOut; }

private:
    std::vector<chart::View> m_laidOut;

protected:
    TRChart chart{nullptr,
                  [this](const auto& contents, const chart::View& view, const auto&... rest) {
                      m_laidOut.push_back(view);
                      return measure(contents, view, rest...);
                  }};
};

} // namespace

TEST_F(RChartZoom, DraggingShowsTheRectangleInEitherDirection)
{
    drag(at(20.0, 80.0), at(60.0, 30.0));
    expectView(20.0, 60.0, 30.0, 80.0, onePixel);
    EXPECT_EQ(chart.zoomHistory().size(), 2U);
    drag(at(50.0, 40.0), at(30.0, 70.0));
    expectView(30.0, 50.0, 40.0, 70.0, 2 * onePixel);
    EXPECT_EQ(chart.zoomHistory().size(), 3U);
}

TEST_F(RChartZoom, RectangleEndsWithThePlot)
{
    drag(at(50.0, 50.0), QPoint(5000, -5000));
    expectView(50.0, 100.0, 50.0, 100.0, onePixel);
}

TEST_F(RChartZoom, ClicksAndSlipsDoNotZoom)
{
    drag(at(50.0, 50.0), at(50.0, 50.0));
    drag(at(50.0, 50.0), at(50.0, 50.0) + QPoint(4, 100));
    drag(QPoint(2, 2), at(50.0, 50.0)); // begins outside the plot
    drag(at(20.0, 20.0), at(50.0, 50.0), {}, Qt::RightButton);
    expectView(0.0, 100.0, 0.0, 100.0, 1e-9);
}

TEST_F(RChartZoom, EscapeGoesBackOneStepAndADoubleClickToTheFullView)
{
    for (int i = 0; i < 3; ++i)
        drag(chart.geometry().layout.plot.center() - QPoint(60, 60),
             chart.geometry().layout.plot.center() + QPoint(60, 60));
    EXPECT_EQ(chart.zoomHistory().size(), 4U);
    const long double third = chart.zoomHistory().newest().x.low();
    QTest::keyClick(&chart, Qt::Key_Escape);
    EXPECT_EQ(chart.zoomHistory().size(), 3U);
    EXPECT_LT(chart.RangeLoX(), third);
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, at(50.0, 50.0));
    expectView(0.0, 100.0, 0.0, 100.0, 1e-9);
    EXPECT_FALSE(chart.zoomHistory().canGoBack());
    QTest::keyClick(&chart, Qt::Key_Escape);
    expectView(0.0, 100.0, 0.0, 100.0, 1e-9);
}

TEST_F(RChartZoom, EscapeDuringTheDragGivesItUp)
{
    QTest::mousePress(&chart, Qt::LeftButton, {}, at(20.0, 20.0));
    QTest::mouseMove(&chart, at(60.0, 60.0));
    QTest::keyClick(&chart, Qt::Key_Escape);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, at(60.0, 60.0));
    expectView(0.0, 100.0, 0.0, 100.0, 1e-9);
}

TEST_F(RChartZoom, DraggingWithShiftOrTheMiddleButtonMovesTheView)
{
    drag(at(50.0, 50.0), at(30.0, 60.0), Qt::ShiftModifier);
    expectView(20.0, 120.0, -10.0, 90.0, onePixel);
    EXPECT_EQ(chart.zoomHistory().size(), 2U);
    QTest::keyClick(&chart, Qt::Key_Escape);
    expectView(0.0, 100.0, 0.0, 100.0, 1e-9);
    drag(at(50.0, 50.0), at(60.0, 40.0), {}, Qt::MiddleButton);
    expectView(-10.0, 90.0, 10.0, 110.0, onePixel);
}

TEST_F(RChartZoom, WithoutAnActionTheMouseDoesNothing)
{
    chart.setMouseAction(chart::MouseAction::maNone);
    drag(at(20.0, 20.0), at(60.0, 60.0));
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, at(50.0, 50.0));
    expectView(0.0, 100.0, 0.0, 100.0, 1e-9);
    EXPECT_EQ(chart.zoomHistory().size(), 1U);
}

TEST_F(RChartZoom, MinimumRangeEndsTheZoom)
{
    chart.setMinRangeX(10.0);
    chart.setMinRangeY(20.0);
    drag(at(40.0, 40.0), at(44.0, 44.0));
    EXPECT_NEAR(static_cast<double>(chart.RangeHiX() - chart.RangeLoX()), 10.0, 1e-9);
    EXPECT_NEAR(static_cast<double>(chart.RangeHiY() - chart.RangeLoY()), 20.0, 1e-9);
}

TEST_F(RChartZoom, LogarithmicAxisZoomsToWhatWasUnderTheRectangle)
{
    chart.ClearItems();
    chart.setLogScaleX(true);
    chart.MoveToXY(1.0, 0.0);
    chart.LineToXY(10000.0, 100.0);
    chart.FitRangeToData(0.0);
    drag(at(10.0, 20.0), at(1000.0, 80.0));
    EXPECT_NEAR(static_cast<double>(chart.RangeLoX()), 10.0, 0.3);
    EXPECT_NEAR(static_cast<double>(chart.RangeHiX()), 1000.0, 30.0);
    drag(at(100.0, 50.0), at(200.0, 50.0), Qt::ShiftModifier);
    EXPECT_NEAR(static_cast<double>(chart.RangeHiX() / chart.RangeLoX()), 100.0, 5.0);
}

TEST_F(RChartZoom, AxisOfDatesIsNotZoomedBelowASecond)
{
    chart.setRangeHiX(3.0 / 86400);
    chart.setXLabelType(chart::LabelType::ftDateTime);
    const long double high = chart.RangeHiX();
    const QPoint centre = chart.geometry().layout.plot.center();
    drag(centre, centre + QPoint(20, 20));
    EXPECT_EQ(chart.RangeHiX(), high);
}

TEST_F(RChartZoom, EveryRangeChangeIsInTheHistory)
{
    chart.setRangeHiX(50.0);
    chart.setRangeLoY(10.0);
    EXPECT_EQ(chart.zoomHistory().size(), 3U);
    EXPECT_EQ(chart.zoomHistory().newest().y.low(), 10.0L);
    chart.FitRangeToData(0.0);
    EXPECT_EQ(chart.zoomHistory().size(), 1U);
}

TEST_F(RChartZoom, RectangleIsSeenOnAnyColour)
{
    for (const QColor& colour : {QColor(Qt::white), QColor(Qt::black), QColor(128, 128, 128)}) {
        chart.setChartColor(colour);
        const QPoint from = at(20.0, 80.0);
        const QPoint to = at(60.0, 30.0);
        const QImage before = chart.grab().toImage();
        QTest::mousePress(&chart, Qt::LeftButton, {}, from);
        QTest::mouseMove(&chart, to);
        const QImage during = chart.grab().toImage();
        QTest::keyClick(&chart, Qt::Key_Escape);
        int seen = 0;
        for (int x = from.x(); x <= to.x(); ++x)
            seen +=
                std::abs(qGray(during.pixel(x, from.y())) - qGray(before.pixel(x, from.y()))) > 90
                    ? 1
                    : 0;
        EXPECT_GT(seen, (to.x() - from.x()) / 3) << colour.name().toStdString();
        EXPECT_EQ(chart.picture(false), before.convertToFormat(QImage::Format_RGB32));
    }
}

TEST_F(RChartZoom, CursorTellsWhatADragWouldDo)
{
    const auto cursorAt = [this](QPoint position) {
        QTest::mouseMove(&chart, position);
        return chart.cursor().pixmap().toImage();
    };
    const QImage ready = cursorAt(at(50.0, 50.0));
    EXPECT_FALSE(ready.isNull());
    EXPECT_EQ(chart.cursor().shape(), Qt::BitmapCursor);
    cursorAt({1, 1});
    EXPECT_EQ(chart.cursor().shape(), Qt::ArrowCursor);

    QTest::mousePress(&chart, Qt::LeftButton, {}, at(30.0, 30.0));
    const QImage dragging = cursorAt(at(60.0, 60.0));
    EXPECT_NE(dragging, ready);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, at(60.0, 60.0));
    const QImage zoomed = cursorAt(at(45.0, 45.0));
    EXPECT_NE(zoomed, ready);
    EXPECT_NE(zoomed, dragging);
}

TEST_F(RChartZoom, KeysZoomAndMoveAboutTheMiddle)
{
    QTest::keyClick(&chart, Qt::Key_Plus);
    expectView(25.0, 75.0, 25.0, 75.0, onePixel);
    QTest::keyClick(&chart, Qt::Key_Right);
    expectView(30.0, 80.0, 25.0, 75.0, onePixel);
    QTest::keyClick(&chart, Qt::Key_Up);
    expectView(30.0, 80.0, 30.0, 80.0, onePixel);
    QTest::keyClick(&chart, Qt::Key_Left);
    QTest::keyClick(&chart, Qt::Key_Down);
    expectView(25.0, 75.0, 25.0, 75.0, onePixel);
    QTest::keyClick(&chart, Qt::Key_Minus);
    expectView(0.0, 100.0, 0.0, 100.0, 2 * onePixel);
    QTest::keyClick(&chart, Qt::Key_Escape);
    expectView(25.0, 75.0, 25.0, 75.0, onePixel);
    QTest::keyClick(&chart, Qt::Key_Home);
    expectView(0.0, 100.0, 0.0, 100.0, 0.0);
}

TEST_F(RChartZoom, KeysDoNothingWhereTheMouseDoesNothing)
{
    chart.setMouseAction(chart::MouseAction::maNone);
    for (const int key : {Qt::Key_Plus, Qt::Key_Left, Qt::Key_Home})
        QTest::keyClick(&chart, static_cast<Qt::Key>(key));
    expectView(0.0, 100.0, 0.0, 100.0, 0.0);
}

TEST_F(RChartZoom, EveryNewViewIsLaidOutOnce)
{
    for (const int key : {Qt::Key_Plus, Qt::Key_Right, Qt::Key_Escape, Qt::Key_Home})
        EXPECT_EQ(layoutsOf([&] { QTest::keyClick(&chart, static_cast<Qt::Key>(key)); }), 1);
    const QPoint from = at(20.0, 80.0);
    const QPoint to = at(60.0, 30.0);
    EXPECT_EQ(layoutsOf([&] { drag(from, to); }), 1);
    EXPECT_EQ(layoutsOf([&] { QTest::mouseDClick(&chart, Qt::LeftButton, {}, from); }), 1);
    EXPECT_EQ(layoutsOf([&] { chart.setRangeHiX(50.0); }), 1);
    EXPECT_EQ(layoutsOf([&] { chart.FitRangeToData(2.0); }), 1);
}

/// Equal units take some rounds; the last of them is the view that is painted.
TEST_F(RChartZoom, EachRoundOfEqualUnitsIsLaidOutOnce)
{
    chart.setIsometric(true);
    for (const double high : {50.0, 1234.0}) {
        EXPECT_GE(layoutsOf([&] { chart.setRangeHiX(high); }), 2) << high;
        EXPECT_EQ(laidOut().back(), chart.zoomHistory().newest()) << high;
        for (auto view = laidOut().begin(); view != laidOut().end(); ++view)
            EXPECT_EQ(std::count(view, laidOut().end(), *view), 1) << high;
    }
}

TEST_F(RChartZoom, ARimThatStaysIsNotLaidOutAgain)
{
    const int own = chart.LRim();
    EXPECT_EQ(layoutsOf([&] { chart.setLRim(own + 30); }), 1);
    EXPECT_EQ(layoutsOf([&] { chart.setLRim(chart.ownLRim() + 30); }), 0);
    EXPECT_EQ(chart.ownLRim(), own);
}

TEST_F(RChartZoom, DrawingTheRectangleLaysNothingOut)
{
    QTest::mousePress(&chart, Qt::LeftButton, {}, at(20.0, 80.0));
    for (const double x : {30.0, 50.0, 60.0})
        EXPECT_EQ(layoutsOf([&] { QTest::mouseMove(&chart, at(x, 30.0)); }), 0);
    QTest::keyClick(&chart, Qt::Key_Escape);
}

TEST_F(RChartZoom, EveryStepOfAMoveIsLaidOutOnce)
{
    const QPoint from = at(50.0, 50.0);
    QTest::mousePress(&chart, Qt::LeftButton, Qt::ShiftModifier, from);
    for (const int step : {10, 20, 30})
        EXPECT_EQ(layoutsOf([&] { QTest::mouseMove(&chart, from + QPoint(step, step)); }), 1);
    EXPECT_EQ(layoutsOf([&] {
                  QTest::mouseRelease(&chart, Qt::LeftButton, Qt::ShiftModifier,
                                      from + QPoint(30, 30));
              }),
              0);
}
