// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PrincipalFixture.h"

#include <QDialog>
#include <QPushButton>
#include <QStyleHints>
#include <QTest>

namespace {

class ActivationTiling : public Principal {
protected:
    ActivationTiling()
    {
        frame.NuevoArchivo1Click();
        frame.NuevoArchivo1Click();
        frame.Cascada1Click();
    }

    bool areTiled()
    {
        return !children().at(0)->geometry().intersects(children().at(1)->geometry());
    }

    void comeBackFrom(QWidget& other)
    {
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        frame.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    }

    /// Long enough for a tiling that was not held up.
    static void waitALittle()
    {
        QTest::qWait(2 * QGuiApplication::styleHints()->mouseDoubleClickInterval());
    }

    QWidget otherProgram;
};

} // namespace

TEST_F(ActivationTiling, FollowsEachReturnFromAnotherProgram)
{
    for (int i = 0; i < 2; ++i) {
        frame.Cascada1Click();
        comeBackFrom(otherProgram);
        EXPECT_TRUE(QTest::qWaitFor([this] { return areTiled(); }));
    }
}

TEST_F(ActivationTiling, ComesAtOnceWhenTheFrameIsActiveForTheFirstTime)
{
    ScriptedDialogs none;
    shell::TPrincipal fresh(none);
    fresh.NuevoArchivo1Click();
    fresh.NuevoArchivo1Click();
    fresh.Cascada1Click();
    fresh.show();
    QApplication::setActiveWindow(&fresh);
    const QList<QMdiSubWindow*> both = fresh.findChild<QMdiArea*>()->subWindowList();
    EXPECT_FALSE(both.at(0)->geometry().intersects(both.at(1)->geometry()));
}

TEST_F(ActivationTiling, WaitsForTheEndOfTheClickThatActivates)
{
    comeBackFrom(otherProgram);
    QWindow* window = frame.windowHandle();
    const QPoint point = area().mapTo(&frame, children().at(1)->geometry().center());
    QTest::mousePress(window, Qt::LeftButton, {}, point);
    waitALittle();
    EXPECT_FALSE(areTiled()) << "the button is down";
    QTest::mouseRelease(window, Qt::LeftButton, {}, point);
    EXPECT_FALSE(areTiled()) << "it may become a double click";
    QTest::mouseClick(window, Qt::LeftButton, {}, point);
    EXPECT_FALSE(areTiled());
    EXPECT_TRUE(QTest::qWaitFor([this] { return areTiled(); }));
}

TEST_F(ActivationTiling, WaitsForTheEndOfAMenuThatTheClickOpened)
{
    comeBackFrom(otherProgram);
    QMenuBar* bar = frame.menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {},
                      bar->actionGeometry(bar->actions().constFirst()).center());
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    waitALittle();
    EXPECT_FALSE(areTiled());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return areTiled(); }));
}

TEST_F(ActivationTiling, IsForgottenWhenTheFrameIsLeftAgain)
{
    comeBackFrom(otherProgram);
    otherProgram.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&otherProgram));
    waitALittle();
    EXPECT_FALSE(areTiled());
}

TEST_F(ActivationTiling, DoesNotFollowAnOwnDialog)
{
    QDialog dialog(&frame);
    dialog.setModal(true);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    dialog.close();
    QApplication::setActiveWindow(&frame);
    waitALittle();
    EXPECT_FALSE(areTiled());
}

TEST_F(ActivationTiling, DoesNotFollowAnOwnDialogThatOpenedWhileAnotherProgramWasActive)
{
    otherProgram.show();
    otherProgram.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&otherProgram));
    QDialog dialog(&frame);
    dialog.setModal(true);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    dialog.close();
    frame.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    waitALittle();
    EXPECT_FALSE(areTiled());
}

TEST_F(ActivationTiling, FollowsAReturnPastTheAboutBox)
{
    frame.Acercade1Click();
    auto* about = frame.findChild<QDialog*>(QStringLiteral("Acerca"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(about));
    comeBackFrom(otherProgram);
    EXPECT_TRUE(QTest::qWaitFor([this] { return areTiled(); }));
}

TEST_F(ActivationTiling, DoesNotFollowTheAboutBox)
{
    frame.Acercade1Click();
    auto* about = frame.findChild<QDialog*>(QStringLiteral("Acerca"));
    QApplication::setActiveWindow(about);
    about->close();
    QApplication::setActiveWindow(&frame);
    waitALittle();
    EXPECT_FALSE(areTiled());
}
