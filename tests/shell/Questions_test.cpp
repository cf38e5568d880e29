// SPDX-License-Identifier: GPL-3.0-or-later
// Every question of every kind of window, with the dialogs that users have: whatever arrives while
// it is open, nothing behind it closes, begins or asks, and it can be answered.
#include "shell/Principal.h"

#include "support/CellTyping.h"
#include "support/Text.h"
#include "window/OpenQuestion.h"
#include "window/QtDialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <functional>
#include <optional>

namespace {

using Action = std::function<void()>;

/// Something to do as soon as a question is open, from within its event loop.
void whenAsked(const std::function<void(QDialog&)>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            whenAsked(act);
        else
            act(*dialog);
    });
}

/// Cancels a dialog, confirms an error box, and gives up the data that a question asks about.
void answer(QDialog& dialog)
{
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == QStringLiteral("&No"))
                button->click();
        }
    }
    dialog.reject();
}

void chooseFile(const QString& name)
{
    whenAsked([name](QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(edit, nullptr);
        edit->setText(name);
        dialog.accept();
    });
}

class Questions : public ::testing::Test {
protected:
    Questions()
    {
        frame.show();
        QApplication::setActiveWindow(&frame);
        QApplication::processEvents();
    }
    ~Questions() override { QGuiApplication::clipboard()->clear(); }

    QMdiArea& area() { return *frame.findChild<QMdiArea*>(); }
    QList<QMdiSubWindow*> children() { return area().subWindowList(); }
    QWidget& active() { return *area().activeSubWindow()->widget(); }
    QTableView& table() { return *active().findChild<QTableView*>(QStringLiteral("Datos")); }

    void command(const char* name)
    {
        auto* action = active().findChild<QAction*>(QString::fromLatin1(name));
        ASSERT_NE(action, nullptr) << name;
        action->trigger();
    }
    void entry(const char* text)
    {
        for (QAction* action : table().findChildren<QAction*>()) {
            if (action->text() == QString::fromLatin1(text)) {
                action->trigger();
                return;
            }
        }
        FAIL() << "no entry " << text;
    }
    void openAnalysis()
    {
        chooseFile(QStringLiteral(CL_SOURCE_DIR "/ejemplos/orden3.asc"));
        frame.AnlisisdeDatos1Click();
        ASSERT_EQ(active().objectName(), QStringLiteral("Analisis"));
    }
    void openGraph()
    {
        openAnalysis();
        active().findChild<QAbstractButton*>(QStringLiteral("RadioGroup1Item2"))->click();
        QWidget& analysis = active();
        analysis.findChild<QAbstractButton*>(QStringLiteral("SpeedButton1"))->click();
        analysis.findChild<QAbstractButton*>(QStringLiteral("ve"))->click();
        ASSERT_EQ(active().objectName(), QStringLiteral("Grafica"));
    }
    void typeBadText()
    {
        frame.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
        table().setFocus();
        typeIntoCurrentCell(table(), QStringLiteral("1..2"));
    }
    /// Leaves the cell by the mouse: its box comes only after that.
    void leaveByMouse()
    {
        const QPoint other = table().visualRect(table().model()->index(2, 2)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, other);
        QApplication::processEvents();
    }

    /// The numbers that can be set in the windows behind a question.
    QList<QSpinBox*> numbersBehind()
    {
        QList<QSpinBox*> numbers = frame.findChildren<QSpinBox*>();
        numbers.removeIf([](QSpinBox* number) {
            return QApplication::activeModalWidget()->isAncestorOf(number);
        });
        return numbers;
    }
    QList<int> numbersSet()
    {
        QList<int> values;
        for (const QSpinBox* number : numbersBehind())
            values.append(number->value());
        return values;
    }

    /// All that may arrive while a question is open. The desktop has not yet made its window the
    /// active one: shortcuts still go to the frame.
    void assail()
    {
        QApplication::setActiveWindow(&frame);
        const QKeyCombination keys[] = {Qt::CTRL | Qt::Key_W,
                                        Qt::CTRL | Qt::Key_F4,
                                        Qt::ALT | Qt::Key_F4,
                                        Qt::Key_F2,
                                        Qt::Key_F3,
                                        Qt::Key_F9,
                                        Qt::CTRL | Qt::Key_E,
                                        Qt::CTRL | Qt::Key_N,
                                        Qt::CTRL | Qt::Key_A,
                                        Qt::SHIFT | Qt::Key_F5,
                                        Qt::Key_Return,
                                        Qt::Key_Escape,
                                        Qt::CTRL | Qt::Key_Tab};
        for (const QKeyCombination key : keys)
            QTest::keyClick(frame.windowHandle(), key.key(), key.keyboardModifiers());
        for (QMdiSubWindow* child : children()) {
            child->close();
            child->widget()->close();
        }
        frame.close();
        QCloseEvent fromTheDesktop;
        QCoreApplication::sendEvent(frame.windowHandle(), &fromTheDesktop);
        EXPECT_TRUE(frame.windowHandle()->isVisible());
        // Assistive technology presses buttons and chooses entries wherever they are.
        for (QAction* action : frame.findChildren<QAction*>()) {
            const bool belongsToTheQuestion =
                QApplication::activeModalWidget()->findChildren<QAction*>().contains(action);
            if (!belongsToTheQuestion)
                action->trigger();
        }
        for (QSpinBox* number : numbersBehind()) {
            number->stepDown();
            QAccessible::queryAccessibleInterface(number)->valueInterface()->setCurrentValue(
                number->maximum());
        }
        for (const QAction* title : frame.menuBar()->actions()) {
            ASSERT_NE(title->menu(), nullptr);
            emit title->menu()->aboutToShow(); // the list of windows is made then
            for (QAction* action : title->menu()->actions())
                action->trigger();
        }
        QList<QPointer<QAbstractButton>> buttons; // a choice may replace others
        for (auto* button : frame.findChildren<QAbstractButton*>())
            buttons.append(button);
        for (const QPointer<QAbstractButton>& button : buttons) {
            const bool isOfTheToolkit =
                !button || button->objectName().startsWith(QLatin1String("qt_"));
            if (!isOfTheToolkit && !QApplication::activeModalWidget()->isAncestorOf(button))
                button->click();
        }
        QCoreApplication::quit(); // the end of the session
    }

    /// Asks, and lets everything arrive that may.
    void expectToOutlive(const char* what, const Action& ask)
    {
        SCOPED_TRACE(what);
        const auto childrenBefore = children().size();
        const QMdiSubWindow* const activeBefore = area().activeSubWindow();
        bool wasAsked = false;
        whenAsked([&](QDialog& question) {
            wasAsked = true;
            const QPointer<QDialog> stillThere(&question);
            const QList<int> numbersBefore = numbersSet();
            assail();
            QApplication::sendPostedEvents();
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_EQ(children().size(), childrenBefore);
            EXPECT_EQ(area().activeSubWindow(), activeBefore);
            EXPECT_EQ(numbersSet(), numbersBefore);
            ASSERT_TRUE(stillThere);
            EXPECT_TRUE(question.isVisible());
            EXPECT_EQ(QApplication::activeModalWidget(), &question) << "something else asks";
            answer(question);
        });
        ask();
        for (int i = 0; i < 100 && !wasAsked; ++i)
            QTest::qWait(10);
        EXPECT_TRUE(wasAsked);
        EXPECT_FALSE(window::isAsking());
        EXPECT_TRUE(frame.isVisible());
    }

    window::QtDialogs dialogs;
    shell::TPrincipal frame{dialogs};
};

} // namespace

TEST_F(Questions, OfTheFrame)
{
    expectToOutlive("open a file", [this] { frame.AbrirArchivo1Click(); });
    expectToOutlive("analyse a file", [this] { frame.AnlisisdeDatos1Click(); });
    EXPECT_TRUE(children().isEmpty());
}

TEST_F(Questions, OfAnEditor)
{
    frame.NuevoArchivo1Click();
    frame.NuevoArchivo1Click();
    area().setActiveSubWindow(children().first());
    expectToOutlive("save beside another editor", [this] { command("Guardar1"); });
    whenAsked(answer);
    area().activeSubWindow()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    expectToOutlive("save", [this] { command("Guardar1"); });
    expectToOutlive("load", [this] { command("Cargar1"); });
    expectToOutlive("save and analyse", [this] { command("GuardaryAnalizar1"); });
    QGuiApplication::clipboard()->setText(QStringLiteral("huevos"));
    expectToOutlive("paste", [this] { entry("Paste"); });
    expectToOutlive("extract", [this] { entry("Extract from Clpbrd"); });
    expectToOutlive("edit the identifier", [this] { entry("Edit Identifier"); });
    expectToOutlive("change the precision", [this] { entry("Change Precision"); });
    typeBadText();
    expectToOutlive("leave a refused cell by a key",
                    [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); });
    expectToOutlive("leave a refused cell by the mouse", [this] { leaveByMouse(); });
    ASSERT_EQ(children().size(), 1);

    expectToOutlive("close", [this] { area().activeSubWindow()->close(); });
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(children().isEmpty()); // the data were given up
}

TEST_F(Questions, OfAnAnalysis)
{
    openAnalysis();
    expectToOutlive("export", [this] { command("Exportar1"); });
    typeBadText();
    expectToOutlive("analyse past a refused cell", [this] {
        active().findChild<QAbstractButton*>(QStringLiteral("SpeedButton1"))->click();
    });
    expectToOutlive("leave a refused cell by the mouse", [this] { leaveByMouse(); });
    EXPECT_EQ(children().size(), 1);
}

TEST_F(Questions, OfAGraph)
{
    openGraph();
    expectToOutlive("save the graph", [this] { command("GuardarGrfica1"); });
    expectToOutlive("save the other", [this] { command("GuardaGrficaAcumulada1"); });
    expectToOutlive("save the table", [this] { command("GuardarDatos1"); });
    EXPECT_EQ(children().size(), 2);
}

TEST_F(Questions, OfAPowerStudy)
{
    frame.ClculodePotencia1Click();
    expectToOutlive("save the graph", [this] { command("GuardarGrafica1"); });
    expectToOutlive("save the report", [this] { command("GuardarReporte1"); });
    EXPECT_EQ(children().size(), 1);
    const auto caption = [this](const char* button) {
        return active().findChild<QAbstractButton*>(QString::fromLatin1(button))->text();
    };
    EXPECT_EQ(caption("BtnSig"), QStringLiteral("Nivel de Significancia 95%"));
    EXPECT_EQ(caption("BtnDist"), QStringLiteral("Distribución Uniforme"));
}

TEST_F(Questions, LeavingAsksOnceHoweverOftenItIsAskedFor)
{
    frame.NuevoArchivo1Click();
    frame.NuevoArchivo1Click();
    int asked = 0;
    const std::function<void(QDialog&)> assailAndAnswer = [&](QDialog& question) {
        ++asked;
        assail();
        EXPECT_EQ(children().size(), 2) << "nobody goes before all are asked";
        if (asked < 2)
            whenAsked(assailAndAnswer);
        answer(question);
    };
    whenAsked(assailAndAnswer);
    EXPECT_TRUE(frame.close());
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(frame.isVisible());
}

TEST_F(Questions, AWindowThatIsDestroyedAllTheSameTakesItsQuestionAlong)
{
    const Action asks[] = {
        [this] { command("Guardar1"); },
        [this] { command("Cargar1"); },
        [this] { command("GuardaryAnalizar1"); },
        [this] { entry("Paste"); },
        [this] { entry("Edit Identifier"); },
        [this] { entry("Change Precision"); },
        [this] {
            typeBadText();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        },
    };
    QGuiApplication::clipboard()->setText(QStringLiteral("huevos"));
    for (const Action& ask : asks) {
        frame.NuevoArchivo1Click();
        whenAsked([this](QDialog&) { delete &active(); });
        ask();
        EXPECT_FALSE(window::isAsking());
        for (QMdiSubWindow* place : children())
            delete place;
    }
}

TEST_F(Questions, TheAboutBoxStepsAside)
{
    auto* about = frame.findChild<QDialog*>(QStringLiteral("Acerca"));
    frame.Acercade1Click();
    const QPoint place(40, 30);
    about->move(place);
    QApplication::setActiveWindow(about);
    bool wasAsked = false;
    whenAsked([&](QDialog& question) {
        wasAsked = true;
        EXPECT_FALSE(about->isVisible());
        EXPECT_TRUE(question.isVisible());
        question.reject();
    });
    frame.AbrirArchivo1Click();
    EXPECT_TRUE(wasAsked);
    EXPECT_TRUE(about->isVisible());
    EXPECT_EQ(about->pos(), place);

    about->close();
    whenAsked([](QDialog& question) { question.reject(); });
    frame.AbrirArchivo1Click();
    EXPECT_FALSE(about->isVisible()) << "it does not come back by itself";
}
