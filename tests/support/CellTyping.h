// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTableView>
#include <QTest>

/// Opens the current cell of a table, as a user does, and types into it; the cell stays open.
inline void typeIntoCurrentCell(QTableView& table, const QString& text)
{
    QTest::keyClicks(&table, text.left(1));
    QWidget* editor = QApplication::focusWidget();
    ASSERT_NE(editor, static_cast<QWidget*>(&table)) << "the cell did not open";
    QTest::keyClicks(editor, text.mid(1));
}

/// The same in the cell of a column and row, both from 1.
inline void typeIntoCell(QTableView& table, int column, int row, const QString& text)
{
    table.setFocus();
    table.setCurrentIndex(table.model()->index(row - 1, column - 1));
    typeIntoCurrentCell(table, text);
}
