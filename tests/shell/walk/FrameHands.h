// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/Principal.h"

#include <QMdiSubWindow>
#include <QStyle>

#include <optional>

class QAction;
class QMenu;

namespace walk {

/// A user's hands at the frame: real clicks and keys, sent to the window of the desktop under the
/// mouse or with the focus, so that what covers a control takes its click.
class FrameHands {
public:
    explicit FrameHands(shell::TPrincipal& frame);

    /// Lets everything happen that waits to happen.
    void settle() const;

    /// Takes the mouse to where nothing has a status tip.
    void rest() const;

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;

    /// Whether a click on the middle of a control of the frame would reach it.
    bool canClick(const QWidget* control) const;
    void click(QWidget* control) const;

    /// Where a click reaches the caption of a child; nothing where others cover it.
    std::optional<QPoint> captionPoint(QMdiSubWindow& place) const;
    /// The same for a button of its title bar: minimise, maximise, restore, close.
    std::optional<QPoint> buttonPoint(QMdiSubWindow& place, QStyle::SubControl button) const;
    /// The same for a button of the maximised child, in the menu bar.
    QPoint maximisedButtonPoint(QStyle::SubControl button) const;
    void clickFrame(const QPoint& point) const;
    void doubleClickFrame(const QPoint& point) const;

    /// An entry at the end of a path of menus from the bar, such as {"&Archivo", "&Nuevo", "..."}.
    void chooseByMouse(const QStringList& path) const;
    void chooseByKeys(const QStringList& path) const;

    QAction* barEntry(const QString& title) const;
    void openMenuByMouse(const QString& title) const;
    void openMenuByKey(const QString& title) const;
    /// Moves the mouse to an entry of an open menu.
    void hover(QMenu& menu, QAction* entry) const;
    void clickEntry(QMenu& menu, QAction* entry) const;

private:
    bool isOnTop(const QMdiSubWindow& place, const QPoint& point) const;

    shell::TPrincipal& m_frame;
};

/// The entry with that text; fails the test where there is none.
QAction* entryOf(const QMenu& menu, const QString& text);

} // namespace walk
