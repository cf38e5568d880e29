// SPDX-License-Identifier: GPL-3.0-or-later
#include "distribution/Frmgraf.h"

#include "base/NumberText.h"
#include "chart/control/RChart.h"
#include "distribution/SequenceDistributions.h"
#include "support/Golden.h"
#include "support/ScriptedDialogs.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using chart::TRChart;
using distribution::TGrafica;

namespace {

class Grafica : public ::testing::Test {
protected:
    TRChart& upper() { return *window->findChild<TRChart*>(QStringLiteral("Graph")); }
    TRChart& lower() { return *window->findChild<TRChart*>(QStringLiteral("Graph2")); }
    QAction& entry(const char* name)
    {
        return *window->findChild<QAction*>(QString::fromLatin1(name));
    }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    static QByteArray bytesOf(const QString& fileName)
    {
        QFile file(fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void showC() { showDistribution(sequence_distributions::statisticC, 'C'); }
    void showM() { showDistribution(sequence_distributions::statisticM, 'M'); }

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    std::unique_ptr<TGrafica> window = std::make_unique<TGrafica>(dialogs);

private:
    void showDistribution(sequence_distributions::Statistic statistic, char letter)
    {
        const QLatin1Char name(letter);
        window->setDistribution(
            {sequence_distributions::exactDistribution(statistic),
             QStringLiteral("Distribución exacta de %1 para cuadrados de 3x3").arg(name),
             QString(name).toLower()});
        window->ShowDistribution();
    }

    UserLocale m_point{"C"};
};

} // namespace

TEST_F(Grafica, BeginsAsItsForm)
{
    EXPECT_EQ(window->objectName(), QStringLiteral("Grafica"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Gráfica"));
    EXPECT_EQ(window->sizeHint(), QSize(544, 375));
    EXPECT_EQ(upper().Caption(), QStringLiteral("Gráfica"));
    EXPECT_EQ(upper().IdAbscissa(), QStringLiteral("Valor"));
    EXPECT_EQ(upper().IdOrdinate(), QStringLiteral("P(X=k)"));
    EXPECT_EQ(upper().DecPlaceX(), 3);
    EXPECT_EQ(upper().DecPlaceY(), 4);
    EXPECT_EQ(lower().Caption(), QStringLiteral("Distrib. Acumulada"));
    EXPECT_EQ(lower().IdAbscissa(), QStringLiteral("Valor"));
    EXPECT_EQ(lower().IdOrdinate(), QStringLiteral("P(X<=k)"));
    EXPECT_EQ(lower().DecPlaceX(), 2);
    EXPECT_EQ(lower().DecPlaceY(), 3);
    for (TRChart* chart : {&upper(), &lower()}) {
        EXPECT_TRUE(chart->AutoRedraw());
        EXPECT_EQ(chart->GridStyle(), chart::GridStyle::gsHorizDotLines);
        EXPECT_EQ(chart->RangeLoX(), 0.0L);
        EXPECT_EQ(chart->RangeHiX(), 10.0L);
        EXPECT_EQ(chart->RangeLoY(), 0.0L);
        EXPECT_EQ(chart->RangeHiY(), 10.0L);
        EXPECT_EQ(chart->MinTickX(), 8);
        EXPECT_EQ(chart->MinRangeX(), 1e-10);
        EXPECT_EQ(chart->MinRangeY(), 1e-10);
        EXPECT_EQ(chart->MouseAction(), chart::MouseAction::maZoomDrag);
        EXPECT_EQ(chart->ShadowStyle(), chart::ShadowStyle::ssFlying);
        EXPECT_TRUE(chart->ShortTicksX() && chart->ShortTicksY());
        EXPECT_FALSE(chart->LogScaleX() || chart->LogScaleY());
        EXPECT_EQ(chart->XLabelType(), chart::LabelType::ftNum);
        EXPECT_EQ(chart->CrossHair4().mode, chart::CrossHairMode::chOff);
        EXPECT_EQ(chart->TextBkStyle(), chart::TextBkStyle::tbClear);
        EXPECT_EQ(chart->TextAlignment(), chart::TextAlignment::taCenter);
        EXPECT_FALSE(chart->accessibleName().isEmpty());
    }
}

TEST_F(Grafica, ChartsShareTheWindowBySplitter)
{
    window->show();
    QApplication::processEvents();
    const auto* splitter = window->findChild<QSplitter*>(QStringLiteral("Splitter1"));
    ASSERT_NE(splitter, nullptr);
    EXPECT_EQ(splitter->handleWidth(), 3);
    EXPECT_EQ(lower().height(), 160);
    EXPECT_EQ(upper().height(), 375 - 3 - 160);
    window->resize(800, 600);
    QApplication::processEvents();
    EXPECT_EQ(lower().height(), 160);
}

TEST_F(Grafica, NoChartCanBePushedToNothing)
{
    window->show();
    QApplication::processEvents();
    auto* splitter = window->findChild<QSplitter*>(QStringLiteral("Splitter1"));
    QWidget* handle = splitter->handle(1);
    for (const int way : {500, -500}) {
        const QPoint from = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, {}, from);
        QTest::mouseMove(handle, from + QPoint(0, way));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, from + QPoint(0, way));
        for (TRChart* chart : {&upper(), &lower()}) {
            EXPECT_TRUE(chart->isVisible()) << way;
            EXPECT_GE(chart->height(), chart->minimumSizeHint().height()) << way;
        }
    }
}

TEST_F(Grafica, MenuHasItsEntries)
{
    QMenu* menu = window->menu();
    EXPECT_EQ(menu->title(), QStringLiteral("&Gráfica"));
    EXPECT_EQ(menu->objectName(), QStringLiteral("Grfica1"));
    QStringList captions;
    for (const QAction* action : menu->actions())
        captions += action->text();
    EXPECT_EQ(captions,
              (QStringList{QStringLiteral("&Guardar Gráfica..."),
                           QStringLiteral("Guarda Gráfica &Acumulada..."),
                           QStringLiteral("Guardar &Datos..."), QStringLiteral("&Copiar Gráfica"),
                           QStringLiteral("Copiar Acumu&lada")}));
    EXPECT_EQ(entry("GuardarDatos1").shortcut(), QKeySequence(Qt::Key_F2));
}

TEST_F(Grafica, ShowsTheDistributionOnBothCharts)
{
    showC();
    EXPECT_EQ(window->windowTitle(),
              QStringLiteral("Distribución exacta de C para cuadrados de 3x3"));
    EXPECT_EQ(upper().Caption(), window->windowTitle());
    EXPECT_EQ(lower().Caption(), QStringLiteral("Distrib. Acumulada"));
    EXPECT_EQ(upper().IdAbscissa(), QStringLiteral("Valor C"));
    EXPECT_EQ(upper().IdOrdinate(), QStringLiteral("P(C=c)"));
    EXPECT_EQ(lower().IdAbscissa(), QStringLiteral("Valor C"));
    EXPECT_EQ(lower().IdOrdinate(), QStringLiteral("P(C<=c)"));
    for (TRChart* chart : {&upper(), &lower()}) {
        EXPECT_EQ(chart->items().counters()[8], 1U);
        EXPECT_EQ(chart->items().counters()[3], 85U);
    }
    EXPECT_EQ(upper().items().begin()->attributes.color, 0xff000000U);
    EXPECT_EQ(lower().items().begin()->attributes.color, 0xff0000ffU);
    // From 0 to 53/270, and up to 1, with 2 % on every side.
    EXPECT_NEAR(static_cast<double>(upper().RangeLoX()), -0.02 * 53 / 270, 1e-12);
    EXPECT_NEAR(static_cast<double>(upper().RangeHiX()), 1.02 * 53 / 270, 1e-12);
    const double first = lower().items().begin()->y;
    EXPECT_NEAR(static_cast<double>(lower().RangeHiY()), 1.0 + 0.02 * (1.0 - first), 1e-12);

    showM();
    EXPECT_EQ(upper().IdOrdinate(), QStringLiteral("P(M=m)"));
    EXPECT_EQ(upper().items().size(), 112U);
}

/// On the screen at scale 1 and 2, and in the bitmap: how much ink a column of pixels takes from a
/// level line and from a slanted one, which has smooth edges.
TEST_F(Grafica, CurvesAreSmoothAndTwoPixelsWide)
{
    window->setDistribution({{{0.0, 0.5, 0.5}, {0.5, 0.5, 0.5}, {1.0, 0.25, 1.0}}, {}, {}});
    window->ShowDistribution();
    window->resize(700, 500);
    window->show();
    QApplication::processEvents();
    TRChart& chart = upper();
    chart.setGridStyle(chart::GridStyle::gsNone);
    const auto onScreen = [&chart](int scale) {
        QImage image(chart.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        chart.render(&image);
        return image;
    };
    for (const QImage& image : {onScreen(1), onScreen(2), chart.picture(true)}) {
        const auto scale = static_cast<int>(image.devicePixelRatio());
        const QRect plot = chart.geometry().layout.plot.adjusted(1, 1, -1, -1);
        const auto inkAt = [&](double x) {
            int ink = 0;
            int greys = 0;
            const int column = chart.geometry().xScale.toPixel(x) * scale;
            for (int y = plot.top() * scale; y <= plot.bottom() * scale; ++y) {
                const int dark = 255 - qGray(image.pixel(column, y));
                ink += dark;
                greys += dark > 20 && dark < 235 ? 1 : 0;
            }
            return std::pair(ink / 255.0 / scale, greys);
        };
        EXPECT_NEAR(inkAt(0.25).first, 2.0, 0.1);
        EXPECT_GT(inkAt(0.75).first, 2.0); // it crosses the column aslant
        EXPECT_GE(inkAt(0.75).second, 1);
    }
}

TEST_F(Grafica, PlotsHaveOneLeftEdge)
{
    showC();
    window->show();
    QApplication::processEvents();
    EXPECT_EQ(upper().LRim(), lower().LRim());
}

TEST_F(Grafica, TheLeftEdgeIsAsFarAsTheLabelsOfTheMomentNeed)
{
    showC();
    window->resize(700, 600);
    window->show();
    QApplication::processEvents();
    const int rim = upper().LRim();
    for (int i = 0; i < 12; ++i)
        QTest::keyClick(&upper(), Qt::Key_Plus);
    EXPECT_GT(upper().LRim(), rim);
    EXPECT_EQ(upper().LRim(), std::max(upper().ownLRim(), lower().ownLRim()));
    QTest::keyClick(&upper(), Qt::Key_Home);
    EXPECT_EQ(upper().LRim(), rim);
    EXPECT_EQ(lower().LRim(), rim);

    window->resize(290, 600);
    QApplication::processEvents();
    EXPECT_NE(upper().LRim(), lower().LRim()) << "in a narrow window each has its own";
    EXPECT_EQ(upper().LRim(), upper().ownLRim());
    EXPECT_EQ(lower().LRim(), lower().ownLRim());
}

/// By keys, by a rectangle and by moving the sheet, with the way back of either chart.
TEST_F(Grafica, BothChartsZoomInXTogether)
{
    showC();
    window->resize(700, 600);
    window->show();
    QApplication::processEvents();
    const auto expectOneX = [this](const char* after) {
        EXPECT_EQ(upper().RangeLoX(), lower().RangeLoX()) << after;
        EXPECT_EQ(upper().RangeHiX(), lower().RangeHiX()) << after;
        EXPECT_EQ(upper().LRim(), lower().LRim()) << after;
    };
    const long double fullLow = upper().RangeLoX();
    const long double fullTop = lower().RangeHiY();

    QTest::keyClick(&upper(), Qt::Key_Plus);
    EXPECT_GT(lower().RangeLoX(), fullLow);
    EXPECT_EQ(lower().RangeHiY(), fullTop) << "its own y stays";
    expectOneX("a key above");

    const QPoint centre = lower().geometry().layout.plot.center();
    QTest::mousePress(&lower(), Qt::LeftButton, {}, centre);
    QTest::mouseMove(&lower(), centre + QPoint(60, 20));
    QTest::mouseRelease(&lower(), Qt::LeftButton, {}, centre + QPoint(60, 20));
    expectOneX("a rectangle below");
    const long double zoomedLow = upper().RangeLoX();

    QTest::mousePress(&upper(), Qt::MiddleButton, {}, centre);
    for (const int moved : {10, 20, 30}) {
        QTest::mouseMove(&upper(), centre + QPoint(moved, 0));
        expectOneX("on the way");
    }
    QTest::mouseRelease(&upper(), Qt::MiddleButton, {}, centre + QPoint(30, 0));
    EXPECT_LT(lower().RangeLoX(), zoomedLow);
    EXPECT_EQ(lower().zoomHistory().size(), 4U) << "a drag is one step for both";

    for (TRChart* chart : {&lower(), &upper(), &lower()}) {
        QTest::keyClick(chart, Qt::Key_Escape);
        expectOneX("a step back");
    }
    for (TRChart* chart : {&upper(), &lower()}) {
        EXPECT_FALSE(chart->zoomHistory().canGoBack());
        EXPECT_EQ(chart->RangeLoX(), fullLow);
    }
    EXPECT_EQ(lower().RangeHiY(), fullTop);

    QTest::keyClick(&upper(), Qt::Key_Plus);
    QTest::keyClick(&lower(), Qt::Key_Plus);
    QTest::mouseDClick(&upper(), Qt::LeftButton, {}, centre);
    expectOneX("everything");
    EXPECT_EQ(lower().RangeHiY(), fullTop);
}

TEST_F(Grafica, LastCumulativeValueIsOne)
{
    for (const bool isC : {true, false}) {
        isC ? showC() : showM();
        EXPECT_EQ(base::generalText(std::prev(lower().items().end())->y), QStringLiteral("1"));
    }
}

TEST_F(Grafica, OneValueIsOneMoveAndAMinimumRange)
{
    window->setDistribution({{{0.5, 1.0, 1.0}}, QStringLiteral("Una"), QStringLiteral("c")});
    window->ShowDistribution();
    for (TRChart* chart : {&upper(), &lower()}) {
        EXPECT_EQ(chart->items().size(), 1U);
        EXPECT_EQ(chart->items().begin()->kind, chart::ItemKind::Move);
        EXPECT_NEAR(static_cast<double>((chart->RangeHiX() - chart->RangeLoX()) / 1e-10L), 1.0,
                    1e-6);
    }
}

TEST_F(Grafica, EmptyDistributionHasNoCurve)
{
    showC();
    window->setDistribution({});
    window->ShowDistribution();
    EXPECT_EQ(upper().items().size(), 0U);
    EXPECT_EQ(lower().items().size(), 0U);
}

TEST_F(Grafica, HandsItsDistributionOut)
{
    window->setDistribution({{{0.25, 0.5, 0.5}, {0.75, 0.5, 1.0}}, {}, QStringLiteral("c")});
    EXPECT_EQ(window->distribution().Count(), 2);
    EXPECT_EQ(window->distribution().Values(), (std::vector<double>{0.25, 0.75, 0.5, 0.5}));
}

TEST_F(Grafica, TableHasItsLayout)
{
    for (const bool isC : {true, false}) {
        isC ? showC() : showM();
        dialogs.saveAnswers = {path("datos.txt")};
        entry("GuardarDatos1").trigger();
        const QByteArray table = bytesOf(path("datos.txt"));
        EXPECT_TRUE(
            matchesGolden(isC ? "distribution/data/tabla_c.txt" : "distribution/data/tabla_m.txt",
                          table.toStdString()));
        const QList<QByteArray> lines = table.split('\n');
        ASSERT_EQ(lines.size(), (isC ? 86 : 112) + 3); // title, header, and nothing behind the end
        EXPECT_EQ(lines[1], QByteArray("                Valor ") + (isC ? "c" : "m") +
                                "             p(x)                   F(x)      \r");
        for (qsizetype i = 2; i < lines.size() - 1; ++i) {
            EXPECT_EQ(lines[i].size(), 3 * 23 + 1);
            EXPECT_TRUE(lines[i].endsWith('\r'));
        }
        EXPECT_TRUE(lines[lines.size() - 2].endsWith("                      1\r"));
        EXPECT_TRUE(lines.last().isEmpty());
    }
    EXPECT_EQ(dialogs.saveRequests.front().fileName, QStringLiteral("datos.txt"));
    EXPECT_EQ(dialogs.saveRequests.front().suffix, QStringLiteral("txt"));
    EXPECT_EQ(dialogs.saveRequests.front().filter, QStringLiteral("Archivos de texto (TXT)|*.txt"));
    EXPECT_FALSE(dialogs.saveRequests.front().confirmOverwrite);
}

TEST_F(Grafica, TableUsesTheUsersSeparator)
{
    const UserLocale comma("es_ES");
    window->setDistribution(
        {{{0.5, 0.25, 0.25}, {1e-7, 0.75, 1.0}}, QStringLiteral("Título"), QStringLiteral("c")});
    EXPECT_EQ(
        distributionTable(window->distribution()),
        QByteArray("Título\r\n"
                   "                Valor c             p(x)                   F(x)      \r\n"
                   "                    0,5                   0,25                   0,25\r\n"
                   "                   1E-7                   0,75                      1\r\n"));
}

TEST_F(Grafica, TableKeepsTextsThatAreTooLongForTheirColumn)
{
    window->setDistribution({{}, {}, QStringLiteral("de un nombre muy largo")});
    EXPECT_TRUE(distributionTable(window->distribution())
                    .startsWith("\r\nValor de un nombre muy largo             p(x)"));
}

TEST_F(Grafica, BitmapsAreSavedUnderTheCutName)
{
    showC();
    dialogs.saveAnswers = {path("uno.dos.dat"), path("acumulada.bmp")};
    entry("GuardarGrfica1").trigger();
    entry("GuardaGrficaAcumulada1").trigger();
    const auto read = [&](const char* name) {
        return QImage::fromData(bytesOf(path(name)), "BMP").convertToFormat(QImage::Format_RGB32);
    };
    EXPECT_EQ(read("uno.bmp"), upper().picture(true));
    EXPECT_EQ(read("acumulada.bmp"), lower().picture(true));
    const window::FileRequest& request = dialogs.saveRequests.front();
    EXPECT_EQ(request.fileName, QStringLiteral("grafica.bmp"));
    EXPECT_EQ(request.suffix, QStringLiteral("bmp"));
    EXPECT_EQ(request.filter, QStringLiteral("Mapa de Bits (BMP)|*.bmp"));
    EXPECT_TRUE(request.confirmOverwrite);
    ASSERT_TRUE(request.writtenName);
    EXPECT_EQ(request.writtenName(path("uno.dos.dat")), path("uno.bmp"));
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(Grafica, SavedOnADarkDesktopItHasAWhiteGroundAndDarkLetters)
{
    window->setPalette(QPalette(QColor(45, 45, 45)));
    showC();
    dialogs.saveAnswers = {path("uno.bmp"), path("dos.bmp")};
    entry("GuardarGrfica1").trigger();
    entry("GuardaGrficaAcumulada1").trigger();
    for (const auto& [name, chart] : {std::pair("uno.bmp", &upper()), {"dos.bmp", &lower()}}) {
        const QImage saved = QImage::fromData(bytesOf(path(name)), "BMP");
        const QRect plot = chart->geometry().layout.plot;
        EXPECT_EQ(saved.pixelColor(0, 0), QColor(Qt::white));
        EXPECT_EQ(saved.pixelColor(plot.left() - 1, plot.bottom() + 1), QColor(Qt::white));
        EXPECT_GT(saved.pixelColor(plot.right() + 2, plot.center().y()).lightness(), 80)
            << "the shadow, in the palette's grey on white";
        const QRect caption = chart->geometry().layout.caption;
        int dark = 0;
        for (int x = caption.left(); x <= caption.right(); ++x) {
            for (int y = caption.top(); y <= caption.bottom(); ++y)
                dark += saved.pixelColor(x, y).lightness() < 80 ? 1 : 0;
        }
        EXPECT_GT(dark, 50) << "its letters";
        EXPECT_LT(chart->picture(false).pixelColor(0, 0).lightness(), 80) << "the screen's";
    }
}

TEST_F(Grafica, CancelledDialogsWriteNothing)
{
    showC();
    dialogs.saveAnswers = {std::nullopt, std::nullopt, std::nullopt};
    entry("GuardarGrfica1").trigger();
    entry("GuardaGrficaAcumulada1").trigger();
    entry("GuardarDatos1").trigger();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(Grafica, FailedSavesNameTheFileAndTheReason)
{
    showC();
    dialogs.saveAnswers = {path("no/a.b.dat"), std::nullopt, path("no/datos.txt"), std::nullopt};
    entry("GuardarGrfica1").trigger();
    entry("GuardarDatos1").trigger();
    ASSERT_EQ(dialogs.errors.size(), 2U);
    EXPECT_TRUE(dialogs.errors[0].text.contains(path("no/a.bmp")));
    EXPECT_TRUE(dialogs.errors[1].text.contains(path("no/datos.txt")));
    EXPECT_GT(dialogs.errors[0].text.section(QLatin1Char('\n'), 1).size(), 10);
}

TEST_F(Grafica, ChartOfNoSizeIsAnErrorBox)
{
    showC();
    lower().resize(500, 0);
    dialogs.saveAnswers = {path("a.bmp"), std::nullopt};
    entry("GuardaGrficaAcumulada1").trigger();
    entry("Copiar1").trigger();
    ASSERT_EQ(dialogs.errors.size(), 2U);
    EXPECT_TRUE(dialogs.errors[0].text.contains(QStringLiteral("no tiene tamaño")));
    EXPECT_FALSE(QFile::exists(path("a.bmp")));
}

TEST_F(Grafica, ChartsAreCopied)
{
    showM();
    const auto copied = [] {
        return QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    };
    entry("CopiarGrfica1").trigger();
    EXPECT_EQ(copied(), upper().picture(false));
    entry("Copiar1").trigger();
    EXPECT_EQ(copied(), lower().picture(false));
}

TEST_F(Grafica, StatusLineTellsHowToZoom)
{
    const QSignalSpy status(window.get(), &window::ChildWindow::statusText);
    window->FormActivate();
    window->FormDeactivate();
    ASSERT_EQ(status.size(), 2);
    EXPECT_TRUE(status[0][0].toString().contains(QStringLiteral("Esc")));
    EXPECT_EQ(status[1][0].toString(), QStringLiteral("Listo."));
}

TEST_F(Grafica, IsDestroyedWhenItIsClosed)
{
    const QPointer<TGrafica> watched = new TGrafica(dialogs);
    watched->show();
    watched->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST_F(Grafica, SeveralWindowsKeepTheirOwnDistributions)
{
    showC();
    TGrafica other(dialogs);
    other.setDistribution(
        {{{1.0, 0.5, 0.5}, {2.0, 0.5, 1.0}}, QStringLiteral("Otra"), QStringLiteral("m")});
    other.ShowDistribution();
    EXPECT_EQ(window->distribution().Count(), 86);
    EXPECT_EQ(upper().items().size(), 86U);
}
