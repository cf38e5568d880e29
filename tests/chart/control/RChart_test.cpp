// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/RChart.h"

#include "support/PaintCounter.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using chart::ChartError;
using chart::ItemKind;
using chart::LabelType;
using chart::TRChart;

namespace {

void expectRanges(const TRChart& chart, double loX, double hiX, double loY, double hiY)
{
    EXPECT_DOUBLE_EQ(static_cast<double>(chart.RangeLoX()), loX);
    EXPECT_DOUBLE_EQ(static_cast<double>(chart.RangeHiX()), hiX);
    EXPECT_DOUBLE_EQ(static_cast<double>(chart.RangeLoY()), loY);
    EXPECT_DOUBLE_EQ(static_cast<double>(chart.RangeHiY()), hiY);
}

template <typename Call>
std::string errorOf(Call call)
{
    try {
        call();
    } catch (const ChartError& error) {
        return error.what();
    }
    return "no error";
}

/// How many times a call makes a chart on the screen paint itself.
template <typename Call>
int paintsAfter(TRChart& chart, Call call)
{
    QApplication::processEvents();
    PaintCounter counter(chart);
    call();
    QApplication::processEvents();
    return counter.paints;
}

} // namespace

TEST(RChart, BeginsWithItsDefaults)
{
    const TRChart chart;
    EXPECT_EQ(chart.DataColor(), QColor(Qt::black));
    EXPECT_EQ(chart.PenStyle(), Qt::SolidLine);
    EXPECT_EQ(chart.LineWidth(), 1);
    EXPECT_EQ(chart.ScaleColor(), QColor(Qt::black));
    EXPECT_EQ(chart.GridColor(), QColor(Qt::black));
    EXPECT_EQ(chart.FillColor(), QColor(192, 192, 192));
    EXPECT_EQ(chart.ChartColor(), QColor(Qt::white));
    EXPECT_EQ(chart.WindColor(), chart.palette().color(QPalette::Button));
    EXPECT_EQ(chart.ShadowBakColor(), chart.palette().color(QPalette::Button));
    EXPECT_EQ(chart.ShadowColor(), chart.palette().color(QPalette::Disabled, QPalette::WindowText));
    EXPECT_EQ(chart.MinRangeX(), 1e-10);
    EXPECT_EQ(chart.MinRangeY(), 1e-10);
    EXPECT_TRUE(chart.AutoRedraw());
    EXPECT_EQ(chart.items().size(), 0U);
    EXPECT_EQ(chart.CrossHair1().mode, chart::CrossHairMode::chOff);
    expectRanges(chart, 0.0, 10.0, 0.0, 10.0);
}

TEST(RChart, WindowColourFollowsThePalette)
{
    TRChart chart;
    QPalette dark = chart.palette();
    dark.setColor(QPalette::Button, QColor(40, 40, 40));
    chart.setPalette(dark);
    EXPECT_EQ(chart.WindColor(), QColor(40, 40, 40));
    chart.setWindColor(Qt::yellow);
    EXPECT_EQ(chart.WindColor(), QColor(Qt::yellow));
    chart.setWindColor(QColor());
    EXPECT_EQ(chart.WindColor(), QColor(40, 40, 40));
}

TEST(RChart, ItemsTakeTheAttributesInForce)
{
    TRChart chart;
    chart.MoveToXY(1.0, 2.0);
    chart.setDataColor(Qt::red);
    chart.setPenStyle(Qt::DotLine);
    chart.setLineWidth(3);
    chart.setClassDefault(7);
    chart.LineToXY(3.0, 4.0);
    chart.MarkAtXY(5.0, 6.0, 2);
    chart.FigureXY(ItemKind::ErrorBars, 7.0, 8.0, 0.5, 0.25);
    chart.FigureXY(ItemKind::Line, 0.0, 0.0, 0.0, 0.0); // no figure
    ASSERT_EQ(chart.items().size(), 4U);

    auto item = chart.items().begin();
    EXPECT_EQ(item->kind, ItemKind::Move);
    EXPECT_EQ(item->attributes, chart::ItemAttributes());
    ++item;
    EXPECT_EQ(item->kind, ItemKind::Line);
    EXPECT_EQ(item->x, 3.0);
    EXPECT_EQ(item->y, 4.0);
    EXPECT_EQ(item->attributes, (chart::ItemAttributes{0xffff0000, Qt::DotLine, 3, 7}));
    ++item;
    EXPECT_EQ(item->markKind, 2);
    ++item;
    EXPECT_EQ(item->x2, 0.5);
    EXPECT_EQ(item->y2, 0.25);
}

TEST(RChart, ClearingKeepsRangesCaptionsAndAttributes)
{
    TRChart chart;
    chart.setCaption(QStringLiteral("Gráfica"));
    chart.setDataColor(Qt::blue);
    chart.setRangeHiX(3.0);
    chart.MoveToXY(1.0, 1.0);
    chart.ClearItems();
    EXPECT_EQ(chart.items().size(), 0U);
    EXPECT_EQ(chart.items().counters(), chart::ItemList::Counters{});
    EXPECT_EQ(chart.Caption(), QStringLiteral("Gráfica"));
    EXPECT_EQ(chart.DataColor(), QColor(Qt::blue));
    expectRanges(chart, 0.0, 3.0, 0.0, 10.0);
}

TEST(RChart, FitsItsRangesAroundTheItems)
{
    TRChart chart;
    chart.MoveToXY(0.0, 10.0);
    chart.LineToXY(100.0, 20.0);
    chart.FitRangeToData(2.0);
    expectRanges(chart, -2.0, 102.0, 9.8, 20.2);
}

TEST(RChart, FittingOnePointLeavesTheMinimumRange)
{
    TRChart chart;
    chart.setMinRangeX(0.5);
    chart.setMinRangeY(0.25);
    chart.MoveToXY(3.0, 4.0);
    chart.FitRangeToData(2.0);
    expectRanges(chart, 3.0, 3.5, 4.0, 4.25);
}

TEST(RChart, FittingNothingAsksForZeros)
{
    TRChart chart;
    chart.setRangeLoX(4.0);
    chart.FitRangeToData(2.0);
    expectRanges(chart, 0.0, 1e-10, 0.0, 1e-10);
    chart.setLogScaleX(true); // 0 has no logarithm: the range stays
    const long double low = chart.RangeLoX();
    chart.FitRangeToData(2.0);
    EXPECT_EQ(chart.RangeLoX(), low);
    EXPECT_LT(chart.RangeLoX(), chart.RangeHiX());
}

TEST(RChart, FitContainsTheDataAtTheEndsOfTheDoubles)
{
    const double largest = std::numeric_limits<double>::max();
    for (const double value : {0.0, 1e-300, 1e20, -1e300, 1.7e308, largest, -largest}) {
        TRChart chart;
        chart.MarkAtXY(value, -value, 1);
        chart.FitRangeToData(2.0);
        EXPECT_LT(chart.RangeLoX(), chart.RangeHiX()) << value;
        EXPECT_LE(chart.RangeLoX(), value);
        EXPECT_GE(chart.RangeHiX(), value);
        EXPECT_LE(chart.RangeLoY(), -value);
        EXPECT_GE(chart.RangeHiY(), -value);
        EXPECT_TRUE(std::isfinite(chart.RangeLoX()) && std::isfinite(chart.RangeHiX()));
    }
}

TEST(RChart, ItemsThatAreNotFiniteAreKeptAndNotFitted)
{
    TRChart chart;
    chart.MoveToXY(1.0, 1.0);
    chart.LineToXY(std::nan(""), 5.0);
    chart.LineToXY(2.0, 2.0);
    chart.FitRangeToData(0.0);
    EXPECT_EQ(chart.items().size(), 3U);
    expectRanges(chart, 1.0, 2.0, 1.0, 2.0);
}

TEST(RChart, PropertiesStayWithinTheirLimits)
{
    TRChart chart;
    chart.setDecPlaceX(-9);
    chart.setDecPlaceY(99);
    EXPECT_EQ(chart.DecPlaceX(), -3);
    EXPECT_EQ(chart.DecPlaceY(), 12);
    chart.setMinTickX(0);
    chart.setMinTickY(2000000000);
    EXPECT_EQ(chart.MinTickX(), 1);
    EXPECT_EQ(chart.MinTickY(), 20);
    chart.setLineWidth(-4);
    EXPECT_EQ(chart.LineWidth(), 1);
    chart.setShadowWidth(1000);
    EXPECT_EQ(chart.ShadowWidth(), 64);
    chart.setMinRangeX(0.0);
    EXPECT_EQ(chart.MinRangeX(), 1e-10);
}

TEST(RChart, RimsAreTheProgramsOrTheLayouts)
{
    TRChart chart;
    chart.resize(500, 300);
    const int automatic = chart.LRim();
    chart.setLRim(123);
    EXPECT_EQ(chart.LRim(), 123);
    EXPECT_EQ(chart.geometry().layout.plot.left(), 123);
    chart.setLRim(-1);
    EXPECT_EQ(chart.LRim(), automatic);
}

TEST(RChart, RangeBoundsFallOnTheEdgesOfThePlot)
{
    TRChart chart;
    chart.resize(500, 300);
    chart.setRangeLoX(5.0);
    chart.setRangeHiY(7.0);
    const chart::ChartGeometry geometry = chart.geometry();
    EXPECT_EQ(geometry.xScale.toPixel(5.0), chart.LRim());
    EXPECT_EQ(geometry.xScale.toPixel(10.0), 500 - chart.RRim() - chart.ShadowWidth());
    EXPECT_EQ(geometry.yScale.toPixel(7.0), chart.TRim());
    EXPECT_EQ(geometry.yScale.toPixel(0.0), 300 - chart.BRim() - chart.ShadowWidth());
}

TEST(RChart, IsometricAxesHaveUnitsOfOneLength)
{
    TRChart chart;
    chart.resize(500, 300);
    chart.setIsometric(true);
    const auto expectEqualUnits = [&chart] {
        const chart::ChartGeometry geometry = chart.geometry();
        const long double ratio = -geometry.yScale.factor() / geometry.xScale.factor();
        EXPECT_NEAR(static_cast<double>(ratio), 1.0, 1e-12);
    };
    expectEqualUnits();
    chart.setRangeHiX(50.0);
    expectEqualUnits();
    expectRanges(chart, 0.0, 50.0, 0.0, static_cast<double>(chart.RangeHiY()));
    chart.setRangeHiY(3.0);
    expectEqualUnits();
    EXPECT_EQ(chart.RangeHiY(), 3.0L);
    chart.resize(300, 400);
    QApplication::processEvents();
    chart.show();
    QApplication::processEvents();
    expectEqualUnits();
    chart.setCaption(QString());
    chart.setIdOrdinate(QStringLiteral("P(X=k)"));
    expectEqualUnits();
}

TEST(RChart, IsometricFitStillShowsAllTheData)
{
    for (const auto& [width, height] : {std::pair{600, 200}, {200, 600}}) {
        TRChart chart;
        chart.resize(width, height);
        chart.setIsometric(true);
        chart.MoveToXY(0.0, 0.0);
        chart.LineToXY(10.0, 10.0);
        chart.FitRangeToData(0.0);
        EXPECT_LE(chart.RangeLoX(), 0.0L);
        EXPECT_LE(chart.RangeLoY(), 0.0L);
        EXPECT_GE(chart.RangeHiX(), 10.0L);
        EXPECT_GE(chart.RangeHiY(), 10.0L);
    }
}

TEST(RChart, LogarithmicAxisIgnoresBoundsWithoutALogarithm)
{
    TRChart chart;
    chart.setLogScaleY(true);
    EXPECT_TRUE(chart.LogScaleY());
    chart.setRangeLoY(0.0);
    EXPECT_GT(chart.RangeLoY(), 0.0L);
    chart.setRangeLoY(1e-3);
    expectRanges(chart, 0.0, 10.0, 1e-3, 10.0);
}

TEST(RChart, DateTimeScaleRefusesWhatHoldsNoDates)
{
    TRChart chart;
    chart.setRangeHiX(1e9);
    EXPECT_EQ(errorOf([&] { chart.setXLabelType(LabelType::ftDateTime); }),
              "invalid DateTime scale");
    EXPECT_EQ(chart.XLabelType(), LabelType::ftNum);
    chart.setRangeHiX(1e-6);
    EXPECT_EQ(errorOf([&] { chart.setXLabelType(LabelType::ftDateTime); }),
              "DateTime range is below 1 second");

    chart.setRangeHiX(45000.0);
    chart.setXLabelType(LabelType::ftDateTime);
    EXPECT_EQ(errorOf([&] { chart.setRangeLoX(45000.0 - 1e-6); }),
              "DateTime range is below 1 second");
    EXPECT_EQ(errorOf([&] { chart.setRangeHiX(1e9); }), "invalid DateTime scale");
    EXPECT_EQ(errorOf([&] { chart.setLogScaleX(true); }), "invalid DateTime scale");
    EXPECT_EQ(errorOf([&] { chart.FitRangeToData(2.0); }), "DateTime range is below 1 second");
    expectRanges(chart, 0.0, 45000.0, 0.0, 10.0);
    EXPECT_FALSE(chart.LogScaleX());
    chart.setYLabelType(LabelType::ftDateTime);
    EXPECT_EQ(chart.YLabelType(), LabelType::ftDateTime);
}

TEST(RChart, LabelsFollowTheirType)
{
    const UserLocale point("C");
    TRChart chart;
    chart.resize(700, 300);
    chart.setRangeLoX(45000.0);
    chart.setRangeHiX(45004.0);
    chart.setXLabelType(LabelType::ftDateTime);
    chart.setDTXFormat(QStringLiteral("dd.MM"));
    EXPECT_EQ(chart.geometry().xTexts.front(), QStringLiteral("15.03"));
    chart.setXLabelType(LabelType::ftUserText);
    chart.setUserTickTextX({QStringLiteral("lunes"), QStringLiteral("martes")});
    EXPECT_EQ(chart.geometry().xTexts[1], QStringLiteral("martes"));
    chart.setXLabelType(LabelType::ftNoFigs);
    EXPECT_TRUE(chart.geometry().xLabels.empty());
    chart.setXLabelType(LabelType::ftNum);
    chart.setDecPlaceX(1);
    EXPECT_EQ(chart.geometry().xTexts.front(), QStringLiteral("45000.0"));
}

TEST(RChart, SharedDataIsSeenInAllCharts)
{
    TRChart source;
    TRChart user;
    user.MarkAtXY(9.0, 9.0, 1);
    user.setUseDataOf(&source);
    EXPECT_EQ(user.UseDataOf(), &source);
    source.MoveToXY(1.0, 2.0);
    user.LineToXY(3.0, 4.0);
    EXPECT_EQ(source.items().size(), 2U);
    EXPECT_EQ(&user.items(), &source.items());
    EXPECT_EQ(user.items().counters()[3], 1U);
    user.FitRangeToData(0.0);
    expectRanges(user, 1.0, 3.0, 2.0, 4.0);
    user.ClearItems();
    EXPECT_EQ(source.items().size(), 0U);
    user.setUseDataOf(nullptr);
    EXPECT_EQ(user.items().size(), 1U);
}

TEST(RChart, UserOfAUserDrawsTheItemsOfTheirOwner)
{
    TRChart owner;
    TRChart user;
    TRChart second;
    user.setUseDataOf(&owner);
    second.setUseDataOf(&user);
    EXPECT_EQ(second.UseDataOf(), &owner);
}

TEST(RChart, DataSharingHasItsThreeErrors)
{
    TRChart source;
    EXPECT_EQ(errorOf([&] { source.setUseDataOf(&source); }),
              "RChart: Cannot share data with myself");
    TRChart user;
    TRChart other;
    user.setUseDataOf(&source);
    EXPECT_EQ(errorOf([&] { source.setUseDataOf(&user); }),
              "RChart: Cannot share data with myself");
    EXPECT_EQ(errorOf([&] { source.setUseDataOf(&other); }),
              "RChart: Cannot use foreign data. Other RCharts are using my own data.");

    std::vector<std::unique_ptr<TRChart>> users;
    for (std::size_t i = 1; i < TRChart::mostDataShares; ++i) {
        users.push_back(std::make_unique<TRChart>());
        users.back()->setUseDataOf(&source);
    }
    EXPECT_EQ(errorOf([&] { other.setUseDataOf(&source); }),
              "RChart: Max. number of data shares exceeded");
    EXPECT_EQ(other.UseDataOf(), nullptr);
    users.pop_back();
    other.setUseDataOf(&source);
    other.setUseDataOf(&source);
    EXPECT_EQ(other.UseDataOf(), &source);
}

TEST(RChart, ChartsSurviveTheEndOfTheirSourceAndOfTheirUsers)
{
    TRChart user;
    {
        TRChart source;
        user.setUseDataOf(&source);
        source.MoveToXY(1.0, 1.0);
        {
            TRChart brief;
            brief.setUseDataOf(&source);
        }
        EXPECT_EQ(user.items().size(), 1U);
    }
    EXPECT_EQ(user.UseDataOf(), nullptr);
    EXPECT_EQ(user.items().size(), 0U);
    user.MoveToXY(1.0, 1.0);
}

TEST(RChart, ChangesRedrawWhileAutoRedrawIsOn)
{
    TRChart chart;
    chart.resize(300, 200);
    chart.show();
    EXPECT_GT(paintsAfter(chart, [&] { chart.setCaption(QStringLiteral("Potencias")); }), 0);
    EXPECT_GT(paintsAfter(chart, [&] { chart.setRangeHiX(12.0); }), 0);
    EXPECT_GT(paintsAfter(chart,
                          [&] {
                              chart.setCrossHair2({chart::CrossHairMode::chBoth, 1, 1});
                          }),
              0);
    EXPECT_GT(paintsAfter(chart, [&] { chart.FitRangeToData(2.0); }), 0);
    EXPECT_GT(paintsAfter(chart, [&] { chart.ClearItems(); }), 0);
    EXPECT_EQ(paintsAfter(chart, [&] { chart.LineToXY(1.0, 1.0); }), 0);
    EXPECT_EQ(paintsAfter(chart, [&] { chart.setDataColor(Qt::red); }), 0);
    EXPECT_EQ(paintsAfter(chart, [&] { chart.setCaption(QStringLiteral("Potencias")); }), 0);

    chart.setAutoRedraw(false);
    EXPECT_EQ(paintsAfter(chart, [&] { chart.setCaption(QStringLiteral("Otra")); }), 0);
    EXPECT_EQ(paintsAfter(chart, [&] { chart.setRangeHiX(13.0); }), 0);
    EXPECT_EQ(paintsAfter(chart, [&] { chart.FitRangeToData(2.0); }), 0);
    EXPECT_GT(paintsAfter(chart, [&] { chart.setAutoRedraw(true); }), 0);
}

TEST(RChart, KeysAndDoubleClicksRedrawWhileAutoRedrawIsOn)
{
    TRChart chart;
    chart.setMouseAction(chart::MouseAction::maZoomDrag);
    chart.resize(300, 200);
    chart.show();
    const auto zoom = [&] { QTest::keyClick(&chart, Qt::Key_Plus); };
    const auto showAll = [&] {
        QTest::mouseDClick(&chart, Qt::LeftButton, {}, chart.geometry().layout.plot.center());
    };
    for (const bool on : {true, false}) {
        chart.setAutoRedraw(on);
        const long double before = chart.RangeHiX();
        EXPECT_EQ(paintsAfter(chart, zoom) > 0, on);
        EXPECT_LT(chart.RangeHiX(), before);
        EXPECT_EQ(paintsAfter(chart, showAll) > 0, on);
        EXPECT_EQ(chart.RangeHiX(), before);
    }
}

TEST(RChart, BackgroundPictureFillsThePlot)
{
    QImage picture(2, 1, QImage::Format_RGB32);
    picture.setPixelColor(0, 0, Qt::red);
    picture.setPixelColor(1, 0, Qt::blue);
    TRChart chart;
    chart.resize(300, 200);
    chart.setBackGroundImg(picture);
    const QRect plot = chart.geometry().layout.plot;
    const QPoint centre = plot.center();
    const auto colourAt = [&](int x) { return chart.picture(false).pixelColor(x, centre.y()); };
    EXPECT_GT(colourAt(plot.left() + 10).red(), 200);
    EXPECT_GT(colourAt(plot.right() - 10).blue(), 200);
    chart.setBackGroundFill(chart::BackgroundFill::bfTile);
    EXPECT_NE(colourAt(plot.left() + 10), colourAt(plot.left() + 11));
    chart.setBackGroundFill(chart::BackgroundFill::bfCenter);
    EXPECT_EQ(colourAt(plot.left() + 10), QColor(Qt::white));
}

TEST(RChart, CrossHairsPassThroughTheirPoint)
{
    TRChart chart;
    chart.resize(300, 200);
    chart.setCrossHair3({chart::CrossHairMode::chVert, 5.0, 5.0, Qt::green});
    const chart::ChartGeometry geometry = chart.geometry();
    const int x = geometry.xScale.toPixel(5.0);
    const int y = geometry.yScale.toPixel(5.0);
    EXPECT_EQ(chart.picture(false).pixelColor(x, y + 20), QColor(Qt::green));
    EXPECT_EQ(chart.picture(false).pixelColor(x + 20, y), QColor(Qt::white));
    chart.setCrossHair3({chart::CrossHairMode::chHoriz, 5.0, 5.0, Qt::green});
    EXPECT_EQ(chart.picture(false).pixelColor(x, y + 20), QColor(Qt::white));
    EXPECT_EQ(chart.picture(false).pixelColor(x + 20, y), QColor(Qt::green));
    chart.setCrossHair3({chart::CrossHairMode::chBoth, std::nan(""), 5.0, Qt::green});
    EXPECT_EQ(chart.picture(false).pixelColor(x + 20, y), QColor(Qt::white));
}

TEST(RChart, OffersItsNumbersAsText)
{
    const UserLocale comma("es_ES");
    TRChart chart;
    chart.setCaption(QStringLiteral("Distrib. Acumulada"));
    chart.setIdAbscissa(QStringLiteral("Valor C"));
    chart.MoveToXY(0.25, 0.5);
    chart.LineToXY(1.5, 1.0);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&chart);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Chart);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Distrib. Acumulada"));
    const QString text = accessible->text(QAccessible::Description);
    EXPECT_TRUE(text.contains(QStringLiteral("Valor C"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Puntos: 2."))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("\n0,25; 0,5\n1,5; 1"))) << text.toStdString();
    chart.setAccessibleName(QStringLiteral("Nombre"));
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Nombre"));
    for (int i = 0; i < 2000; ++i)
        chart.LineToXY(i, i);
    EXPECT_TRUE(chart.description().endsWith(QStringLiteral("... y 1002 más")));
}

TEST(RChart, TellsEachSeriesOnceByItsNameAndByItsMarks)
{
    const UserLocale comma("es_ES");
    TRChart chart;
    chart.setSeries({{QColor(Qt::red).rgba(), QStringLiteral("Prueba C")},
                     {QColor(Qt::blue).rgba(), QStringLiteral("Prueba M")}});
    for (const double x : {0.0, 0.5}) {
        for (const auto& [color, height] : {std::pair(Qt::blue, 0.25), {Qt::red, 1.0}}) {
            chart.setDataColor(color);
            chart.MoveToXY(x, height);
            chart.LineToXY(x, height);
            chart.MarkAtXY(x, height, 2);
        }
    }
    const QString text = chart.description();
    EXPECT_TRUE(text.endsWith(QStringLiteral("Puntos: 4.\nPrueba C:\n0; 1\n0,5; 1\n"
                                             "Prueba M:\n0; 0,25\n0,5; 0,25")))
        << text.toStdString();
}

TEST(RChart, TicksHaveTheirLengths)
{
    TRChart chart;
    chart.resize(500, 300);
    chart.setShadowStyle(chart::ShadowStyle::ssNone);
    chart.setXLabelType(LabelType::ftNoFigs);
    chart.setYLabelType(LabelType::ftNoFigs);
    chart.setLRim(60);
    chart.setBRim(60);
    const chart::ChartGeometry geometry = chart.geometry(); // 0..10: main ticks every 2, short 0.5
    const QRect plot = geometry.layout.plot;
    const QImage picture = chart.picture(false);
    const auto lengthBelow = [&](double value) {
        const int x = geometry.xScale.toPixel(value);
        int length = 0;
        while (picture.pixelColor(x, plot.bottom() + 1 + length) == QColor(Qt::black))
            ++length;
        return length;
    };
    const auto lengthLeft = [&](double value) {
        const int y = geometry.yScale.toPixel(value);
        int length = 0;
        while (picture.pixelColor(plot.left() - 1 - length, y) == QColor(Qt::black))
            ++length;
        return length;
    };
    EXPECT_EQ(lengthBelow(4.0), 7);
    EXPECT_EQ(lengthBelow(4.5), 4);
    EXPECT_EQ(lengthBelow(4.75), 0);
    EXPECT_EQ(lengthLeft(4.0), 6);
    EXPECT_EQ(lengthLeft(4.5), 4);
}

TEST(RChart, ZoomedToTheLastDigitsItStillHasTicksAndLabels)
{
    TRChart chart;
    chart.resize(500, 300);
    chart.setRangeLoX(1e6L);
    chart.setRangeHiX(1e6L + 1e-10L);
    chart.MoveToXY(0.0, 0.0);
    chart.LineToXY(2e6, 10.0);
    const chart::ChartGeometry geometry = chart.geometry();
    EXPECT_GE(geometry.xTicks.main.size(), 4U);
    EXPECT_FALSE(geometry.xLabels.empty());
    const QImage picture = chart.picture(false);
    const QPoint middle(geometry.layout.plot.center().x(), geometry.yScale.toPixel(5.0));
    // The line passes at half the height, at worst with half of it in the next row of pixels.
    EXPECT_LT(qGray(picture.pixel(middle)), 160);
}

TEST(RChart, LabelsCanBeReadOnADarkWindow)
{
    TRChart chart;
    chart.resize(300, 200);
    chart.setWindColor(QColor(40, 40, 40));
    const QRect plot = chart.geometry().layout.plot;
    const QColor tick =
        chart.picture(false).pixelColor(chart.geometry().xScale.toPixel(5.0), plot.bottom() + 3);
    EXPECT_GT(tick.lightness(), 200);
}
