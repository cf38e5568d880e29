// SPDX-License-Identifier: GPL-3.0-or-later
// Typing numbers, and where the cursor goes.
#include "reliability/monkey/Monkey.h"

#include <QTest>

namespace monkey {

namespace {

const char* const texts[] = {"12,5", "-3.25",  "7",       "0",     "1e3",      "3.14159265358979",
                             "-0",   "1234,5", "1.234,5", "1.2.3", "a12",      "5,",
                             "+4",   ".5",     "1e999",   "--2",   "98765432", "0,000000123456789"};

} // namespace

Monkey::Told Monkey::typeCharacter(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    const QChar character = QStringLiteral("0123456789,.-e")[below(random, 14)];
    type(character);
    return QStringLiteral("type «%1» in %2").arg(character).arg(window->name());
}

Monkey::Told Monkey::typeNumber(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    const bool isOdd = oneIn(random, 3);
    const QString text =
        isOdd ? QString::fromLatin1(texts[below(random, static_cast<int>(std::size(texts)))])
              : QString::number(below(random, 100'000) / 8.0);
    type(text);
    return QStringLiteral("type «%1» in %2").arg(text, window->name());
}

Monkey::Told Monkey::leaveCell(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    constexpr Qt::Key keys[] = {Qt::Key_Return,  Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab,
                                Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down};
    const Qt::Key key = keys[below(random, static_cast<int>(std::size(keys)))];
    press(key);
    aim(*window, [](Window&) {});
    return QStringLiteral("press %1 in %2").arg(QKeySequence(key).toString(), window->name());
}

Monkey::Told Monkey::forgetCell(Random&)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    press(Qt::Key_Escape);
    aim(*window, [](Window&) {});
    m_deed.forgetsCell = true;
    return QStringLiteral("press Esc in %1").arg(window->name());
}

Monkey::Told Monkey::moveCursor(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    constexpr Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,
                                Qt::Key_Home, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End};
    const Qt::Key key = keys[below(random, static_cast<int>(std::size(keys)))];
    const bool isShifted = oneIn(random, 3);
    press(key, isShifted ? Qt::ShiftModifier : Qt::NoModifier);
    return QStringLiteral("press %1%2 in %3")
        .arg(isShifted ? QStringLiteral("Shift+") : QString(), QKeySequence(key).toString(),
             window->name());
}

Monkey::Told Monkey::clickCell(Random& random)
{
    Window* window = active();
    const int column = 1 + below(random, 6);
    const int row = 1 + below(random, 6);
    if (window == nullptr || !window->hasSquare() || column > window->grid()->NrOfColumns() ||
        row > window->grid()->NrOfRows() || !canClickCell(*window->grid(), column, row))
        return std::nullopt;
    m_hands.clickFrame(cellPoint(*window->grid(), column, row));
    return QStringLiteral("click on column %1, row %2 of %3")
        .arg(column)
        .arg(row)
        .arg(window->name());
}

Monkey::Told Monkey::openCell(Random& random)
{
    Window* window = active();
    const int column = 1 + below(random, 4);
    const int row = 1 + below(random, 4);
    if (window == nullptr || !window->hasSquare() || column > window->grid()->NrOfColumns() ||
        row > window->grid()->NrOfRows() || !canClickCell(*window->grid(), column, row))
        return std::nullopt;
    m_hands.clickFrame(cellPoint(*window->grid(), column, row));
    m_hands.doubleClickFrame(cellPoint(*window->grid(), column, row));
    return QStringLiteral("double click on column %1, row %2 of %3")
        .arg(column)
        .arg(row)
        .arg(window->name());
}

Monkey::Told Monkey::dragOverCells(Random& random)
{
    Window* window = active();
    const int columns[] = {1 + below(random, 4), 1 + below(random, 4)};
    const int rows[] = {1 + below(random, 4), 1 + below(random, 4)};
    if (window == nullptr || !window->hasSquare())
        return std::nullopt;
    const grid::TNTabEd& grid = *window->grid();
    for (const int end : {0, 1}) {
        if (columns[end] > grid.NrOfColumns() || rows[end] > grid.NrOfRows() ||
            !canClickCell(grid, columns[end], rows[end]))
            return std::nullopt;
    }
    QWindow* frame = m_frame.windowHandle();
    const QPoint from = cellPoint(grid, columns[0], rows[0]);
    const QPoint to = cellPoint(grid, columns[1], rows[1]);
    QTest::mouseMove(frame, from);
    QTest::mousePress(frame, Qt::LeftButton, {}, from);
    QTest::mouseMove(frame, (from + to) / 2);
    QTest::mouseMove(frame, to);
    QTest::mouseRelease(frame, Qt::LeftButton, {}, to);
    return QStringLiteral("drag over cells of %1").arg(window->name());
}

} // namespace monkey
