// SPDX-License-Identifier: GPL-3.0-or-later
// The frame itself: leaving it and coming back, the About box, menus that are only looked at.
#include "shell/walk/FrameWalk.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace walk {

void FrameWalk::addFrameSteps()
{
    const auto always = [] { return true; };
    add("to another program", always, [this] {
        m_other.show();
        m_other.activateWindow();
        m_model.foreground = Foreground::OtherProgram;
    });
    addAnywhere(
        "back from another program",
        [this] { return m_model.foreground == Foreground::OtherProgram; },
        [this] {
            m_frame.activateWindow();
            m_model.foreground = Foreground::Frame;
            m_model.arrange();
        });

    add("the About box", always, [this] {
        choose({QStringLiteral("A&yuda"), QStringLiteral("Acerca de...")});
        m_model.foreground = Foreground::About;
        m_model.isAboutOpen = true;
    });
    const auto isInAbout = [this] { return m_model.foreground == Foreground::About; };
    addAnywhere("close the About box", isInAbout, [this] {
        if (flag())
            m_hands.press(Qt::Key_Escape);
        else
            QTest::mouseClick(m_frame.findChild<QPushButton*>(QStringLiteral("BitBtn1")),
                              Qt::LeftButton);
        m_frame.activateWindow(); // as a window manager does
        m_model.foreground = Foreground::Frame;
        m_model.isAboutOpen = false;
    });
    addAnywhere("back from the About box", isInAbout, [this] {
        m_frame.activateWindow();
        m_model.foreground = Foreground::Frame;
    });
}

void FrameWalk::addMenuSteps()
{
    add(
        "look at a menu", [] { return true; },
        [this] {
            const QStringList bar = m_model.bar();
            const QString& title =
                bar.at(static_cast<int>(below(static_cast<std::size_t>(bar.size()))));
            if (flag())
                m_hands.openMenuByMouse(title);
            else
                m_hands.openMenuByKey(title);
            readAndLeave(*m_hands.barEntry(title)->menu());
        });
    add(
        "look at the menu of the cells",
        [this] { return m_model.hasChild() && m_model.focus() == QStringLiteral("Datos"); },
        [this] {
            m_hands.press(Qt::Key_F10, Qt::ShiftModifier);
            readAndLeave(*control("Datos")->findChild<QMenu*>(QStringLiteral("CellMenu")));
        });
}

void FrameWalk::readAndLeave(QMenu& menu)
{
    const auto* tip = m_frame.findChild<QLabel*>(QStringLiteral("StatusTip"));
    for (QAction* entry : menu.actions()) {
        if (entry->isSeparator())
            continue;
        m_hands.hover(menu, entry);
        EXPECT_TRUE(tip->isVisible()) << entry->text().toStdString();
        EXPECT_EQ(tip->text(), entry->statusTip());
    }
    constexpr int deepest = 3;
    for (int level = 0; QApplication::activePopupWidget() != nullptr && level < deepest; ++level)
        m_hands.press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    if (m_frame.menuBar()->hasFocus()) // which it keeps after a menu that was opened by key
        m_hands.press(Qt::Key_Escape);
}

} // namespace walk
