// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/RChart.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

using chart::TRChart;

namespace {

void draw(TRChart& chart)
{
    chart.resize(321, 203);
    chart.setCaption(QStringLiteral("Gráfica"));
    chart.MoveToXY(0.0, 0.0);
    chart.LineToXY(1.0, 1.0);
    chart.FitRangeToData(2.0);
}

QByteArray bytesOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(RChartPicture, HasTheLogicalSizeAndIsOpaque)
{
    TRChart chart;
    draw(chart);
    const QImage picture = chart.picture(false);
    EXPECT_EQ(picture.size(), QSize(321, 203));
    EXPECT_EQ(picture.devicePixelRatio(), 1.0);
    EXPECT_FALSE(picture.hasAlphaChannel());
    EXPECT_EQ(picture.pixelColor(0, 0), chart.WindColor());
}

TEST(RChartPicture, IsWhatTheScreenShows)
{
    TRChart chart;
    draw(chart);
    EXPECT_EQ(chart.picture(false), chart.grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST(RChartPicture, WhiteBackgroundIsOnlyInThePicture)
{
    TRChart chart;
    draw(chart);
    chart.setChartColor(Qt::cyan);
    chart.setWindColor(Qt::yellow);
    const QPoint inPlot = chart.geometry().layout.plot.topLeft() + QPoint(3, 3);
    const QImage white = chart.picture(true);
    EXPECT_EQ(white.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(white.pixelColor(inPlot), QColor(Qt::white));
    const QImage coloured = chart.picture(false);
    EXPECT_EQ(coloured.pixelColor(0, 0), QColor(Qt::yellow));
    EXPECT_EQ(coloured.pixelColor(inPlot), QColor(Qt::cyan));
    EXPECT_EQ(chart.ChartColor(), QColor(Qt::cyan));
}

TEST(RChartPicture, NameIsCutAtItsFirstDot)
{
    const auto name = [](const char* chosen) {
        return TRChart::bitmapFileName(QString::fromUtf8(chosen));
    };
    EXPECT_EQ(name("/a/grafica.bmp"), QStringLiteral("/a/grafica.bmp"));
    EXPECT_EQ(name("/a/grafica.dat"), QStringLiteral("/a/grafica.bmp"));
    EXPECT_EQ(name("/a/uno.dos.tres"), QStringLiteral("/a/uno.bmp"));
    EXPECT_EQ(name("/a.b/sin punto"), QStringLiteral("/a.b/sin punto.bmp"));
    EXPECT_EQ(name("/a.b/año 1.BMP"), QStringLiteral("/a.b/año 1.bmp"));
    EXPECT_EQ(name("/a/.oculto"), QStringLiteral("/a/.bmp"));
    EXPECT_EQ(name("suelta.x"), QStringLiteral("suelta.bmp"));
    EXPECT_EQ(name("/raiz.x"), QStringLiteral("/raiz.bmp"));
    EXPECT_EQ(name("a/b/c.d"), QStringLiteral("a/b/c.bmp"));
}

TEST(RChartPicture, IsSavedAsAWindowsBitmap)
{
    const QTemporaryDir folder;
    TRChart chart;
    draw(chart);
    EXPECT_EQ(chart.SaveAsBitmap(folder.filePath(QStringLiteral("uno.dos.dat")), false).problem(),
              std::nullopt);
    const QByteArray bytes = bytesOf(folder.filePath(QStringLiteral("uno.bmp")));
    EXPECT_TRUE(bytes.startsWith("BM"));
    const QImage read = QImage::fromData(bytes, "BMP");
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), chart.picture(false));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("uno.dos.dat"))));
}

TEST(RChartPicture, FailureSaysWhy)
{
    TRChart chart;
    draw(chart);
    const auto reason = chart.SaveAsBitmap(QStringLiteral("/no/existe/a.bmp"), false).problem();
    ASSERT_TRUE(reason);
    EXPECT_FALSE(reason->isEmpty());
}

TEST(RChartPicture, IsCopiedToTheClipboard)
{
    TRChart chart;
    draw(chart);
    EXPECT_EQ(chart.CopyToClipboardBitmap(false), std::nullopt);
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
              chart.picture(false));
}

TEST(RChartPicture, ChartOfNoSizeHasNone)
{
    const QTemporaryDir folder;
    TRChart chart;
    chart.resize(0, 100);
    EXPECT_TRUE(chart.picture(false).isNull());
    EXPECT_EQ(chart.CopyToClipboardBitmap(false), QStringLiteral("La gráfica no tiene tamaño."));
    EXPECT_EQ(chart.SaveAsBitmap(folder.filePath(QStringLiteral("a.bmp")), false).problem(),
              QStringLiteral("La gráfica no tiene tamaño."));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("a.bmp"))));
}
