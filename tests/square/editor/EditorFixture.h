// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFile.h"
#include "grid/view/NTabEd.h"
#include "square/editor/Formeditor.h"
#include "square/file/SquareBytes.h"
#include "support/CellTyping.h"
#include "support/ScriptedDialogs.h"
#include "support/SquareContents.h"
#include "window/HandOff.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <stdexcept>

/// An editor in a window of its own, with scripted dialogs and a folder that goes with the test.
class EditorTest : public ::testing::Test {
protected:
    /// Makes the editor, shows it and puts its menu into the window's bar.
    square::TEditor& open()
    {
        m_host = std::make_unique<QMainWindow>();
        m_editor = new square::TEditor(m_handOff, m_dialogs, m_host.get());
        QObject::connect(m_editor, &window::ChildWindow::statusText,
                         [this](const QString& text) { m_status.append(text); });
        QObject::connect(m_editor, &window::ChildWindow::notice,
                         [this](const QString& text) { m_notices.append(text); });
        QObject::connect(m_editor, &square::TEditor::analysisRequested, [this] {
            EXPECT_TRUE(m_editor->Saved());
            m_requests.append(squarebytes::utf8("analyse ") + m_handOff.pendingFileName);
            m_handOff.fileOpened = m_analysisStands;
        });
        QObject::connect(m_editor, &window::ChildWindow::closeRequested,
                         [this] { m_requests.append(squarebytes::utf8("close")); });
        m_host->setCentralWidget(m_editor);
        m_host->menuBar()->addMenu(m_editor->menu());
        m_host->show();
        m_host->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_host.get()));
        return *m_editor;
    }

    /// An editor that opens a file of these bytes on its creation.
    square::TEditor& openWith(const QByteArray& bytes)
    {
        m_handOff.openOnCreate = true;
        m_dialogs.openAnswers.push_back(fileOf(bytes));
        return open();
    }

    QString path(const char* name) const { return m_folder.filePath(squarebytes::utf8(name)); }
    QString fileOf(const QByteArray& bytes, const char* name = "a.asc") const
    {
        EXPECT_EQ(base::writeFile(path(name), bytes), std::nullopt);
        return path(name);
    }
    QByteArray bytesOf(const char* name) const
    {
        return base::readFile(path(name)).value_or(QByteArray("no such file"));
    }
    QStringList entries() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    grid::TNTabEd& table(const char* name) const
    {
        return *m_editor->findChild<grid::TNTabEd*>(squarebytes::utf8(name));
    }
    grid::TNTabEd& datos() const { return table("Datos"); }
    grid::TNTabEd& reference() const { return table("RefTratamientos"); }
    QSpinBox& spinner() const
    {
        return *m_editor->findChild<QSpinBox*>(QStringLiteral("NumTratamientos"));
    }
    QLineEdit& edit(const char* name) const
    {
        return *m_editor->findChild<QLineEdit*>(squarebytes::utf8(name));
    }
    QAction& action(const char* name) const
    {
        return *m_editor->menu()->findChild<QAction*>(squarebytes::utf8(name));
    }

    /// An entry of one of the context menus of the data.
    QAction& entry(const char* menu, const char* text) const
    {
        for (QAction* action : datos().findChild<QMenu*>(squarebytes::utf8(menu))->actions()) {
            if (action->text() == squarebytes::utf8(text))
                return *action;
        }
        throw std::runtime_error(text);
    }

    /// Opens a cell, as a user does, and types into it; the cell stays open.
    void typeIntoCell(int column, int row, const char* text)
    {
        ::typeIntoCell(datos(), column, row, QString::fromLatin1(text));
    }
    void enterIntoCell(int column, int row, const char* text)
    {
        typeIntoCell(column, row, text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    bool cellIsOpen() const { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }

    static QStringList columnNames(const grid::TNTabEd& table)
    {
        return ::columnNames(table.square());
    }
    static QStringList rowNames(const grid::TNTabEd& table) { return ::rowNames(table.square()); }
    static std::vector<double> values(const grid::TNTabEd& table)
    {
        return ::observations(table.square());
    }

    /// The names "prefix 1", "prefix 2", ...
    static QStringList numbered(const char* prefix, int count)
    {
        QStringList names;
        for (int i = 1; i <= count; ++i)
            names += QStringLiteral("%1 %2").arg(squarebytes::utf8(prefix)).arg(i);
        return names;
    }

    /// Everything that a refused command must leave as it was.
    struct State {
        std::vector<double> data;
        std::vector<double> treatments;
        QStringList names;
        QByteArray identifier;
        QString spinner;
        QString caption;
        QString fileName;
        bool saved;

        bool operator==(const State&) const = default;
    };
    State state() const
    {
        return {values(datos()),
                values(reference()),
                columnNames(datos()) + rowNames(datos()) + columnNames(reference()) +
                    rowNames(reference()),
                datos().Identifier(),
                spinner().text(),
                m_editor->windowTitle(),
                m_editor->FileName(),
                m_editor->Saved()};
    }

    window::HandOff m_handOff;
    ScriptedDialogs m_dialogs;
    QTemporaryDir m_folder;
    std::unique_ptr<QMainWindow> m_host;
    QPointer<square::TEditor> m_editor;
    QStringList m_status;
    QStringList m_notices;
    QStringList m_requests;       ///< What the editor asked of the frame.
    bool m_analysisStands = true; ///< Whether an analysis that it asks for can open the file.
};
