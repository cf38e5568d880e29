// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/window/PendingInput.h"

#include "window/OpenQuestion.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <vector>

namespace power {

namespace {

/// Stands before all events of the program while it exists.
class InputFilter : public QObject {
public:
    InputFilter() { qApp->installEventFilter(this); }
    InputFilter(const InputFilter&) = delete;
    InputFilter& operator=(const InputFilter&) = delete;
    ~InputFilter() override
    {
        qApp->removeEventFilter(this);
        for (QObject* const receiver : m_toClose)
            closeSoon(receiver);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (window::isAsking()) // what was pending has asked something, and has to be answered
            return false;
        switch (event->type()) {
        case QEvent::Close:
            m_toClose.push_back(receiver);
            event->ignore();
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            // The frame of a child window only moves or closes it.
            return receiver->isWidgetType() && !qobject_cast<QMdiSubWindow*>(receiver);
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            // Already on its way to a window: assistive technology takes keys from there and gives
            // them back later, when nobody drops them any more.
            return receiver->isWidgetType() || receiver->isWindowType();
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
            return receiver->isWidgetType();
        case QEvent::Shortcut: // sent to what it triggers
            return true;
        default:
            return false;
        }
    }

private:
    static void closeSoon(QObject* receiver)
    {
        if (auto* widget = qobject_cast<QWidget*>(receiver))
            QMetaObject::invokeMethod(
                widget, [widget] { widget->close(); }, Qt::QueuedConnection);
        else if (auto* window = qobject_cast<QWindow*>(receiver))
            QMetaObject::invokeMethod(
                window, [window] { window->close(); }, Qt::QueuedConnection);
    }

    std::vector<QPointer<QObject>> m_toClose;
};

} // namespace

void discardPendingInput()
{
    const InputFilter filter;
    QCoreApplication::processEvents();
}

} // namespace power
