// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/walk/Differences.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QShortcutEvent>
#include <QTest>
#include <QWindow>

#include <map>

namespace walk {

namespace {

/// Who answers to a key, by key.
using Owners = std::map<QKeySequence, QStringList>;

/// Takes every command's key away from it and remembers whose it was.
class KeyCatcher : public QObject {
public:
    KeyCatcher() { qApp->installEventFilter(this); }
    KeyCatcher(const KeyCatcher&) = delete;
    KeyCatcher& operator=(const KeyCatcher&) = delete;
    ~KeyCatcher() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::Shortcut)
            return false;
        m_commands << nameOf(*receiver);
        if (static_cast<const QShortcutEvent*>(event)->isAmbiguous())
            m_commands << QStringLiteral("and others");
        return true;
    }

    QString commands() const { return m_commands.join(u'|'); }

private:
    static QString nameOf(const QObject& receiver)
    {
        if (const auto* action = qobject_cast<const QAction*>(&receiver))
            return action->text().section(u'\t', 0, 0);
        if (const auto* button = qobject_cast<const QAbstractButton*>(&receiver))
            return button->text();
        return QString::fromLatin1(receiver.metaObject()->className());
    }

    QStringList m_commands;
};

/// The keys and tips of a menu and its submenus. The letters of a level must differ.
void lookAt(QStringList& lines, Owners& owners, const QMenu& menu)
{
    Owners letters;
    for (const QAction* entry : menu.actions()) {
        if (entry->isSeparator())
            continue;
        if (entry->statusTip().isEmpty())
            lines << QStringLiteral("without a status tip: ") + entry->text();
        letters[QKeySequence::mnemonic(entry->text())] << entry->text();
        if (entry->isEnabled() && entry->isVisible()) {
            for (const QKeySequence& key : entry->shortcuts())
                owners[key] << entry->text();
        }
        if (entry->menu() != nullptr)
            lookAt(lines, owners, *entry->menu());
    }
    for (const auto& [letter, entries] : letters) {
        if (!letter.isEmpty() && entries.size() > 1)
            lines << QStringLiteral("one letter for ") + entries.join(u'|');
    }
}

void lookAtBar(QStringList& lines, Owners& owners, const QMenuBar& bar)
{
    for (const QAction* title : bar.actions()) {
        if (!title->isEnabled() || !title->isVisible())
            lines << QStringLiteral("not to be opened: ") + title->text();
        owners[QKeySequence::mnemonic(title->text())] << title->text();
        lookAt(lines, owners, *title->menu());
    }
}

/// The keys that the active child answers to itself, and its place.
void lookAtPlace(Owners& owners, QMdiSubWindow& place)
{
    for (const QAction* entry : place.systemMenu()->actions()) {
        for (const QKeySequence& key : entry->shortcuts())
            owners[key] << entry->text();
    }
    for (const auto* button : place.findChildren<QAbstractButton*>()) {
        if (button->isEnabled() && button->isVisible() && !button->shortcut().isEmpty())
            owners[button->shortcut()] << button->text();
    }
    for (const auto* shortcut : place.findChildren<QShortcut*>())
        owners[shortcut->key()] << QStringLiteral("a shortcut of the child");
}

/// Presses each key and sees whom it would reach, without letting it do anything.
void comparePressedKeys(QStringList& lines, const FrameModel& model, const shell::TPrincipal& frame)
{
    for (const LiveKey& live : model.liveKeys()) {
        const KeyCatcher catcher;
        QTest::keyClick(frame.windowHandle(), live.key[0].key(), live.key[0].keyboardModifiers());
        compare(lines, QStringLiteral("key ") + live.key.toString(), catcher.commands(),
                live.command);
    }
}

} // namespace

QStringList menuDifferences(const FrameModel& model, shell::TPrincipal& frame)
{
    QStringList lines;
    Owners owners;
    lookAtBar(lines, owners, *frame.menuBar());
    if (QMdiSubWindow* place = frame.findChild<QMdiArea*>()->activeSubWindow())
        lookAtPlace(owners, *place);
    for (const auto& [key, commands] : owners) {
        if (!key.isEmpty() && commands.size() > 1)
            lines << QStringLiteral("key %1 for %2").arg(key.toString(), commands.join(u'|'));
    }
    if (model.isFrameActive())
        comparePressedKeys(lines, model, frame);
    return lines;
}

} // namespace walk
