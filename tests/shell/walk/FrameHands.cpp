// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/walk/FrameHands.h"

#include "shell/ActivationTiling.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeySequence>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyleOption>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <QWindow>

namespace walk {

namespace {

/// The window that the desktop would send a key to.
QWindow* windowOfKeys()
{
    const QWidget* popup = QApplication::activePopupWidget();
    return (popup == nullptr ? QApplication::activeWindow() : popup)->windowHandle();
}

/// As a real mouse: what it comes to sees it move more than once. A menu and a title bar wait for
/// that.
void moveTo(QWindow& window, const QPoint& point)
{
    QTest::mouseMove(&window, point - QPoint(1, 0));
    QTest::mouseMove(&window, point);
}

/// Tells an object that the delay has passed for which it waits, so that no step depends on the
/// time it takes.
void passTheDelay(QObject& object, int milliseconds)
{
    for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&object)) {
        if (timer.interval != milliseconds)
            continue;
        QTimerEvent over(timer.timerId);
        QCoreApplication::sendEvent(&object, &over);
    }
}

} // namespace

FrameHands::FrameHands(shell::TPrincipal& frame)
    : m_frame(frame)
{
}

void FrameHands::settle() const
{
    constexpr int rounds = 3; // what happens may ask for more to happen
    // A resized area puts its minimised children in order, and a resized child its buttons.
    constexpr int delayOfTheToolkit = 200; // milliseconds
    constexpr int delayOfTheTiling = 100;
    for (int round = 0; round < rounds; ++round) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto* area = m_frame.findChild<QMdiArea*>();
        passTheDelay(*area, delayOfTheToolkit);
        for (QMdiSubWindow* place : area->subWindowList())
            passTheDelay(*place, delayOfTheToolkit);
        for (QTimer* timer : m_frame.findChild<shell::ActivationTiling*>()->findChildren<QTimer*>())
            passTheDelay(*timer, delayOfTheTiling);
    }
}

void FrameHands::rest() const
{
    const QWidget& line = *m_frame.statusBar();
    QTest::mouseMove(m_frame.windowHandle(), line.mapTo(&m_frame, line.rect().center()));
}

void FrameHands::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(windowOfKeys(), key, modifiers);
}

void FrameHands::type(const QString& text) const
{
    for (const QChar character : text)
        QTest::keyClick(windowOfKeys(), character.toLatin1());
}

bool FrameHands::canClick(const QWidget* control) const
{
    return control != nullptr && control->isVisible() && control->isEnabled() &&
           m_frame.childAt(control->mapTo(&m_frame, control->rect().center())) == control;
}

void FrameHands::click(QWidget* control) const
{
    clickFrame(control->mapTo(&m_frame, control->rect().center()));
}

std::optional<QPoint> FrameHands::captionPoint(QMdiSubWindow& place) const
{
    return buttonPoint(place, QStyle::SC_TitleBarLabel);
}

std::optional<QPoint> FrameHands::buttonPoint(QMdiSubWindow& place, QStyle::SubControl button) const
{
    // A place that was resized takes a fifth of a second to know where its buttons are, unless it
    // has another reason to look.
    QEvent reason(QEvent::LayoutDirectionChange);
    QApplication::sendEvent(&place, &reason);
    QStyleOptionTitleBar bar;
    bar.initFrom(&place);
    bar.titleBarFlags = place.windowFlags();
    bar.titleBarState = place.windowState();
    bar.subControls = QStyle::SC_All;
    bar.rect.setHeight(place.style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, &place));
    const QRect area = place.style()->subControlRect(QStyle::CC_TitleBar, &bar, button, &place);
    const QPoint point = place.mapTo(&m_frame, area.center());
    if (place.isMaximized() || !area.isValid() || !isOnTop(place, point))
        return std::nullopt;
    return point;
}

QPoint FrameHands::maximisedButtonPoint(QStyle::SubControl button) const
{
    const QWidget* corner = m_frame.menuBar()->cornerWidget(Qt::TopRightCorner);
    QStyleOptionComplex buttons;
    buttons.initFrom(corner);
    buttons.subControls =
        QStyle::SC_MdiMinButton | QStyle::SC_MdiNormalButton | QStyle::SC_MdiCloseButton;
    const QRect area =
        corner->style()->subControlRect(QStyle::CC_MdiControls, &buttons, button, corner);
    return corner->mapTo(&m_frame, area.center());
}

void FrameHands::clickFrame(const QPoint& point) const
{
    moveTo(*m_frame.windowHandle(), point);
    QTest::mouseClick(m_frame.windowHandle(), Qt::LeftButton, {}, point);
}

void FrameHands::doubleClickFrame(const QPoint& point) const
{
    moveTo(*m_frame.windowHandle(), point);
    QTest::mouseDClick(m_frame.windowHandle(), Qt::LeftButton, {}, point);
}

void FrameHands::chooseByMouse(const QStringList& path) const
{
    openMenuByMouse(path.first());
    QMenu* menu = barEntry(path.first())->menu();
    for (const QString& text : path.mid(1)) {
        QAction* entry = entryOf(*menu, text);
        ASSERT_NE(entry, nullptr);
        QMenu* const next = entry->menu(); // the entry may be gone after the click
        clickEntry(*menu, entry);
        menu = next;
    }
}

void FrameHands::chooseByKeys(const QStringList& path) const
{
    openMenuByKey(path.first());
    const QMenu* menu = barEntry(path.first())->menu();
    for (const QString& text : path.mid(1)) {
        QAction* entry = entryOf(*menu, text);
        ASSERT_NE(entry, nullptr);
        for (qsizetype i = 0; menu->activeAction() != entry && i <= menu->actions().size(); ++i)
            press(Qt::Key_Down);
        ASSERT_EQ(menu->activeAction(), entry);
        menu = entry->menu();
        press(menu == nullptr ? Qt::Key_Return : Qt::Key_Right);
    }
}

QAction* FrameHands::barEntry(const QString& title) const
{
    for (QAction* action : m_frame.menuBar()->actions()) {
        if (action->text() == title)
            return action;
    }
    ADD_FAILURE() << "not in the bar: " << title.toStdString();
    return nullptr;
}

void FrameHands::openMenuByMouse(const QString& title) const
{
    QAction* action = barEntry(title);
    QMenuBar& bar = *m_frame.menuBar();
    clickFrame(bar.mapTo(&m_frame, bar.actionGeometry(action).center()));
    EXPECT_TRUE(action->menu()->isVisible()) << "by mouse: " << title.toStdString();
}

void FrameHands::openMenuByKey(const QString& title) const
{
    const QKeySequence key = QKeySequence::mnemonic(title);
    press(key[0].key(), key[0].keyboardModifiers());
    EXPECT_TRUE(barEntry(title)->menu()->isVisible()) << "by key: " << title.toStdString();
}

void FrameHands::hover(QMenu& menu, QAction* entry) const
{
    moveTo(*menu.windowHandle(), menu.actionGeometry(entry).center());
}

void FrameHands::clickEntry(QMenu& menu, QAction* entry) const
{
    hover(menu, entry);
    QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, menu.actionGeometry(entry).center());
}

bool FrameHands::isOnTop(const QMdiSubWindow& place, const QPoint& point) const
{
    return m_frame.childAt(point) == &place;
}

QAction* entryOf(const QMenu& menu, const QString& text)
{
    for (QAction* entry : menu.actions()) {
        if (entry->text() == text)
            return entry;
    }
    ADD_FAILURE() << "not in the menu: " << text.toStdString();
    return nullptr;
}

} // namespace walk
