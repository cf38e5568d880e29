// SPDX-License-Identifier: GPL-3.0-or-later
// What the keyboard does in the texts that report results, within the frame and its shortcuts.
#include "shell/PrincipalFixture.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

namespace {

class Reports : public Principal {
protected:
    QWidget* activeChild() { return area().activeSubWindow()->widget(); }

    void openAnalysis(const char* name)
    {
        dialogs.openAnswers.push_back(sample(name));
        frame.AnlisisdeDatos1Click();
    }

    template <typename Control>
    Control* child(const char* name)
    {
        return activeChild()->findChild<Control*>(QString::fromUtf8(name));
    }

    QPlainTextEdit& focusedText(const char* name)
    {
        auto* text = child<QPlainTextEdit>(name);
        text->setFocus();
        return *text;
    }

    static QString copied()
    {
        QApplication::clipboard()->clear();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    }
};

} // namespace

TEST_F(Reports, TheMouseOverATestTellsWhatItAsks)
{
    openAnalysis("orden3.asc");
    QTest::mouseClick(child<QRadioButton>("RadioGroup1Item1"), Qt::LeftButton);
    auto* bennett = child<QRadioButton>("RadioGroup2Item1");
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), bennett->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(bennett, &help);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("empates")))
        << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST_F(Reports, CtrlASelectsTheReportToBeCopied)
{
    openAnalysis("orden3.asc");
    child<QToolButton>("SpeedButton1")->click();
    const QPlainTextEdit& report = focusedText("Reporte");
    EXPECT_TRUE(report.toPlainText().contains(QStringLiteral("Fuentes de")));
    EXPECT_EQ(copied(), report.toPlainText());
    EXPECT_EQ(dialogs.openRequests.size(), 1U) << "only the square was asked for";
}

TEST_F(Reports, CtrlASelectsThePowerLogToBeCopied)
{
    frame.ClculodePotencia1Click();
    QPlainTextEdit& log = focusedText("log");
    log.setPlainText(QStringLiteral("Potencias con dif = 0 :\nC : 0,05"));
    EXPECT_EQ(copied(), log.toPlainText());
    EXPECT_TRUE(dialogs.openRequests.empty());
}

TEST_F(Reports, CtrlAOpensAFileElsewhere)
{
    openAnalysis("orden3.asc");
    dialogs.openAnswers.emplace_back(std::nullopt);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(dialogs.openRequests.size(), 2U);
}
