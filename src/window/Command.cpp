// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Command.h"

#include "window/Icons.h"

namespace window {

QAction* addEntry(QMenu& menu, const Command& command)
{
    QAction* entry = menu.addAction(icon(command.picture), command.text);
    entry->setObjectName(command.name);
    entry->setStatusTip(command.tip);
    entry->setShortcut(command.shortcut);
    return entry;
}

QToolButton* createButton(const Command& command, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(command.name);
    button->setText(command.text);
    button->setAccessibleName(command.text);
    button->setIcon(icon(command.picture));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setShortcut(command.shortcut);
    const QString key = command.shortcut.toString(QKeySequence::NativeText);
    button->setToolTip(key.isEmpty() ? command.tip
                                     : QStringLiteral("%1 (%2)").arg(command.tip, key));
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace window
