// SPDX-License-Identifier: GPL-3.0-or-later
// What steps do to a square. What cannot be foretold is learnt from the window, as far as no
// observation can be lost in it.
#include "reliability/monkey/Account.h"

#include <algorithm>

namespace monkey {

namespace {

/// The observations of one table in the frame of another.
bool hasSameStore(const Table& table, const Table& other)
{
    Table resized = other;
    resized.columns = table.columns;
    resized.rows = table.rows;
    return difference(table, resized).isEmpty();
}

} // namespace

void Account::load(Window& window)
{
    QString name;
    for (const Exchange& exchange : exchangesOf(window)) {
        if (exchange.what == Exchange::What::Open && exchange.answer != window::Answer::None)
            name = exchange.text;
    }
    if (name.isEmpty())
        return;
    std::optional<Table> table = readSquare(m_folder.accepted(name));
    if (wasToldOfError(window, QString())) {
        if (table)
            wrong(QStringLiteral("%1: could not load %2").arg(window.name(), name));
        return;
    }
    if (!table) {
        wrong(QStringLiteral("%1: loaded %2, which is no square").arg(window.name(), name));
        return;
    }
    table->rowPrefix = window.memory.now.rowPrefix;
    table->columnPrefix = window.memory.now.columnPrefix;
    window.memory.load(*table, {name, m_folder.accepted(name), true});
}

/// Another order, whose grown cells show what they held before.
void Account::learnOrder(Window& window)
{
    const Table table = shown(window);
    Table after = window.memory.now;
    after.columns = table.columns;
    after.rows = table.rows;
    if (!hasSameStore(table, window.memory.now))
        wrong(QStringLiteral("%1: another order, other observations").arg(window.name()));
    window.memory.changeAround(after, shapesOf(window) != window.shapes);
}

void Account::learnPrefixes(Window& window)
{
    const Table table = shown(window);
    Table after = window.memory.now;
    if (table.rowPrefix != after.rowPrefix) {
        after.rowPrefix = table.rowPrefix;
        window.memory.changeAround(after, true, SquareMemory::Kind::RowPrefix);
    }
    if (table.columnPrefix != after.columnPrefix) {
        after.columnPrefix = table.columnPrefix;
        window.memory.changeAround(after, true, SquareMemory::Kind::ColumnPrefix);
    }
}

void Account::learnLooks(Window& window)
{
    if (looksOf(window) != window.looks)
        window.memory.changeLooks();
}

/// A paste of which it is known what it makes, or else that it is refused.
void Account::learnPaste(Window& window, const std::optional<Table>& wanted)
{
    if (wasToldOfError(window, QString())) {
        if (wanted)
            wrong(QStringLiteral("%1: numbers could not be pasted").arg(window.name()));
        return;
    }
    if (wanted)
        window.memory.change(*wanted);
}

/// An experiment takes the place of the table: each observation once, in whatever cell.
void Account::learnExtraction(Window& window, std::vector<double> values)
{
    if (wasToldOfError(window, QString()))
        return;
    Table after = shown(window);
    std::vector<double> found;
    for (int row = 1; row <= after.rows; ++row) {
        for (int column = 1; column <= after.columns; ++column)
            found.push_back(after.value(column, row));
    }
    std::sort(found.begin(), found.end());
    std::sort(values.begin(), values.end());
    if (found != values)
        wrong(QStringLiteral("%1: not the observations that were extracted").arg(window.name()));
    window.memory.replace(after);
}

void Account::editIdentifier(Window& window)
{
    for (const Exchange& exchange : exchangesOf(window)) {
        if (exchange.what != Exchange::What::Line || exchange.answer == window::Answer::None ||
            exchange.text == QString::fromUtf8(window.memory.now.identifier))
            continue;
        Table after = window.memory.now;
        after.identifier = exchange.text.toUtf8();
        window.memory.change(after);
    }
}

void Account::undo(Window& window, bool mayChange)
{
    window.memory.undo(mayChange, onDisk());
}

void Account::redo(Window& window, bool mayChange)
{
    window.memory.redo(mayChange, onDisk());
}

} // namespace monkey
