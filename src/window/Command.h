// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/OpenQuestion.h"
#include "window/Picture.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QString>
#include <QToolButton>

#include <concepts>

namespace window {

/// What the user sees of a command, in a menu or on a tool bar.
struct Command {
    QString name; ///< The object name.
    QString text;
    QString tip; ///< In the status line while the entry is hovered; a button's tool tip.
    Picture picture;
    QKeySequence shortcut = {};
};

/// Connects a signal by which the user gives a command with what carries it out, for as long as
/// the receiver lives. While a question is open it is not carried out: assistive technology reaches
/// the windows behind.
template <typename Sender, typename Signal, std::invocable CarryOut>
void connectCommand(Sender* sender, Signal signal, QObject* receiver, CarryOut carryOut)
{
    QObject::connect(sender, signal, receiver, [carryOut] {
        if (isAsking())
            showQuestion();
        else
            carryOut();
    });
}

/// The same, with what is carried out by the receiver.
template <typename Sender, typename Signal, typename Receiver>
void connectCommand(Sender* sender, Signal signal, Receiver* receiver, void (Receiver::*handler)())
{
    connectCommand(sender, signal, receiver, [receiver, handler] { (receiver->*handler)(); });
}

/// A new entry at the end of a menu.
QAction* addEntry(QMenu& menu, const Command& command);

/// The same, with what it calls.
template <typename Receiver>
QAction* addEntry(QMenu& menu, const Command& command, Receiver* receiver,
                  void (Receiver::*handler)())
{
    QAction* entry = addEntry(menu, command);
    connectCommand(entry, &QAction::triggered, receiver, handler);
    return entry;
}

/// A button with picture and text, for a tool bar; reached by Tab.
QToolButton* createButton(const Command& command, QWidget* parent);

} // namespace window
