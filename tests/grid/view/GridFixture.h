// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/view/NTabEd.h"
#include "support/ScriptedDialogs.h"
#include "support/SquareContents.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <vector>

/// All that a user sees of a table and its file would keep.
struct Snapshot {
    std::vector<double> values;
    QStringList shown;
    QStringList names;
    QByteArray identifier;
    bool operator==(const Snapshot&) const = default;
};

/// A grid in an active window, driven by keys and clicks as a user does.
class GridFixture : public ::testing::Test {
protected:
    GridFixture()
        : table(dialogs)
    {
        QLocale::setDefault(QLocale::c());
        table.resize(640, 320);
        table.show();
        QApplication::setActiveWindow(&table);
        table.setFocus();
        (void)QTest::qWaitForWindowActive(&table);
    }

    ~GridFixture() override { QLocale::setDefault(QLocale::c()); }

    QModelIndex indexOf(int column, int row) const
    {
        return table.model()->index(row - 1, column - 1);
    }

    QString shown(int column, int row) const { return indexOf(column, row).data().toString(); }

    QPoint centerOf(int column, int row) const
    {
        return table.visualRect(indexOf(column, row)).center();
    }

    void click(int column, int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, centerOf(column, row));
    }

    void doubleClick(int column, int row)
    {
        click(column, row);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, centerOf(column, row));
    }

    /// Clicks the first cell and, with Shift, the last one.
    void selectCells(int column, int row, int lastColumn, int lastRow)
    {
        click(column, row);
        click(lastColumn, lastRow, Qt::ShiftModifier);
    }

    /// Keys go where the focus is, as the desktop sends them.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static void type(const char* text)
    {
        for (; *text != '\0'; ++text) {
            ASSERT_NE(QApplication::focusWidget(), nullptr);
            QTest::keyClick(QApplication::focusWidget(), *text);
        }
    }

    /// The open cell, null when none is.
    QLineEdit* editor() const
    {
        for (auto* line : table.findChildren<QLineEdit*>(QStringLiteral("CellEditor"))) {
            if (line->isVisible())
                return line;
        }
        return nullptr;
    }

    int currentColumn() const { return table.currentIndex().column() + 1; }
    int currentRow() const { return table.currentIndex().row() + 1; }

    QMenu* menu(const char* name) const
    {
        return table.findChild<QMenu*>(QString::fromLatin1(name));
    }

    /// Opens the menu of a cell with the right mouse button.
    QMenu* openCellMenu(int column, int row)
    {
        const QPoint at = centerOf(column, row);
        QTest::mouseClick(table.viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, table.viewport()->mapToGlobal(at));
        QApplication::sendEvent(table.viewport(), &event);
        return menu("CellMenu");
    }

    /// Opens the menu of a header's widget at a point of it.
    QMenu* openHeaderMenu(QWidget* header, QPoint at)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, header->mapToGlobal(at));
        QApplication::sendEvent(header, &event);
        return menu("HeaderMenu");
    }

    QMenu* openColumnMenu(int column)
    {
        QHeaderView* header = table.horizontalHeader();
        const int x = header->sectionViewportPosition(column - 1) + 5;
        return openHeaderMenu(header->viewport(), QPoint(x, header->height() / 2));
    }

    /// Clicks an entry of an open menu.
    static void choose(QMenu* menu, const char* text)
    {
        for (QAction* action : menu->actions()) {
            if (action->text() == QString::fromLatin1(text)) {
                ASSERT_TRUE(menu->isVisible());
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
                return;
            }
        }
        FAIL() << "no entry " << text;
    }

    /// Opens a submenu of an open menu with the cursor keys and clicks an entry of it.
    static void choose(QMenu* menu, const char* submenu, const char* text)
    {
        const QString wanted = QString::fromLatin1(submenu);
        for (int i = 0; i < menu->actions().size(); ++i) {
            QTest::keyClick(menu, Qt::Key_Down);
            if (menu->activeAction() != nullptr && menu->activeAction()->text() == wanted)
                break;
        }
        ASSERT_NE(menu->activeAction(), nullptr);
        ASSERT_EQ(menu->activeAction()->text(), wanted);
        ASSERT_TRUE(menu->activeAction()->isEnabled());
        QMenu* opened = menu->activeAction()->menu();
        QTest::keyClick(menu, Qt::Key_Right);
        choose(opened, text);
    }

    static void setClipboard(const QString& text) { QApplication::clipboard()->setText(text); }
    static QString clipboard() { return QApplication::clipboard()->text(); }

    /// Numbers 11, 12, ... 21, ...: ten times the row and the column.
    void fill()
    {
        for (int row = 1; row <= table.NrOfRows(); ++row) {
            for (int column = 1; column <= table.NrOfColumns(); ++column)
                table.setValue(column, row, 10 * row + column);
        }
    }

    /// All numbers, row by row.
    std::vector<double> values() const { return observations(table.square()); }

    Snapshot snapshot() const
    {
        Snapshot state;
        for (int row = 1; row <= table.NrOfRows(); ++row) {
            state.names += table.rowName(row);
            for (int column = 1; column <= table.NrOfColumns(); ++column) {
                state.values.push_back(table.value(column, row));
                state.shown += shown(column, row);
                state.shown += indexOf(column, row).data(Qt::ForegroundRole).value<QColor>().name();
            }
        }
        for (int column = 1; column <= table.NrOfColumns(); ++column)
            state.names += table.columnName(column);
        state.identifier = table.Identifier();
        return state;
    }

    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }

    ScriptedDialogs dialogs;
    grid::TNTabEd table;
};
