// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/LateActivation.h"

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

#include <memory>

TEST(LateActivation, AWindowThatBecameActiveUnderAPopUpIsActiveOnceThePopUpIsGone)
{
    QWidget frame;
    frame.show();
    frame.activateWindow();
    QTest::qWait(10);
    ASSERT_EQ(QApplication::activeWindow(), &frame);

    const shell::LateActivation lateActivation;
    auto dialog = std::make_unique<QWidget>();
    dialog->show();
    dialog->activateWindow();
    QTest::qWait(10);
    ASSERT_EQ(QApplication::activeWindow(), dialog.get());

    auto completions = std::make_unique<QWidget>(nullptr, Qt::Popup);
    completions->show();
    QTest::qWait(10);
    frame.windowHandle()->requestActivate();
    QTest::qWait(10);
    ASSERT_EQ(QGuiApplication::focusWindow(), frame.windowHandle());
    ASSERT_NE(QApplication::activeWindow(), &frame) << "Qt has learnt to look again";
    completions.reset();
    dialog.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &frame; }, 2000));
}
