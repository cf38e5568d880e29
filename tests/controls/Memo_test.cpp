// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Memo.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace {

class Memo : public ::testing::Test {
protected:
    Memo()
    {
        QFont font(QStringLiteral("Courier New"));
        font.setPixelSize(usual);
        memo.setFont(font);
        memo.show();
        memo.setFocus();
    }

    int letters() const { return QFontInfo(memo.font()).pixelSize(); }
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::ControlModifier)
    {
        QTest::keyClick(&memo, key, held);
    }
    /// In eighths of a degree; a step of a common wheel is 120.
    void turnWheel(int angle, Qt::KeyboardModifiers held = Qt::ControlModifier)
    {
        const QPointF place = memo.viewport()->rect().center();
        QWheelEvent event(place, memo.viewport()->mapToGlobal(place), {}, {0, angle}, Qt::NoButton,
                          held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(memo.viewport(), &event);
    }

    static constexpr int usual = 12; // pixels
    controls::Memo memo{QStringLiteral("uno\n").repeated(200)};
};

} // namespace

TEST_F(Memo, CtrlWithPlusMinusAndZeroSetTheSizeOfTheLetters)
{
    press(Qt::Key_Plus);
    EXPECT_EQ(letters(), usual + 1);
    press(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(letters(), usual + 2);
    press(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier); // where plus is a shifted key
    EXPECT_EQ(letters(), usual + 3);
    press(Qt::Key_Minus);
    EXPECT_EQ(letters(), usual + 2);
    press(Qt::Key_0);
    EXPECT_EQ(letters(), usual);
    EXPECT_EQ(memo.font().family(), QStringLiteral("Courier New"));
}

TEST_F(Memo, CtrlAndTheWheelSetTheSizeOfTheLetters)
{
    turnWheel(120);
    EXPECT_EQ(letters(), usual + 1);
    turnWheel(-240);
    EXPECT_EQ(letters(), usual - 1);
    press(Qt::Key_0);
    for (int part = 0; part < 4; ++part) // a touch pad turns by little and little
        turnWheel(30);
    EXPECT_EQ(letters(), usual + 1);
    EXPECT_EQ(memo.verticalScrollBar()->value(), 0);
}

TEST_F(Memo, TheWheelAloneScrolls)
{
    turnWheel(-120, Qt::NoModifier);
    EXPECT_GT(memo.verticalScrollBar()->value(), 0);
    EXPECT_EQ(letters(), usual);
}

TEST_F(Memo, LettersStayLegible)
{
    for (int i = 0; i < 50; ++i)
        press(Qt::Key_Minus);
    EXPECT_EQ(letters(), 6);
    for (int i = 0; i < 50; ++i)
        press(Qt::Key_Plus);
    EXPECT_EQ(letters(), 72);
    press(Qt::Key_0);
    EXPECT_EQ(letters(), usual);
}

TEST_F(Memo, LettersOfTheDesktopComeBack)
{
    controls::Memo log(QStringLiteral("C : 0,05"));
    log.show();
    const QFont before = log.font();
    QTest::keyClick(&log, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(QFontInfo(log.font()).pixelSize(), QFontInfo(before).pixelSize());
    QTest::keyClick(&log, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(log.font(), before);
    EXPECT_EQ(log.font().resolveMask(), before.resolveMask()) << "it follows the desktop again";
}
