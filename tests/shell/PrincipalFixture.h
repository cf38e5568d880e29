// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/Principal.h"

#include "support/ScriptedDialogs.h"
#include "support/Text.h"
#include "window/ChildWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

/// A frame that is the active window, with scripted dialogs and the samples at hand.
class Principal : public ::testing::Test {
protected:
    Principal()
    {
        frame.show();
        QApplication::setActiveWindow(&frame);
        QApplication::processEvents();
    }

    QMdiArea& area() { return *frame.findChild<QMdiArea*>(); }
    QList<QMdiSubWindow*> children() { return area().subWindowList(); }
    QString status() { return frame.findChild<QLabel*>(QStringLiteral("Status"))->text(); }
    QString sample(const char* name) const
    {
        return QStringLiteral(CL_SOURCE_DIR "/ejemplos/") + QString::fromUtf8(name);
    }

    QStringList bar()
    {
        QStringList titles;
        for (const QAction* action : frame.menuBar()->actions())
            titles << action->text();
        return titles;
    }

    /// The entry at the end of a path of menus, such as {"&Archivo", "&Nuevo", "..."}.
    QAction* entry(const QStringList& path)
    {
        QList<QAction*> level = frame.menuBar()->actions();
        QAction* found = nullptr;
        for (const QString& text : path) {
            found = nullptr;
            for (QAction* action : level) {
                if (action->text() == text)
                    found = action;
            }
            if (found == nullptr)
                return nullptr;
            if (found->menu() != nullptr)
                level = found->menu()->actions();
        }
        return found;
    }

    /// Every entry of a menu and its submenus, separators left out.
    static QList<QAction*> entriesBelow(const QMenu& menu)
    {
        QList<QAction*> entries;
        for (QAction* action : menu.actions()) {
            if (!action->isSeparator())
                entries << action;
            if (action->menu() != nullptr)
                entries += entriesBelow(*action->menu());
        }
        return entries;
    }

    void closeUnsaved(QMdiSubWindow* child)
    {
        dialogs.yesNoAnswers.push_back(false);
        child->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void openSample(const char* name)
    {
        dialogs.openAnswers.push_back(sample(name));
        frame.AbrirArchivo1Click();
    }

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    shell::TPrincipal frame{dialogs};
};
