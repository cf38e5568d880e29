// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Asking.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace window {

namespace {

bool isWithin(const QObject* object, const QObject& whole)
{
    while (object != nullptr && object != &whole)
        object = object->parent();
    return object != nullptr;
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
    const QWidget* question = QApplication::activeModalWidget();
    if (question == nullptr)
        return false;
    switch (event.type()) {
    case QEvent::Quit:
        return true;
    case QEvent::Close:
        return receiver.isWidgetType() && !isPopup(receiver) && !isWithin(&receiver, *question);
    case QEvent::Shortcut:
        return !isWithin(&receiver, *question);
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
