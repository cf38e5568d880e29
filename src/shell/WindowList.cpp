// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowList.h"

#include "window/Caption.h"
#include "window/Command.h"

#include <QActionGroup>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

namespace shell {

namespace {

/// "&3 Editor - a&&b.asc": the first nine numbers are keys, and a caption has none of its own.
QString entryText(int number, QString caption)
{
    const QString key = number < 10 ? QStringLiteral("&%1").arg(number) : QString::number(number);
    return key + QLatin1Char(' ') + caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

WindowList::WindowList(QMdiArea& area, QMenu& menu)
    : QObject(&menu)
    , m_area(area)
    , m_menu(menu)
{
    connect(&menu, &QMenu::aboutToShow, this, &WindowList::fill);
}

WindowList::~WindowList() = default;

void WindowList::fill()
{
    m_entries = std::make_unique<QActionGroup>(nullptr); // the old entries leave with the old group
    const QList<QMdiSubWindow*> children = m_area.subWindowList();
    if (!children.isEmpty())
        m_entries->addAction(m_menu.addSeparator())->setParent(m_entries.get());
    int number = 0;
    for (QMdiSubWindow* child : children) {
        auto* entry =
            new QAction(entryText(++number, window::readCaption(child->widget()->windowTitle())),
                        m_entries.get());
        entry->setStatusTip(QStringLiteral("Pasa a esta ventana"));
        entry->setCheckable(true);
        entry->setChecked(child == m_area.activeSubWindow());
        window::connectCommand(entry, &QAction::triggered, child,
                               [this, child] { m_area.setActiveSubWindow(child); });
        m_menu.addAction(m_entries->addAction(entry));
    }
}

} // namespace shell
