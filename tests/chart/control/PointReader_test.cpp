// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/PointReader.h"

#include "chart/control/RChart.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStatusTipEvent>
#include <QTest>

namespace {

/// A window that hears what its chart tells, as the frame of the program does.
class Listener : public QWidget {
public:
    QString told;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::StatusTip)
            return QWidget::event(event);
        told = static_cast<QStatusTipEvent*>(event)->tip();
        return true;
    }
};

/// Two curves with marks at 0, 1 and 2, which meet at 1.
class PointReading : public ::testing::Test {
protected:
    PointReading()
    {
        chart.setGeometry(0, 0, 500, 400);
        chart.setMouseAction(chart::MouseAction::maZoomDrag);
        chart.setIdOrdinate(QStringLiteral("Potencia"));
        chart.setSeries({{QColor(Qt::red).rgba(), QStringLiteral("Roja")},
                         {QColor(Qt::blue).rgba(), QStringLiteral("Azul")}});
        addCurve(Qt::red, {0.0, 0.5, 1.0});
        addCurve(Qt::blue, {0.25, 0.5, 0.123456789});
        chart.FitRangeToData(10.0);
        window.resize(500, 400);
        window.show();
        QApplication::setActiveWindow(&window);
        chart.setFocus();
        QApplication::processEvents();
    }

    void addCurve(const QColor& color, const std::vector<double>& heights)
    {
        chart.setDataColor(color);
        chart.MoveToXY(0.0, heights[0]);
        for (std::size_t i = 0; i < heights.size(); ++i) {
            chart.LineToXY(static_cast<double>(i), heights[i]);
            chart.MarkAtXY(static_cast<double>(i), heights[i], 2);
        }
    }

    QPoint at(double x, double y)
    {
        return {chart.geometry().xScale.toPixel(x), chart.geometry().yScale.toPixel(y)};
    }

    QString toldAt(const QPoint& position)
    {
        QTest::mouseMove(&chart, position);
        return window.told;
    }

    QString toldAfter(Qt::Key key)
    {
        QTest::keyClick(&chart, key, Qt::ControlModifier);
        return window.told;
    }

    UserLocale comma{"es_ES"};
    Listener window;
    chart::TRChart& chart = *new chart::TRChart(&window);
};

} // namespace

TEST_F(PointReading, MouseReadsThePointNearestToIt)
{
    EXPECT_EQ(toldAt(at(0.0, 0.0) + QPoint(5, -9)), QStringLiteral("x = 0; Potencia = 0 (Roja)"));
    EXPECT_EQ(toldAt(at(2.0, 0.2)), QStringLiteral("x = 2; Potencia = 0,123457 (Azul)"));
    EXPECT_EQ(toldAt(at(1.0, 0.52)), QStringLiteral("x = 1; Potencia = 0,5 (Roja, Azul)"));
}

TEST_F(PointReading, NothingIsReadOutsideThePlotNorWhileItIsDragged)
{
    EXPECT_NE(toldAt(at(1.0, 0.5)), QString());
    EXPECT_EQ(toldAt({1, 1}), QString());
    EXPECT_NE(toldAt(at(1.0, 0.5)), QString());
    QTest::mousePress(&chart, Qt::LeftButton, {}, at(1.0, 0.5));
    EXPECT_EQ(toldAt(at(1.5, 0.7)), QString());
    QTest::keyClick(&chart, Qt::Key_Escape);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, at(1.5, 0.7));
    toldAt({1, 1}); // the platform sees the release with this
    EXPECT_NE(toldAt(at(1.0, 0.5)), QString());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&chart, &leave);
    EXPECT_EQ(window.told, QString());
    chart.setMouseAction(chart::MouseAction::maNone);
    EXPECT_EQ(toldAt(at(1.0, 0.6)), QString());
}

TEST_F(PointReading, KeysLeadAlongACurveAndToTheOthers)
{
    EXPECT_EQ(toldAfter(Qt::Key_Right), QStringLiteral("x = 0; Potencia = 0 (Roja)"));
    EXPECT_EQ(toldAfter(Qt::Key_Left), QStringLiteral("x = 0; Potencia = 0 (Roja)"));
    EXPECT_EQ(toldAfter(Qt::Key_Up), QStringLiteral("x = 0; Potencia = 0,25 (Azul)"));
    EXPECT_EQ(toldAfter(Qt::Key_Right), QStringLiteral("x = 1; Potencia = 0,5 (Roja, Azul)"));
    EXPECT_EQ(toldAfter(Qt::Key_Right), QStringLiteral("x = 2; Potencia = 0,123457 (Azul)"));
    EXPECT_EQ(toldAfter(Qt::Key_Up), QStringLiteral("x = 2; Potencia = 1 (Roja)"));
    EXPECT_EQ(toldAfter(Qt::Key_Down), QStringLiteral("x = 2; Potencia = 0,123457 (Azul)"));
    EXPECT_EQ(chart.zoomHistory().size(), 1U) << "the view stays";
    chart.clearFocus();
    EXPECT_EQ(window.told, QString());
}

TEST_F(PointReading, OnlyWhatIsInViewIsRead)
{
    toldAfter(Qt::Key_Right);
    QTest::keyClick(&chart, Qt::Key_Plus);
    EXPECT_EQ(window.told, QString()) << "its point has gone";
    EXPECT_EQ(toldAfter(Qt::Key_Right), QStringLiteral("x = 1; Potencia = 0,5 (Roja, Azul)"));
    EXPECT_EQ(toldAfter(Qt::Key_Right), QStringLiteral("x = 1; Potencia = 0,5 (Roja, Azul)"));
    chart.ClearItems();
    EXPECT_EQ(window.told, QString());
    EXPECT_EQ(toldAt(at(1.0, 0.5)), QString());
}

TEST_F(PointReading, TheReadPointHasARingOnTheScreenOnly)
{
    const QImage before = chart.grab().toImage();
    toldAfter(Qt::Key_Right);
    EXPECT_LT(qGray(chart.grab().toImage().pixel(at(0.0, 0.0) + QPoint(0, -6))), 100);
    EXPECT_EQ(chart.picture(false), before.convertToFormat(QImage::Format_RGB32));
}

TEST_F(PointReading, WithoutMarksThePointsOfTheLinesAreRead)
{
    chart.ClearItems();
    chart.setSeries({});
    chart.setIdOrdinate(QStringLiteral("P"));
    chart.MoveToXY(12.5, 0.0142857142857143);
    chart.LineToXY(-1e-7 / 3, 123456789.0);
    chart.FitRangeToData(10.0);
    EXPECT_EQ(toldAfter(Qt::Key_Left), QStringLiteral("x = 12,5; P = 0,0142857"));
    EXPECT_EQ(toldAfter(Qt::Key_Left), QStringLiteral("x = -3,33333E-8; P = 123457000"));
}
