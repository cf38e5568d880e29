// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/window/PowerFixture.h"

#include "power/study/StudyLines.h"
#include "support/FileSizeLimit.h"

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>

namespace power {
namespace {

/// What a study would log if it were the next one of the program.
QStringList nextLog(const StudySettings& settings)
{
    Aleatorio generator = programAleatorio();
    stats::RandomIntegers integers = stats::programIntegers();
    const auto quietly = [](const std::vector<PowerPoint>&) {};
    return studyLines(settings, runPowerStudy(settings, generator, integers, quietly));
}

} // namespace

TEST_F(PowerWindow, BeginsAsItsForm)
{
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Potencia"));
    EXPECT_EQ(button("BtnCalcular").text(), QStringLiteral("Calcular"));
    EXPECT_EQ(button("BtnSig").text(), QStringLiteral("Nivel de Significancia 95%"));
    EXPECT_EQ(button("BtnDist").text(), QStringLiteral("Distribución Uniforme"));
    EXPECT_EQ(in<QLabel>(*window, "Label1").text(), QStringLiteral("Tamaño del cuadrado:"));
    EXPECT_EQ(in<QLabel>(*window, "Label2").text(), QStringLiteral("Número de Pruebas"));
    EXPECT_EQ(edit("Edit1").text(), QStringLiteral("3"));
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("1.000"));
    EXPECT_EQ(upDown("UpDown1").minimum(), 3);
    EXPECT_EQ(upDown("UpDown1").maximum(), 6);
    EXPECT_EQ(upDown("UpDown2").minimum(), 500);
    EXPECT_EQ(upDown("UpDown2").maximum(), 5000);
    EXPECT_EQ(upDown("UpDown2").singleStep(), 100);
    EXPECT_EQ(graph().Caption(), QStringLiteral("Potencias"));
    EXPECT_EQ(log(), QStringList{QString()});
    EXPECT_EQ(window->menu()->title(), QStringLiteral("&Potencia"));
    EXPECT_EQ(window->menu()->actions().at(0)->text(), QStringLiteral("Guardar &Grafica..."));
    EXPECT_EQ(window->menu()->actions().at(1)->text(), QStringLiteral("Guardar &Reporte..."));
    EXPECT_EQ(popup("MenuSig").actions().size(), 4);
    EXPECT_EQ(popup("MenuDist").actions().size(), 3);
}

TEST_F(PowerWindow, TheLegendShowsTheCurvesColours)
{
    const auto colorOf = [this](const char* name) {
        return in<QFrame>(*window, name).palette().color(QPalette::Window);
    };
    EXPECT_EQ(colorOf("Shape1"), colorOfZimmerman);
    EXPECT_EQ(colorOf("Shape2"), colorOfBennett);
    EXPECT_EQ(colorOf("Shape3"), colorOfC);
    EXPECT_EQ(colorOf("Shape4"), colorOfM);
    EXPECT_EQ(in<QLabel>(*window, "LabelLeyenda1").text(), QStringLiteral("Prueba de Zimmerman"));
    EXPECT_EQ(in<QLabel>(*window, "LabelLeyenda2").text(), QStringLiteral("Prueba de Bennett"));
    EXPECT_EQ(in<QLabel>(*window, "LabelLeyenda3").text(), QStringLiteral("Prueba C"));
    EXPECT_EQ(in<QLabel>(*window, "LabelLeyenda4").text(), QStringLiteral("Prueba M"));
}

TEST_F(PowerWindow, ShowsItsSettingsWholeWhetherWideOrNarrow)
{
    EXPECT_LT(window->minimumSizeHint().width(), 620) << "two stand side by side in 1280 pixels";
    const QSize wide = window->size();
    const QSize narrow(window->minimumSizeHint().width(), wide.height());
    const auto isFolded = [this] {
        return button("BtnSig").y() > button("BtnCalcular").geometry().bottom();
    };
    for (const char* kind : {"Uniforme1", "Exponencial1", "Triangular1"}) {
        choose(*window, "BtnDist", "MenuDist", kind);
        for (const QSize& size : {narrow, wide}) {
            window->resize(size);
            QCoreApplication::processEvents();
            EXPECT_EQ(isFolded(), size == narrow) << kind;
            for (const char* name : {"BtnCalcular", "BtnSig", "BtnDist"}) {
                const QPushButton& shown = button(name);
                EXPECT_GE(shown.width(), shown.sizeHint().width()) << name << " of " << kind;
                EXPECT_TRUE(shown.parentWidget()->rect().contains(shown.geometry())) << name;
            }
        }
    }
}

TEST_F(PowerWindow, EveryWidgetOfTheFormHasANameForAssistiveTechnology)
{
    for (const char* name : {"BtnCalcular", "BtnSig", "BtnDist", "UpDown1", "UpDown2", "Edit1",
                             "Edit2", "Graph", "log", "Panel1", "Panel2"})
        EXPECT_FALSE(in<QWidget>(*window, name).accessibleName().isEmpty()) << name;
}

/// With real clicks: all orders, error distributions and levels.
TEST_F(PowerWindow, RunsEverySetting)
{
    struct Choice {
        const char* entry;
        QString caption;
    };
    const Choice levels[] = {{"N901", QStringLiteral("Nivel de Significancia 90%")},
                             {"N951", QStringLiteral("Nivel de Significancia 95%")},
                             {"N981", QStringLiteral("Nivel de Significancia 98%")},
                             {"N991", QStringLiteral("Nivel de Significancia 99%")}};
    const double levelValues[] = {0.90, 0.95, 0.98, 0.99};
    const Choice kinds[] = {{"Uniforme1", QStringLiteral("Distribución Uniforme")},
                            {"Exponencial1", QStringLiteral("Distribución Exponencial")},
                            {"Triangular1", QStringLiteral("Distribución Triangular [0,1]")}};
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(&upDown("UpDown2"), Qt::Key_Down);
    QStringList expected{QString()};
    for (int order = 3; order <= 6; ++order) {
        for (std::size_t kind = 0; kind < std::size(kinds); ++kind) {
            choose(*window, "BtnDist", "MenuDist", kinds[kind].entry);
            EXPECT_EQ(button("BtnDist").text(), kinds[kind].caption);
            for (std::size_t level = 0; level < std::size(levels); ++level) {
                choose(*window, "BtnSig", "MenuSig", levels[level].entry);
                EXPECT_EQ(button("BtnSig").text(), levels[level].caption);
                expected += nextLog({order, 500, levelValues[level], static_cast<ErrorKind>(kind)});
                click(button("BtnCalcular"));
                ASSERT_EQ(log(), expected);
            }
        }
        QTest::keyClick(&upDown("UpDown1"), Qt::Key_Up);
    }
}

TEST_F(PowerWindow, TheFullViewOfTheEmptyChartIsTheOneItOpenedWith)
{
    const auto expectOpeningView = [this](const char* how) {
        EXPECT_EQ(graph().RangeLoX(), 0.0L) << how;
        EXPECT_EQ(graph().RangeHiX(), 1.0L) << how;
        EXPECT_EQ(graph().RangeLoY(), 0.0L) << how;
        EXPECT_EQ(graph().RangeHiY(), 1.0L) << how;
    };
    QTest::mouseDClick(&graph(), Qt::LeftButton, {}, graph().geometry().layout.plot.center());
    expectOpeningView("double click");
    QTest::keyClick(&graph(), Qt::Key_Plus);
    EXPECT_LT(graph().RangeHiX(), 1.0L);
    QTest::keyClick(&graph(), Qt::Key_Escape);
    expectOpeningView("one step back");
    QTest::keyClick(&graph(), Qt::Key_Escape);
    expectOpeningView("no step left");
    QTest::keyClick(&graph(), Qt::Key_Home);
    expectOpeningView("Home");
}

TEST_F(PowerWindow, DrawsFourCurvesOfTwentyOnePoints)
{
    click(button("BtnCalcular"));
    EXPECT_EQ(countOf(chart::ItemKind::Move), 4 * 21);
    EXPECT_EQ(countOf(chart::ItemKind::Line), 4 * 21);
    EXPECT_EQ(countOf(chart::ItemKind::Mark), 4 * 21);
    for (const chart::ChartItem& item : graph().items())
        ASSERT_EQ(item.attributes.lineWidth, 2);
    EXPECT_LT(graph().RangeLoX(), 0.0L);
    EXPECT_GT(graph().RangeHiX(), 1.0L);
    click(button("BtnCalcular"));
    EXPECT_EQ(countOf(chart::ItemKind::Mark), 4 * 21) << "each study starts afresh";
}

TEST_F(PowerWindow, TheGraphCanBeReadAlone)
{
    EXPECT_EQ(graph().IdAbscissa(), QStringLiteral("Diferencia"));
    choose(*window, "BtnDist", "MenuDist", "Triangular1");
    choose(*window, "BtnSig", "MenuSig", "N991");
    QTest::keyClick(&upDown("UpDown1"), Qt::Key_Up);
    QTest::keyClick(&upDown("UpDown2"), Qt::Key_Down);
    click(button("BtnCalcular"));
    const QString expected =
        QStringLiteral("Diferencia (tamaño 4, 900 ensayos, Nivel de Significancia 99%, "
                       "Distribución Triangular [0,1]). Rojo: C; azul: Bennett; verde: M; negro: "
                       "Zimmerman");
    EXPECT_EQ(graph().IdAbscissa(), expected);
    choose(*window, "BtnSig", "MenuSig", "N901");
    EXPECT_EQ(graph().IdAbscissa(), expected) << "until it is calculated again";
    EXPECT_EQ(graph().Caption(), QStringLiteral("Potencias"));
    for (const int width : {window->minimumSizeHint().width(), window->width()}) {
        window->resize(width, window->height());
        QCoreApplication::processEvents();
        const chart::ChartLayout& layout = graph().geometry().layout;
        EXPECT_FALSE(layout.abscissa.isNull());
        for (const QString& line : layout.abscissaLines)
            EXPECT_LE(QFontMetrics(graph().geometry().font).horizontalAdvance(line),
                      layout.abscissa.width());
        EXPECT_EQ(layout.abscissaLines.join(QLatin1Char(' ')), expected);
    }
    EXPECT_TRUE(graph().description().contains(expected));
    EXPECT_TRUE(graph().description().contains(QStringLiteral("Puntos: 84.\n")));
    EXPECT_EQ(graph().description().count(QStringLiteral("\nPrueba de Bennett:\n")), 1);
}

TEST_F(PowerWindow, SettingsComeFromArrowsOnly)
{
    const auto type = [this] {
        for (const auto& [name, text] : {std::pair("Edit1", "5"), {"Edit2", "700"}}) {
            edit(name).selectAll();
            QTest::keyClicks(&edit(name), QString::fromUtf8(text));
        }
    };
    type();
    const QStringList expected = QStringList{QString()} + nextLog({3, 1000, 0.95});
    click(button("BtnCalcular"));
    EXPECT_EQ(log(), expected);

    type();
    QTest::keyClick(&upDown("UpDown1"), Qt::Key_Up); // from the 5 that stands there
    EXPECT_EQ(upDown("UpDown1").Position(), 6);
    QTest::keyClick(&upDown("UpDown2"), Qt::Key_Down);
    EXPECT_EQ(upDown("UpDown2").Position(), 600);
    const QStringList next = expected + nextLog({6, 600, 0.95});
    click(button("BtnCalcular"));
    EXPECT_EQ(log(), next);
}

TEST_F(PowerWindow, WhatWasTypedInVainIsSetBackAndTheStatusLineSaysSo)
{
    QSignalSpy status(window.get(), &TPotencia::statusText);
    const auto lastStatus = [&] { return status.last().at(0).toString(); };
    QApplication::setActiveWindow(window.get());
    for (const char* const typed : {"5", ""}) { // a size of its own, and none
        edit("Edit1").setFocus();
        edit("Edit1").selectAll();
        QTest::keyClick(&edit("Edit1"), Qt::Key_Delete);
        QTest::keyClicks(&edit("Edit1"), QString::fromUtf8(typed));
        status.clear();
        QTest::keyClick(&edit("Edit1"), Qt::Key_F9); // which leaves the edit as it is
        ASSERT_TRUE(QTest::qWaitFor([&] { return !status.isEmpty(); }));
        EXPECT_EQ(edit("Edit1").text(), QStringLiteral("3"));
        EXPECT_EQ(lastStatus(),
                  QStringLiteral("Calculado con tamaño 3 y 1000 ensayos: un número escrito solo "
                                 "cuenta cuando después se pulsa una flecha."));
    }
    edit("Edit2").selectAll();
    QTest::keyClicks(&edit("Edit2"), QStringLiteral("1200"));
    edit("Edit1").setFocus(); // which rewrites what was typed
    click(button("BtnCalcular"));
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("1.000"));
    EXPECT_TRUE(lastStatus().startsWith(QStringLiteral("Calculado con tamaño 3 y 1000")));

    edit("Edit2").selectAll();
    QTest::keyClicks(&edit("Edit2"), QStringLiteral("1000")); // what counts anyway
    click(button("BtnCalcular"));
    EXPECT_EQ(lastStatus(), QStringLiteral("Listo."));
}

/// As a screen reader or a voice sets them: by value, and by text.
TEST_F(PowerWindow, AssistiveTechnologySetsTheNumbersAsAClickDoes)
{
    const auto interfaceOf = [this](const char* name) {
        return QAccessible::queryAccessibleInterface(&upDown(name));
    };
    interfaceOf("UpDown1")->valueInterface()->setCurrentValue(4);
    EXPECT_EQ(upDown("UpDown1").Position(), 4);
    QAccessibleInterface* const trials = interfaceOf("UpDown2");
    trials->editableTextInterface()->replaceText(0, trials->textInterface()->characterCount(),
                                                 QStringLiteral("500"));
    EXPECT_EQ(upDown("UpDown2").Position(), 500);
    QAccessible::queryAccessibleInterface(&edit("Edit1"))
        ->setText(QAccessible::Value, QStringLiteral("5"));
    EXPECT_EQ(upDown("UpDown1").Position(), 5);
    const QStringList expected = QStringList{QString()} + nextLog({5, 500, 0.95});
    click(button("BtnCalcular"));
    EXPECT_EQ(log(), expected);
}

TEST_F(PowerWindow, AfterAClickTheTrialsHaveNoMarkThatCouldBeADecimalSign)
{
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("1.000"));
    edit("Edit2").setFocus();
    button("BtnCalcular").setFocus();
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("1.000")) << "nobody clicked";
    for (const char* const shown : {"1100", "1200"}) {
        QTest::keyClick(&upDown("UpDown2"), Qt::Key_Up);
        EXPECT_EQ(edit("Edit2").text(), QString::fromUtf8(shown));
    }
    QTest::keyClick(&upDown("UpDown2"), Qt::Key_Down);
    QTest::keyClick(&upDown("UpDown2"), Qt::Key_Down);
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("1000"));
}

TEST_F(PowerWindow, EveryStepIsOneClick)
{
    QSignalSpy clicks(&upDown("UpDown1"), &controls::UpDown::Click);
    for (int i = 1; i <= 5; ++i) {
        QTest::keyClick(&upDown("UpDown1"), Qt::Key_Up); // the last two at the limit
        EXPECT_EQ(clicks.size(), i);
    }
}

TEST_F(PowerWindow, ArrowsStopAtTheirLimits)
{
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(&upDown("UpDown1"), Qt::Key_Up);
    EXPECT_EQ(edit("Edit1").text(), QStringLiteral("6"));
    for (int i = 0; i < 60; ++i)
        QTest::keyClick(&upDown("UpDown2"), Qt::Key_Up);
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("5000"));
    for (int i = 0; i < 60; ++i)
        QTest::keyClick(&upDown("UpDown2"), Qt::Key_Down);
    EXPECT_EQ(edit("Edit2").text(), QStringLiteral("500"));
    edit("Edit1").selectAll();
    QTest::keyClicks(&edit("Edit1"), QStringLiteral("9x"));
    QTest::keyClick(&upDown("UpDown1"), Qt::Key_Up);
    EXPECT_LE(upDown("UpDown1").Position(), 6);
}

TEST_F(PowerWindow, PopupsStandWhereTheSumsSay)
{
    window->move(12, 21);
    const QRect area = window->screen()->availableGeometry();
    for (const auto& [name, menu] : {std::pair("BtnSig", "MenuSig"), {"BtnDist", "MenuDist"}}) {
        const QPushButton& opener = button(name);
        click(button(name));
        const int sum = window->x() + opener.x() + 10;
        // The test's screen is hardly wider than the window.
        EXPECT_EQ(popup(menu).x(), std::min(sum, area.right() + 1 - popup(menu).width()));
        EXPECT_EQ(popup(menu).y(), window->y() + opener.y() + opener.height() + 90);
        popup(menu).close();
    }
}

TEST_F(PowerWindow, PopupsStayOnTheScreen)
{
    const QRect area = window->screen()->availableGeometry();
    window->move(area.right() - 40, area.bottom() - 40);
    button("BtnSig").click();
    EXPECT_TRUE(area.contains(popup("MenuSig").geometry()));
    EXPECT_EQ(popup("MenuSig").geometry().bottomRight(), area.bottomRight());
    popup("MenuSig").close();
}

TEST_F(PowerWindow, InAFrameThePopupsCountFromTheChildsFrame)
{
    QMdiArea area;
    area.resize(1000, 700);
    auto* child = new TPotencia(dialogs);
    QMdiSubWindow* frame = area.addSubWindow(child);
    area.show();
    frame->move(15, 25);
    const auto& opener = in<QPushButton>(*child, "BtnSig");
    auto& menu = in<QMenu>(*child, "MenuSig");
    for (const QPoint& corner : {QPoint(0, 0), QPoint(-120, 40)}) {
        area.move(corner);
        in<QPushButton>(*child, "BtnSig").click();
        EXPECT_EQ(menu.pos(),
                  corner + QPoint(15 + opener.x() + 10, 25 + opener.y() + opener.height() + 90));
        menu.close();
    }
}

TEST_F(PowerWindow, SavesTheLogWithItsEmptyFirstLine)
{
    QTemporaryDir folder;
    click(button("BtnCalcular"));
    dialogs.saveAnswers = {folder.filePath(QStringLiteral("r.txt")), std::nullopt};
    window->menu()->actions().at(1)->trigger();
    ASSERT_EQ(dialogs.saveRequests.size(), 1U);
    EXPECT_EQ(dialogs.saveRequests[0].title, QStringLiteral("Guardar Reporte"));
    EXPECT_EQ(dialogs.saveRequests[0].fileName, QStringLiteral("reporte.txt"));
    EXPECT_EQ(dialogs.saveRequests[0].suffix, QStringLiteral("txt"));
    EXPECT_EQ(dialogs.saveRequests[0].filter, QStringLiteral("Texto|*.txt"));
    EXPECT_TRUE(dialogs.saveRequests[0].confirmOverwrite);
    QFile file(folder.filePath(QStringLiteral("r.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_EQ(QString::fromUtf8(bytes),
              log().join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"));
    EXPECT_TRUE(bytes.startsWith("\r\nIniciado an\xc3\xa1lisis de potencia"));
    window->GuardarReporte1Click(); // cancelled
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(PowerWindow, SavesTheGraph)
{
    QTemporaryDir folder;
    window->setPalette(QPalette(QColor(45, 45, 45))); // of a dark desktop
    click(button("BtnCalcular"));
    dialogs.saveAnswers = {folder.filePath(QStringLiteral("p.bmp")), std::nullopt};
    window->menu()->actions().at(0)->trigger();
    ASSERT_EQ(dialogs.saveRequests.size(), 1U);
    EXPECT_EQ(dialogs.saveRequests[0].title, QStringLiteral("Guardar Gráfica de Potencia"));
    EXPECT_EQ(dialogs.saveRequests[0].fileName, QStringLiteral("grafica potencia.bmp"));
    EXPECT_EQ(dialogs.saveRequests[0].suffix, QStringLiteral("bmp"));
    EXPECT_EQ(dialogs.saveRequests[0].filter, QStringLiteral("Mapa de bits (BMP)|*.bmp"));
    const QImage saved(folder.filePath(QStringLiteral("p.bmp")));
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), graph().picture(true));
    EXPECT_EQ(saved.pixelColor(0, 0), QColor(Qt::white));
    window->GuardarGrafica1Click(); // cancelled
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(PowerWindow, AFailedSaveNamesFileAndReason)
{
    const QString nowhere = QStringLiteral("/nonexistent/folder/x.txt");
    dialogs.saveAnswers = {nowhere, std::nullopt, QStringLiteral("/nonexistent/folder/x"),
                           std::nullopt};
    window->GuardarReporte1Click();
    window->GuardarGrafica1Click();
    ASSERT_EQ(dialogs.saveRequests.size(), 4U); // each comes back with the name
    EXPECT_EQ(dialogs.saveRequests[1].fileName, nowhere);
    EXPECT_EQ(dialogs.saveRequests[3].fileName, QStringLiteral("/nonexistent/folder/x"));
    ASSERT_EQ(dialogs.errors.size(), 2U);
    EXPECT_TRUE(dialogs.errors[0].text.contains(nowhere));
    EXPECT_TRUE(dialogs.errors[1].text.contains(QStringLiteral("x.bmp")));

    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("r.txt"));
    QFile old(name);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    click(button("BtnCalcular"));
    dialogs.saveAnswers = {name, std::nullopt};
    {
        const FileSizeLimit full(100);
        window->GuardarReporte1Click();
    }
    EXPECT_EQ(dialogs.errors.size(), 3U);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), QByteArray("old"));
}

TEST_F(PowerWindow, TwoWindowsKeepTheirOwnSettings)
{
    TPotencia other(dialogs);
    other.setAttribute(Qt::WA_DeleteOnClose, false);
    other.show();
    choose(other, "BtnDist", "MenuDist", "Triangular1");
    QTest::keyClick(&in<controls::UpDown>(other, "UpDown1"), Qt::Key_Up);

    const QStringList ofFirst = QStringList{QString()} + nextLog({3, 1000, 0.95});
    click(button("BtnCalcular"));
    const QStringList ofOther =
        QStringList{QString()} + nextLog({4, 1000, 0.95, ErrorKind::Triangular});
    click(in<QPushButton>(other, "BtnCalcular"));
    EXPECT_EQ(log(), ofFirst);
    EXPECT_EQ(logOf(other), ofOther);
    EXPECT_EQ(button("BtnDist").text(), QStringLiteral("Distribución Uniforme"));
}

TEST_F(PowerWindow, ClosingFreesIt)
{
    QPointer<TPotencia> doomed = new TPotencia(dialogs);
    doomed->show();
    doomed->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(doomed);
}

} // namespace power
