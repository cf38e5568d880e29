// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Arrangement.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace shell {

Arrangement::Arrangement(const QMdiArea& area)
    : m_active(area.activeSubWindow())
    , m_isMaximised(m_active && m_active->isMaximized())
{
    for (QMdiSubWindow* child : area.subWindowList(QMdiArea::ActivationHistoryOrder)) {
        m_children.append(child);
        if (child->isMinimized())
            m_minimised.append(child);
    }
}

void Arrangement::restore(QMdiArea& area) const
{
    if (Arrangement(area) == *this)
        return;
    area.setUpdatesEnabled(false);
    // While one is maximised, each that is activated would take over from it.
    QMdiSubWindow* inFront = area.activeSubWindow();
    if (inFront != nullptr && inFront->isMaximized())
        inFront->showNormal();
    for (const QPointer<QMdiSubWindow>& child : m_minimised) {
        if (child && !child->isMinimized())
            child->showMinimized();
    }
    for (const QPointer<QMdiSubWindow>& child : m_children) {
        if (child)
            area.setActiveSubWindow(child);
    }
    area.setActiveSubWindow(m_active);
    if (m_active && m_isMaximised)
        m_active->showMaximized();
    area.setUpdatesEnabled(true);
}

} // namespace shell
