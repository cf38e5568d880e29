// SPDX-License-Identifier: GPL-3.0-or-later
// F1 in every window, and what becomes of the frame meanwhile.
#include "manual/ManualWindow.h"

#include "shell/PrincipalFixture.h"

#include <QAbstractButton>
#include <QTest>
#include <QTextBrowser>

namespace {

class Manual : public Principal {
protected:
    QWidget& manual() { return *frame.findChild<QWidget*>(QStringLiteral("Manual")); }
    QString chapter()
    {
        return manual().findChild<QTextBrowser*>()->source().fileName().section(QLatin1Char('.'), 0,
                                                                                0);
    }
    void pressF1()
    {
        QApplication::setActiveWindow(&frame);
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus == nullptr ? static_cast<QWidget*>(&frame) : focus, Qt::Key_F1);
    }
    void expectChapter(const char* expected)
    {
        pressF1();
        EXPECT_TRUE(manual().isVisible());
        EXPECT_EQ(chapter(), QString::fromUtf8(expected));
    }
};

} // namespace

TEST_F(Manual, OpensAtTheChapterOfTheActiveWindow)
{
    expectChapter("ventana-principal");
    frame.NuevoArchivo1Click();
    expectChapter("editor");
    dialogs.openAnswers.push_back(sample("orden3.asc"));
    frame.AnlisisdeDatos1Click();
    expectChapter("analisis");
    QWidget& analysis = *area().activeSubWindow()->widget();
    analysis.findChild<QAbstractButton*>(QStringLiteral("RadioGroup1Item2"))->click();
    analysis.findChild<QAbstractButton*>(QStringLiteral("SpeedButton1"))->click();
    analysis.findChild<QAbstractButton*>(QStringLiteral("ve"))->click();
    expectChapter("distribucion");
    frame.ClculodePotencia1Click();
    expectChapter("potencia");
}

TEST_F(Manual, AddsNoMenuEntryAndIsNoChild)
{
    const QStringList before = bar();
    pressF1();
    QApplication::setActiveWindow(&frame);
    EXPECT_EQ(bar(), before);
    EXPECT_TRUE(children().isEmpty());
    EXPECT_TRUE(manual().isWindow());
    EXPECT_FALSE(manual().isModal());
}

TEST_F(Manual, LeavesTheOrderOfTheWindowsAlone)
{
    frame.NuevoArchivo1Click();
    children().front()->showMaximized();
    pressF1();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&manual()));
    manual().close();
    frame.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    QTest::qWait(300); // a tiling would follow the activation at some distance
    EXPECT_TRUE(children().front()->isMaximized());
}

TEST_F(Manual, GoesWithTheFrame)
{
    pressF1();
    EXPECT_TRUE(frame.close());
    EXPECT_FALSE(manual().isVisible());
}

TEST_F(Manual, StaysWhenTheFrameStays)
{
    frame.NuevoArchivo1Click();
    pressF1();
    dialogs.yesNoAnswers.push_back(true);
    dialogs.saveAnswers.push_back(std::nullopt);
    EXPECT_FALSE(frame.close());
    EXPECT_TRUE(manual().isVisible());
}
