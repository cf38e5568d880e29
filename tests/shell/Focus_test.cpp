// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keyboard is as windows come and go.
#include "shell/Principal.h"
#include "support/ScriptedDialogs.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

namespace {

class Focus : public ::testing::Test {
protected:
    Focus()
    {
        frame.show();
        QApplication::setActiveWindow(&frame);
        QApplication::processEvents();
    }

    static QString focused()
    {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? QStringLiteral("(nothing)") : widget->objectName();
    }

    QMdiSubWindow* active() { return frame.findChild<QMdiArea*>()->activeSubWindow(); }

    void openAnalysis()
    {
        dialogs.openAnswers.emplace_back(QStringLiteral(CL_SOURCE_DIR "/ejemplos/orden3.asc"));
        frame.AnlisisdeDatos1Click();
    }

    void openGraph()
    {
        QWidget* analysis = active()->widget();
        analysis->findChild<QRadioButton*>(QStringLiteral("RadioGroup1Item2"))->click();
        analysis->findChild<QToolButton*>(QStringLiteral("SpeedButton1"))->click();
        analysis->findChild<QToolButton*>(QStringLiteral("ve"))->click();
    }

    ScriptedDialogs dialogs;
    shell::TPrincipal frame{dialogs};
};

} // namespace

TEST_F(Focus, NewWindowOfEachKindHasTheKeyboard)
{
    frame.NuevoArchivo1Click();
    EXPECT_EQ(focused(), QStringLiteral("Datos"));
    frame.ClculodePotencia1Click();
    EXPECT_EQ(focused(), QStringLiteral("BtnCalcular"));
    openAnalysis();
    EXPECT_EQ(focused(), QStringLiteral("RadioGroup1Item0"));
    openGraph();
    EXPECT_EQ(focused(), QStringLiteral("Graph"));
}

TEST_F(Focus, CancelledDialogLeavesTheKeyboardWhereItWas)
{
    frame.NuevoArchivo1Click();
    QWidget* const before = QApplication::focusWidget();
    dialogs.openAnswers = {std::nullopt, std::nullopt};
    frame.AbrirArchivo1Click();
    EXPECT_EQ(frame.focusWidget(), before);
    frame.AnlisisdeDatos1Click();
    EXPECT_EQ(frame.focusWidget(), before);
}

TEST_F(Focus, TabGoesRoundInAWindow)
{
    frame.NuevoArchivo1Click();
    active()->widget()->findChild<QWidget*>(QStringLiteral("RefTratamientos"))->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("NumTratamientos"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("NFilas"));
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(focused(), QStringLiteral("RefTratamientos"));
}

TEST_F(Focus, WindowMayGoWithTheMenuOfItsCellsOpen)
{
    frame.NuevoArchivo1Click();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::setActiveWindow(QApplication::activePopupWidget());
    delete active();
    EXPECT_EQ(active(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Focus, WhoClosesAGraphIsBackAtItsAnalysis)
{
    frame.NuevoArchivo1Click();
    openAnalysis();
    QMdiSubWindow* const analysis = active();
    openGraph();
    active()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(active(), analysis);
    EXPECT_TRUE(analysis->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Focus, KeyOpensTheMenuOfTheActiveWindow)
{
    QTest::keyClick(&frame, Qt::Key_Minus, Qt::AltModifier); // no window, nothing to open
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    openAnalysis();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Minus, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), active()->systemMenu());
    active()->systemMenu()->close();
}
