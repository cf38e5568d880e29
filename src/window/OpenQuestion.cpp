// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/OpenQuestion.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace window {

namespace {

/// Whether a question is open to which the object does not belong.
bool isOutsideQuestion(const QObject& object)
{
    const QObject* question = QApplication::activeModalWidget();
    const QObject* around = &object;
    while (around != nullptr && around != question)
        around = around->parent();
    return question != nullptr && around == nullptr;
}

/// Whether closing this would close something behind the question. A pop-up, such as a list of
/// completions, may be nobody's child; it belongs to what is in front.
///
/// A close comes to the desktop's window first, then to the widget in it. A widget that is asking
/// whether it may close has already said yes to its window, so the window is looked at too.
bool isClosedBehindQuestion(const QObject& receiver)
{
    if (receiver.isWidgetType())
        return static_cast<const QWidget&>(receiver).windowType() != Qt::Popup &&
               isOutsideQuestion(receiver);
    if (!receiver.isWindowType() || !isAsking())
        return false;
    const auto& window = static_cast<const QWindow&>(receiver);
    return window.type() != Qt::Popup &&
           &window != QApplication::activeModalWidget()->windowHandle();
}

} // namespace

bool isAsking()
{
    return QApplication::activeModalWidget() != nullptr;
}

bool isBehindQuestion(const QObject& receiver, const QEvent& event)
{
    switch (event.type()) {
    case QEvent::Quit:
        return isAsking();
    case QEvent::Close:
        return isClosedBehindQuestion(receiver);
    case QEvent::Shortcut:
        return isOutsideQuestion(receiver);
    default:
        return false;
    }
}

void showQuestion()
{
    if (QWidget* question = QApplication::activeModalWidget()) {
        question->raise();
        question->activateWindow();
    }
}

} // namespace window
