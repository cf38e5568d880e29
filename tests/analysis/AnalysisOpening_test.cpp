// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/AnalysisFixture.h"
#include "square/file/LoadedSquare.h"

#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollArea>
#include <QSplitter>
#include <QToolBar>

namespace {

class AnalysisOpening : public AnalysisFixture {
protected:
    /// No square: an empty 3 x 3 grid under the plain caption.
    void expectEmptyWindow() const
    {
        EXPECT_EQ(window->windowTitle(), QStringLiteral("Análisis"));
        EXPECT_EQ(datos().NrOfColumns(), 3);
        EXPECT_EQ(datos().NrOfRows(), 3);
        for (int row = 1; row <= 3; ++row)
            for (int column = 1; column <= 3; ++column)
                EXPECT_EQ(datos().value(column, row), 0.0);
        EXPECT_EQ(datos().columnName(1), QStringLiteral("C-1"));
        EXPECT_EQ(report().toPlainText(), QStringLiteral("REPORTE SIN GENERAR"));
    }

    void expectOneBadFileBox(const QString& more = {}) const
    {
        ASSERT_EQ(dialogs.errors.size(), 1U);
        EXPECT_EQ(dialogs.errors[0].text,
                  QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.") + more);
        EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Abrir Archivo"));
    }
};

const QByteArray badObservation = "Prueba\r\n3\r\n3\r\nFALSE FALSE FALSE\r\n"
                                  "1 2 3\r\n4 5 6\r\n7 8 nueve\r\n";

} // namespace

TEST_F(AnalysisOpening, ShowsEveryComponentAsItStandsAtFirst)
{
    openFile(std::nullopt);
    show();
    EXPECT_EQ(window->objectName(), QStringLiteral("Analisis"));
    EXPECT_EQ(window->size(), QSize(808, 580));
    EXPECT_EQ(window->sizeHint(), QSize(808, 580));
    expectEmptyWindow();

    EXPECT_EQ(find<QToolBar>("ToolBar1")->height(), 33);
    const auto* analyse = find<QToolButton>("SpeedButton1");
    EXPECT_EQ(analyse->text(), QStringLiteral("Analizar"));
    EXPECT_EQ(analyse->height(), 25);
    EXPECT_TRUE(analyse->autoRaise());
    EXPECT_FALSE(analyse->icon().isNull());
    EXPECT_TRUE(analyse->isEnabled());
    EXPECT_EQ(ve().text(), QStringLiteral("Ver exacta..."));
    EXPECT_EQ(ve().size(), QSize(96, 25));
    EXPECT_TRUE(ve().autoRaise());
    EXPECT_FALSE(ve().isEnabled());

    EXPECT_EQ(find<QLabel>("Label1")->text(), QStringLiteral("DATOS A ANALIZAR"));
    EXPECT_TRUE(find<QScrollArea>("ScrollBox1")->isAncestorOf(&datos()));
    EXPECT_TRUE(datos().AutoAdvance());
    EXPECT_TRUE(datos().editingAllowed());
    EXPECT_FALSE(datos().readOnly());
    EXPECT_EQ(datos().columnWidth(0), 64);
    EXPECT_EQ(datos().rowHeight(0), 24);

    const auto* options = find<QGroupBox>("GroupBox1");
    EXPECT_EQ(options->title(), QStringLiteral("Opciones"));
    EXPECT_GE(options->width(), 198);
    EXPECT_GT(options->mapTo(window, QPoint()).x(), datos().mapTo(window, QPoint()).x());
    EXPECT_EQ(approaches().title(), QStringLiteral("Enfoque"));
    EXPECT_EQ(approaches().items(),
              QStringList({QStringLiteral("Clásico"), QStringLiteral("Rangos"),
                           QStringLiteral("Secuencias")}));
    EXPECT_EQ(approaches().itemIndex(), 0);
    EXPECT_EQ(tests().title(), QStringLiteral("Prueba"));
    EXPECT_EQ(tests().items(), QStringList(QStringLiteral("Prueba F")));
    EXPECT_EQ(tests().itemIndex(), 0);
    EXPECT_EQ(find<QLabel>("LabelConf")->text(), QStringLiteral("Nivel de Significancia: 95%"));
    EXPECT_EQ(level().minimum(), 1);
    EXPECT_EQ(level().maximum(), 99);
    EXPECT_EQ(level().value(), 95);
    EXPECT_EQ(level().orientation(), Qt::Horizontal);
    EXPECT_EQ(window->Alpha(), 0.05);

    EXPECT_EQ(find<QSplitter>("Splitter1")->handleWidth(), 8);
}

TEST_F(AnalysisOpening, TheOptionsAreWiderOnlyForLargerLetters)
{
    const QFont before = QApplication::font();
    QFont small = before;
    small.setPixelSize(9);
    QApplication::setFont(small);
    openFile(std::nullopt);
    show();
    EXPECT_EQ(find<QGroupBox>("GroupBox1")->width(), 198);
    QApplication::setFont(before);
}

TEST_F(AnalysisOpening, TheReportIsAReadOnlyAreaOfFixedPitch)
{
    openFile(std::nullopt);
    show();
    EXPECT_EQ(report().font().family(), QStringLiteral("Courier New"));
    EXPECT_EQ(report().font().pixelSize(), 12);
    EXPECT_TRUE(QFontInfo(report().font()).fixedPitch());
    EXPECT_EQ(report().lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_TRUE(report().horizontalScrollBar()->isVisible());
    EXPECT_TRUE(report().verticalScrollBar()->isVisible());

    EXPECT_TRUE(report().isReadOnly());
    QTest::keyClicks(&report(), QStringLiteral("x"));
    QTest::keyClick(&report(), Qt::Key_Delete);
    EXPECT_EQ(report().toPlainText(), QStringLiteral("REPORTE SIN GENERAR"));
    report().setFocus();
    QTest::keyClick(&report(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(report().textCursor().selectedText(), QStringLiteral("REPORTE SIN GENERAR"));
}

TEST_F(AnalysisOpening, TheMenuExports)
{
    openFile(std::nullopt);
    ASSERT_NE(window->menu(), nullptr);
    EXPECT_EQ(window->menu()->title(), QStringLiteral("Aná&lisis"));
    EXPECT_EQ(window->menu()->objectName(), QStringLiteral("Anlisis1"));
    ASSERT_EQ(window->menu()->actions().size(), 1);
    const QAction* action = window->menu()->actions().constFirst();
    EXPECT_EQ(action->objectName(), QStringLiteral("Exportar1"));
    EXPECT_EQ(action->text(), QStringLiteral("&Exportar..."));
    EXPECT_EQ(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
}

TEST_F(AnalysisOpening, EveryWidgetThatTheFormMakesHasANameForPeopleAndForTests)
{
    openFile(std::nullopt);
    choose(approaches(), sequences);
    for (const char* name : {"ToolBar1", "SpeedButton1", "ve", "ScrollBox1", "Label1", "Datos",
                             "GroupBox1", "RadioGroup1", "RadioGroup1Item0", "RadioGroup1Item1",
                             "RadioGroup1Item2", "RadioGroup2", "RadioGroup2Item0",
                             "RadioGroup2Item1", "LabelConf", "ScrollBar1", "Splitter1", "Reporte"})
        EXPECT_FALSE(find<QWidget>(name)->accessibleName().isEmpty()) << name;
}

TEST_F(AnalysisOpening, AsksForAFileAndLoadsIt)
{
    openSquare(orderThree);
    ASSERT_EQ(dialogs.openRequests.size(), 1U);
    EXPECT_EQ(dialogs.openRequests[0].suffix, QStringLiteral("asc"));
    EXPECT_EQ(dialogs.openRequests[0].filter, QStringLiteral("ASCII|*.asc"));
    EXPECT_TRUE(handOff.fileOpened);
    EXPECT_TRUE(dialogs.errors.empty());
    EXPECT_EQ(window->windowTitle(),
              QStringLiteral("Análisis - ") + path(QStringLiteral("datos.asc")));
    EXPECT_EQ(datos().columnName(2), QStringLiteral("Col 2"));
    EXPECT_EQ(datos().rowName(3), QStringLiteral("Fila 3"));
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 3; ++column)
            EXPECT_EQ(datos().value(column, row), orderThree[static_cast<std::size_t>(row - 1)]
                                                            [static_cast<std::size_t>(column - 1)]);
    for (int column = 1; column <= 3; ++column)
        EXPECT_EQ(datos().precision(column), 3);
    EXPECT_EQ(report().toPlainText(), QStringLiteral("REPORTE SIN GENERAR"));
}

TEST_F(AnalysisOpening, TheGridTakesTheSizeOfTheFile)
{
    openSquare({{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}});
    EXPECT_EQ(datos().NrOfColumns(), 4);
    EXPECT_EQ(datos().NrOfRows(), 3);
    EXPECT_EQ(datos().value(4, 3), 12.0);
    window->FormActivate();
    EXPECT_EQ(statusTexts.last(), square::shapeNotice(4, 3));
    openSquare({{42}});
    EXPECT_EQ(datos().NrOfColumns(), 1);
    EXPECT_EQ(datos().NrOfRows(), 1);
    window->FormActivate();
    EXPECT_TRUE(statusTexts.last().startsWith(QStringLiteral("Seleccione las opciones")));
}

TEST_F(AnalysisOpening, AFileNameWithAMarkOfCaptionsIsShownWhole)
{
    writeBytes(QStringLiteral("a[*].asc"), squareFile(orderThree));
    openFile(path(QStringLiteral("a[*].asc")));
    show();
    // The text that reaches the window system.
    EXPECT_EQ(window->windowHandle()->title().section(QLatin1Char('/'), -1),
              QStringLiteral("a[*].asc"));
}

TEST_F(AnalysisOpening, ACancelledDialogLeavesTheEmptyWindow)
{
    handOff.fileOpened = true;
    openFile(std::nullopt);
    EXPECT_FALSE(handOff.fileOpened);
    EXPECT_TRUE(dialogs.errors.empty());
    expectEmptyWindow();
}

TEST_F(AnalysisOpening, ABadFileIsRefusedWithOneBox)
{
    for (const QByteArray& bytes : {QByteArray("no es un cuadrado"), QByteArray(),
                                    squareFile(orderThree).replace("\r\n", "\n")}) {
        dialogs.errors.clear();
        handOff.fileOpened = true;
        writeBytes(QStringLiteral("mal.asc"), bytes);
        openFile(path(QStringLiteral("mal.asc")));
        EXPECT_FALSE(handOff.fileOpened);
        expectOneBadFileBox();
        expectEmptyWindow();
    }
}

TEST_F(AnalysisOpening, AFileWithAnObservationThatIsNoneNamesItInTheBox)
{
    writeBytes(QStringLiteral("mal.asc"), badObservation);
    openFile(path(QStringLiteral("mal.asc")));
    EXPECT_FALSE(handOff.fileOpened);
    expectOneBadFileBox(
        QStringLiteral("\n«nueve» no es un número: fila «R-3», columna «C-3». Sin ese dato no se "
                       "puede analizar el cuadrado: vea «Datos que faltan» en el manual (F1)."));
    expectEmptyWindow();
}

TEST_F(AnalysisOpening, CountsThatNoGridTakesAreRefusedWithTheirReason)
{
    writeBytes(QStringLiteral("mal.asc"), "Prueba\r\n0\r\n3\r\nFALSE FALSE FALSE\r\n");
    openFile(path(QStringLiteral("mal.asc")));
    EXPECT_FALSE(handOff.fileOpened);
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_FALSE(dialogs.errors[0].text.isEmpty());
    EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Abrir Archivo"));
    expectEmptyWindow();
}

TEST_F(AnalysisOpening, APendingFileIsLoadedWithoutAQuestion)
{
    writeBytes(QStringLiteral("datos.asc"), squareFile(propellantRows));
    handOff.pendingFileName = path(QStringLiteral("datos.asc"));
    create();
    EXPECT_TRUE(dialogs.openRequests.empty());
    EXPECT_TRUE(handOff.pendingFileName.isEmpty());
    EXPECT_TRUE(handOff.fileOpened);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Análisis"));
    EXPECT_EQ(datos().NrOfColumns(), 5);
    EXPECT_EQ(datos().NrOfRows(), 5);
    EXPECT_EQ(datos().value(2, 3), 38.0);
    EXPECT_EQ(datos().precision(5), 3);

    // The next window asks again.
    openFile(std::nullopt);
    EXPECT_EQ(dialogs.openRequests.size(), 1U);
}

TEST_F(AnalysisOpening, APendingFileThatVanishedIsReported)
{
    handOff.pendingFileName = path(QStringLiteral("nada.asc"));
    create();
    EXPECT_TRUE(dialogs.openRequests.empty());
    EXPECT_TRUE(handOff.pendingFileName.isEmpty());
    EXPECT_FALSE(handOff.fileOpened);
    expectOneBadFileBox();
    expectEmptyWindow();
}

TEST_F(AnalysisOpening, WritesTheStatusLineAsItComesAndGoes)
{
    openSquare(orderThree);
    window->FormActivate();
    window->FormDeactivate();
    EXPECT_EQ(
        statusTexts,
        QStringList({QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'"),
                     QStringLiteral("Listo.")}));
}

TEST_F(AnalysisOpening, ClosingAsksNothingAndEndsTheWindow)
{
    openSquare(orderThree);
    show();
    datos().setValue(1, 1, 99);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(statusTexts, QStringList(QStringLiteral("Listo.")));
    EXPECT_TRUE(dialogs.questions.empty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(AnalysisOpening, ClosingItsPlaceInTheFrameEndsTheWindow)
{
    openSquare(orderThree);
    QMdiArea area;
    QMdiSubWindow* place = area.addSubWindow(window);
    EXPECT_EQ(place->windowTitle(), window->windowTitle());
    area.show();
    EXPECT_TRUE(place->close());
    EXPECT_EQ(statusTexts, QStringList(QStringLiteral("Listo.")));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(area.subWindowList().isEmpty());
}

TEST_F(AnalysisOpening, SeveralWindowsLiveSideBySide)
{
    openSquare(orderThree);
    dialogs.openAnswers.emplace_back(std::nullopt);
    const analysis::TAnalisis other(handOff, dialogs);
    level().setValue(90);
    EXPECT_EQ(window->Alpha(), 0.1);
    EXPECT_EQ(other.Alpha(), 0.05);
}
