// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PrincipalFixture.h"

#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace {

const QString editorStatus = QStringLiteral("Puede manejar archivos de datos para el análisis "
                                            "aquí. Para analizar los datos actuales use la "
                                            "opción 'Guardar y Analizar'");
const QString analysisStatus =
    QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'");

} // namespace

TEST_F(Principal, BarHasItsMenusEntriesAndShortcuts)
{
    EXPECT_EQ(frame.windowTitle(), QStringLiteral("Cuadrado Latino"));
    EXPECT_EQ(bar(), QStringList({QStringLiteral("&Archivo"), QStringLiteral("&Ventana"),
                                  QStringLiteral("A&yuda")}));
    const std::pair<QStringList, QKeySequence> entries[] = {
        {{QStringLiteral("&Archivo"), QStringLiteral("&Nuevo"),
          QStringLiteral("Análisis de &Datos...")},
         {}},
        {{QStringLiteral("&Archivo"), QStringLiteral("&Nuevo"),
          QStringLiteral("&Cálculo de Potencia...")},
         {}},
        {{QStringLiteral("&Archivo"), QStringLiteral("&Editor"), QStringLiteral("&Nuevo Archivo")},
         Qt::CTRL | Qt::Key_N},
        {{QStringLiteral("&Archivo"), QStringLiteral("&Editor"),
          QStringLiteral("&Abrir Archivo...")},
         Qt::CTRL | Qt::Key_A},
        {{QStringLiteral("&Archivo"), QStringLiteral("Salir")}, Qt::ALT | Qt::Key_F4},
        {{QStringLiteral("&Ventana"), QStringLiteral("&Cascada")}, Qt::SHIFT | Qt::Key_F4},
        {{QStringLiteral("&Ventana"), QStringLiteral("&Mosaico")}, Qt::SHIFT | Qt::Key_F5},
        {{QStringLiteral("A&yuda"), QStringLiteral("Acerca de...")}, {}},
    };
    for (const auto& [path, shortcut] : entries) {
        const QAction* action = entry(path);
        ASSERT_NE(action, nullptr) << path.join(QLatin1Char('>')).toStdString();
        EXPECT_EQ(action->shortcut(), shortcut) << action->text().toStdString();
    }
    EXPECT_EQ(status(), QStringLiteral("Listo."));
}

TEST_F(Principal, ToolBarButtonsDoWhatTheMenusDo)
{
    const auto* button = frame.findChild<QToolButton*>(QStringLiteral("SpeedButton1"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("Nuevo Editor"));
    QTest::mouseClick(const_cast<QToolButton*>(button), Qt::LeftButton);
    EXPECT_EQ(children().size(), 1);

    auto* analysis = frame.findChild<QToolButton*>(QStringLiteral("SpeedButton2"));
    EXPECT_EQ(analysis->text(), QStringLiteral("Nuevo Análisis"));
    dialogs.openAnswers.push_back(sample("orden3.asc"));
    QTest::mouseClick(analysis, Qt::LeftButton);
    ASSERT_EQ(children().size(), 2);
    EXPECT_TRUE(area().activeSubWindow()->isMaximized());

    auto* power = frame.findChild<QToolButton*>(QStringLiteral("SpeedButton3"));
    EXPECT_EQ(power->text(), QStringLiteral("Nueva Potencia"));
    QTest::mouseClick(power, Qt::LeftButton);
    ASSERT_EQ(children().size(), 3);
    EXPECT_EQ(area().activeSubWindow()->widget()->windowTitle(), QStringLiteral("Potencia"));
    EXPECT_EQ(bar().at(1), QStringLiteral("&Potencia"));
}

TEST_F(Principal, GraphOutlivesTheAnalysisThatOpenedIt)
{
    dialogs.openAnswers.push_back(sample("orden3.asc"));
    frame.AnlisisdeDatos1Click();
    QWidget* analysis = children().constFirst()->widget();
    analysis->findChild<QRadioButton*>(QStringLiteral("RadioGroup1Item2"))->click();
    analysis->findChild<QToolButton*>(QStringLiteral("SpeedButton1"))->click();
    analysis->findChild<QToolButton*>(QStringLiteral("ve"))->click();
    ASSERT_EQ(children().size(), 2);
    EXPECT_EQ(bar().at(1), QStringLiteral("&Gráfica"));

    children().constFirst()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(children().size(), 1);
    EXPECT_EQ(children().constFirst()->widget()->windowTitle(),
              QStringLiteral("Distribución exacta de C para cuadrados de 3x3"));
}

TEST_F(Principal, ChildMenuStandsBetweenArchivoAndVentanaWhileTheChildIsActive)
{
    frame.NuevoArchivo1Click();
    EXPECT_EQ(bar(), QStringList({QStringLiteral("&Archivo"), QStringLiteral("E&ditor"),
                                  QStringLiteral("&Ventana"), QStringLiteral("A&yuda")}));
    EXPECT_EQ(status(), editorStatus);

    dialogs.openAnswers.push_back(sample("propelente.asc"));
    frame.AnlisisdeDatos1Click();
    EXPECT_EQ(bar(), QStringList({QStringLiteral("&Archivo"), QStringLiteral("Aná&lisis"),
                                  QStringLiteral("&Ventana"), QStringLiteral("A&yuda")}));
    EXPECT_EQ(status(), analysisStatus);

    area().activeSubWindow()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(bar().at(1), QStringLiteral("E&ditor"));
    EXPECT_EQ(status(), editorStatus);

    closeUnsaved(children().constFirst());
    EXPECT_EQ(bar().size(), 3);
    EXPECT_EQ(status(), QStringLiteral("Listo")); // the editor's last word has no full stop
}

TEST_F(Principal, CancelledOrBadFilesLeaveNoWindow)
{
    dialogs.openAnswers = {std::nullopt, sample("LEEME.md"), std::nullopt, sample("LEEME.md")};
    frame.AbrirArchivo1Click();
    frame.AbrirArchivo1Click();
    frame.AnlisisdeDatos1Click();
    frame.AnlisisdeDatos1Click();
    EXPECT_TRUE(children().isEmpty());
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_EQ(dialogs.errors.size(), 2U);

    frame.NuevoArchivo1Click(); // the request to open a file was cleared
    EXPECT_EQ(children().size(), 1);
    EXPECT_EQ(dialogs.openRequests.size(), 4U);
}

TEST_F(Principal, SaveAndAnalyseReplacesTheEditorByAnAnalysis)
{
    const QString copy = folder.filePath(QStringLiteral("p.asc"));
    ASSERT_TRUE(QFile::copy(sample("propelente.asc"), copy));
    dialogs.openAnswers.push_back(copy);
    frame.AbrirArchivo1Click();
    EXPECT_EQ(children().constFirst()->widget()->windowTitle(), QStringLiteral("Editor - ") + copy);

    entry({QStringLiteral("E&ditor"), QStringLiteral("Guardar y &Analizar...")})->trigger();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(children().size(), 1);
    EXPECT_EQ(children().constFirst()->widget()->windowTitle(), QStringLiteral("Análisis"));
    EXPECT_TRUE(children().constFirst()->isMaximized());
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_EQ(status(), analysisStatus);
}

TEST_F(Principal, WindowMenuListsTheChildrenAndActivatesTheChosenOne)
{
    frame.NuevoArchivo1Click();
    openSample("orden3.asc");
    QMenu* menu = entry({QStringLiteral("&Ventana")})->menu();
    emit menu->aboutToShow();
    QList<QAction*> entries = menu->actions();
    ASSERT_EQ(entries.size(), 5);
    EXPECT_TRUE(entries.at(2)->isSeparator());
    EXPECT_EQ(entries.at(3)->text(), QStringLiteral("&1 Editor"));
    EXPECT_EQ(entries.at(4)->text(), QStringLiteral("&2 Editor - ") + sample("orden3.asc"));
    EXPECT_FALSE(entries.at(3)->isChecked());
    EXPECT_TRUE(entries.at(4)->isChecked());

    entries.at(3)->trigger();
    EXPECT_EQ(area().activeSubWindow(), children().at(0));
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().size(), 5);
    EXPECT_TRUE(menu->actions().at(3)->isChecked());

    closeUnsaved(children().at(0));
    area().closeAllSubWindows();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().size(), 2);
}

TEST_F(Principal, WindowMenuShowsEveryCharacterOfAFileName)
{
    const QString name = folder.filePath(QStringLiteral("[*] a&b\t100%.asc"));
    ASSERT_TRUE(QFile::copy(sample("orden3.asc"), name));
    dialogs.openAnswers.push_back(name);
    frame.AbrirArchivo1Click();
    QMenu* menu = entry({QStringLiteral("&Ventana")})->menu();
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().last()->text().section(QLatin1Char('/'), -1),
              QStringLiteral("[*] a&&b 100%.asc")); // a tab would begin the column of the keys
}

TEST_F(Principal, CascadeAndTileLayOutTheChildren)
{
    frame.NuevoArchivo1Click();
    frame.NuevoArchivo1Click();
    entry({QStringLiteral("&Ventana"), QStringLiteral("&Mosaico")})->trigger();
    const QRect first = children().at(0)->geometry();
    const QRect second = children().at(1)->geometry();
    EXPECT_FALSE(first.intersects(second));
    entry({QStringLiteral("&Ventana"), QStringLiteral("&Cascada")})->trigger();
    EXPECT_TRUE(children().at(0)->geometry().intersects(children().at(1)->geometry()));
}

TEST_F(Principal, EveryEntryOfEveryBarHasATipAndEveryShortcutIsUnique)
{
    frame.NuevoArchivo1Click();
    frame.ClculodePotencia1Click();
    dialogs.openAnswers.push_back(sample("orden3.asc"));
    frame.AnlisisdeDatos1Click();
    QWidget* analysis = area().activeSubWindow()->widget();
    analysis->findChild<QRadioButton*>(QStringLiteral("RadioGroup1Item2"))->click();
    analysis->findChild<QToolButton*>(QStringLiteral("SpeedButton1"))->click();
    analysis->findChild<QToolButton*>(QStringLiteral("ve"))->click();

    QSet<QString> bars;
    for (QMdiSubWindow* child : children()) {
        area().setActiveSubWindow(child);
        bars << this->bar().join(QLatin1Char('|'));
        QSet<QKeySequence> shortcuts;
        for (QAction* menu : frame.menuBar()->actions()) {
            for (const QAction* action : entriesBelow(*menu->menu())) {
                EXPECT_FALSE(action->statusTip().isEmpty()) << action->text().toStdString();
                if (action->shortcut().isEmpty())
                    continue;
                EXPECT_FALSE(shortcuts.contains(action->shortcut()))
                    << action->shortcut().toString().toStdString();
                shortcuts << action->shortcut();
            }
        }
    }
    EXPECT_EQ(bars.size(), 4);
}

TEST_F(Principal, TipOfAMenuEntryGivesWayToTheLastingText)
{
    frame.NuevoArchivo1Click();
    auto* tip = frame.findChild<QLabel*>(QStringLiteral("StatusTip"));
    QMenu* menu = entry({QStringLiteral("E&ditor")})->menu();
    QTest::keyClick(&frame, Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(menu->isVisible());
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), QStringLiteral("Trae a este editor un cuadrado guardado"));
    QTest::keyClick(menu, Qt::Key_Down);
    EXPECT_EQ(tip->text(), QStringLiteral("Guarda el cuadrado en su archivo"));
    EXPECT_EQ(status(), editorStatus);
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(tip->isVisible());
    EXPECT_EQ(status(), editorStatus);
}

TEST_F(Principal, ContextMenusTellTheirTipsInTheStatusLineToo)
{
    frame.NuevoArchivo1Click();
    auto* tip = frame.findChild<QLabel*>(QStringLiteral("StatusTip"));
    auto* table = frame.findChild<QWidget*>(QStringLiteral("Datos"));
    QTest::keyClick(table, Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), QStringLiteral("Marca las celdas con el tipo A"));
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(tip->isVisible());
}

TEST_F(Principal, ChildrenOfEachKindHaveTheirOwnIcon)
{
    frame.NuevoArchivo1Click();
    frame.ClculodePotencia1Click();
    EXPECT_FALSE(frame.windowIcon().isNull());
    const auto picture = [](const QWidget* widget) {
        return widget->windowIcon().pixmap(QSize(16, 16), 1.0).toImage();
    };
    EXPECT_NE(picture(children().at(0)), picture(children().at(1)));
    EXPECT_NE(picture(children().at(0)), picture(&frame));
}

TEST_F(Principal, AboutBoxIsHiddenAtFirstBlocksNothingAndGoesWithTheFrame)
{
    auto* about = frame.findChild<QDialog*>(QStringLiteral("Acerca"));
    ASSERT_NE(about, nullptr);
    EXPECT_FALSE(about->isVisible());
    entry({QStringLiteral("A&yuda"), QStringLiteral("Acerca de...")})->trigger();
    EXPECT_TRUE(about->isVisible());
    frame.NuevoArchivo1Click();
    EXPECT_EQ(children().size(), 1);

    frame.Cascada1Click();
    dialogs.yesNoAnswers = {false};
    EXPECT_TRUE(frame.close());
    EXPECT_FALSE(about->isVisible());
}

TEST_F(Principal, BothUsualKeysCloseTheActiveChild)
{
    for (const auto key : {Qt::Key_F4, Qt::Key_W}) {
        frame.NuevoArchivo1Click();
        ASSERT_EQ(children().size(), 1);
        dialogs.yesNoAnswers.push_back(false);
        QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(children().isEmpty());
    }
}

TEST_F(Principal, TheTabKeysGoRoundTheChildrenInTheOrderOfTheWindowList)
{
    for (int count = 0; count < 4; ++count)
        frame.NuevoArchivo1Click();
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers more) {
        QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier | more);
        return children().indexOf(area().activeSubWindow());
    };
    for (const int next : {0, 1, 2, 3, 0})
        EXPECT_EQ(press(Qt::Key_Tab, Qt::NoModifier), next);
    for (const int previous : {3, 2, 1, 0, 3})
        EXPECT_EQ(press(Qt::Key_Backtab, Qt::ShiftModifier), previous);
}
