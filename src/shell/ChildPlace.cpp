// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ChildPlace.h"

#include <QApplication>
#include <QFocusEvent>

namespace shell {

ChildPlace::ChildPlace(QWidget* child)
{
    setWidget(child);
    setWindowIcon(child->windowIcon());
    setAttribute(Qt::WA_DeleteOnClose);
    connect(qApp, &QApplication::focusChanged, this, &ChildPlace::focusMoved);
    connect(this, &QMdiSubWindow::aboutToActivate, this,
            [this] { m_isComingBack = !isAncestorOf(QApplication::focusWidget()); });
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this] {
        if (hasFocus() && !isMinimized())
            giveFocusBack();
    });
}

/// The focus moves once more where a menu of the child goes with it, and then there is no place
/// left to be told.
ChildPlace::~ChildPlace()
{
    qApp->disconnect(this);
}

/// Qt hides a child for a moment in order to maximise or restore it, which it also does each time
/// another one takes over as the maximised child. The focus would go on to the next control.
bool ChildPlace::focusNextPrevChild(bool next)
{
    return isVisible() && QMdiSubWindow::focusNextPrevChild(next);
}

void ChildPlace::focusInEvent(QFocusEvent* event)
{
    m_isTabbing =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QMdiSubWindow::focusInEvent(event);
}

/// Qt has a memory of its own for the control to come back to, but not a good one: it may be one
/// that had the focus before the last, or, where that one is gone as the editor of a cell is once
/// the child is left, the first control or the bare place.
void ChildPlace::focusMoved(QWidget* from, QWidget* to)
{
    if (to != this && !isAncestorOf(to))
        return;
    const bool isHidden = to != this && !to->isVisibleTo(this);
    if (isHidden) { // in a minimised child, or one on its way from there
        setFocus();
        return;
    }
    const bool isGone = !m_focus.isEmpty() && !canTakeFocus(m_focus.first());
    const bool isFromOutside =
        (from == this && !m_isTabbing) || (m_isComingBack && !isAncestorOf(from));
    const bool isChoiceOfQt = to == this ? isGone : isFromOutside;
    if (isChoiceOfQt && giveFocusBack())
        return;
    if (to == this)
        return;
    m_isComingBack = false;
    m_focus.clear();
    for (QWidget* around = to; around != this; around = around->parentWidget())
        m_focus.append(around);
}

bool ChildPlace::canTakeFocus(const QWidget* control) const
{
    return control != nullptr && control->isVisibleTo(this) && control->isEnabled() &&
           control->focusPolicy() != Qt::NoFocus;
}

/// @return whether there was a control to give it to
bool ChildPlace::giveFocusBack()
{
    for (const QPointer<QWidget>& control : QList(m_focus)) {
        if (canTakeFocus(control)) {
            control->setFocus();
            return true;
        }
    }
    return false;
}

} // namespace shell
