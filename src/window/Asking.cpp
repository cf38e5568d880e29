// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Asking.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

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

/// A pop-up, such as a list of completions, may be nobody's child; it belongs to what is in front.
bool isPopup(const QObject& receiver)
{
    return receiver.isWidgetType() &&
           static_cast<const QWidget&>(receiver).windowType() == Qt::Popup;
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
        return receiver.isWidgetType() && !isPopup(receiver) && isOutsideQuestion(receiver);
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
