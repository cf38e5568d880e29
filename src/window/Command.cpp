// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Command.h"

#include "window/Icons.h"

#include <QShortcutEvent>

namespace window {

namespace {

/// A button whose key does at once what a click does. Qt's own is first shown pressed for a tenth
/// of a second, and then acts in the middle of what its user has begun to type.
class CommandButton : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::Shortcut ||
            static_cast<const QShortcutEvent*>(event)->isAmbiguous())
            return QToolButton::event(event);
        click();
        return true;
    }
};

} // namespace

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
    auto* button = new CommandButton(parent);
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
