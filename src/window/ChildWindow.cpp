// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ChildWindow.h"

#include <QCloseEvent>
#include <QPointer>

namespace window {

ChildWindow::ChildWindow(QWidget* parent)
    : QWidget(parent)
{
}

void ChildWindow::closeUnasked()
{
    const QPointer<ChildWindow> stillThere(this);
    m_wasAsked = true;
    emit closeRequested();
    if (stillThere)
        m_wasAsked = false; // who stays after all is asked the next time
}

void ChildWindow::closeEvent(QCloseEvent* event)
{
    const QPointer<ChildWindow> stillThere(this);
    event->setAccepted(m_wasAsked || mayClose());
    if (event->isAccepted() && stillThere)
        FormClose();
}

} // namespace window
