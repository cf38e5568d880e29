// SPDX-License-Identifier: GPL-3.0-or-later
// What is done to cells by keys and by the menus of the grid.
#include "reliability/monkey/Monkey.h"

#include <QApplication>
#include <QClipboard>

namespace monkey {

namespace {

const char* const scopes[] = {"Range", "Column", "Row", "All"};

/// A rectangle of numbers as a spreadsheet copies it.
struct Block {
    int columns;
    int rows;
    std::vector<double> values;
    QString text;
};

Block block(Random& random)
{
    Block made{1 + below(random, 4), 1 + below(random, 4), {}, {}};
    const QChar point = oneIn(random, 2) ? u',' : u'.';
    const QString lineEnd = oneIn(random, 2) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    for (int i = 0; i < made.rows * made.columns; ++i) {
        made.values.push_back((below(random, 16'000) - 8'000) / 16.0);
        made.text += QString::number(made.values.back(), 'f', 4).replace(u'.', point) +
                     ((i + 1) % made.columns == 0 ? lineEnd : QStringLiteral("\t"));
    }
    return made;
}

/// What nobody can paste as numbers.
QString nonsense(Random& random)
{
    const char* const texts[] = {"",
                                 "palabras",
                                 "1\t2\n3",
                                 "1,5\t1.5.5\n2\t3",
                                 "\n\n\n",
                                 "A 24\tB",
                                 "1\t\t2",
                                 "nan\tinf",
                                 "=SUMA(A1:A3)",
                                 "1e999",
                                 "12\t13a",
                                 "\"12\t13",
                                 "Fila 1\t7,5",
                                 "0x10"};
    return QString::fromLatin1(texts[below(random, static_cast<int>(std::size(texts)))]);
}

/// A square with its letters as a spreadsheet copies it: the rows in the order of the treatments'
/// cycle, so that every reader finds the same one.
QString experimentText(Random& random, std::vector<double>& values)
{
    const int order = 3 + below(random, 3);
    QString text;
    for (int row = 0; row < order; ++row) {
        for (int column = 0; column < order; ++column) {
            values.push_back(below(random, 4'000) / 8.0 + 100);
            text += QStringLiteral("%1 %2%3")
                        .arg(QChar('A' + (row + column) % order))
                        .arg(values.back(), 0, 'f', 3)
                        .arg(QChar(column + 1 < order ? u'\t' : u'\n'));
        }
    }
    return text;
}

} // namespace

Monkey::Told Monkey::clearByKey(Random&)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    const QRect range = rangeOf(*window->grid(), 0);
    const bool mayChange = window->grid()->editingAllowed();
    press(Qt::Key_Delete);
    aim(*window, [range, mayChange](Window& aimed) {
        Table after = aimed.memory.now;
        for (int row = range.top(); mayChange && row <= range.bottom(); ++row) {
            for (int column = range.left(); column <= range.right(); ++column)
                after.set(column, row, 0);
        }
        aimed.memory.change(after);
    });
    return QStringLiteral("clear %1 x %2 cells of %3 by key")
        .arg(range.width())
        .arg(range.height())
        .arg(window->name());
}

Monkey::Told Monkey::clearByMenu(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    const int scope = below(random, 4);
    const QRect range = rangeOf(*window->grid(), scope);
    const bool mayChange = window->grid()->editingAllowed();
    if (!mayChange)
        return std::nullopt;
    const QString name = QString::fromLatin1(scopes[scope]);
    chooseOfGrid(*window, "CellMenu", {QStringLiteral("Clear"), name});
    aim(*window, [range](Window& aimed) {
        Table after = aimed.memory.now;
        for (int row = range.top(); row <= range.bottom(); ++row) {
            for (int column = range.left(); column <= range.right(); ++column)
                after.set(column, row, 0);
        }
        aimed.memory.change(after);
    });
    return QStringLiteral("clear %1 of %2 by menu").arg(name, window->name());
}

Monkey::Told Monkey::mark(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    const char* const entries[] = {"Mark as type A", "Mark as type B", "Unmark type A",
                                   "Unmark type B", "Unmark All"};
    const QString entry = QString::fromLatin1(entries[below(random, 5)]);
    chooseOfGrid(*window, "CellMenu", {entry});
    aim(*window, [this](Window& aimed) { m_account.learnLooks(aimed); });
    return QStringLiteral("%1 in %2").arg(entry, window->name());
}

Monkey::Told Monkey::copy(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    if (oneIn(random, 2))
        press(Qt::Key_C, Qt::ControlModifier);
    else
        chooseOfGrid(*window, "CellMenu",
                     {QStringLiteral("Copy"), QString::fromLatin1(scopes[below(random, 4)])});
    return QStringLiteral("copy cells of %1").arg(window->name());
}

Monkey::Told Monkey::paste(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    const bool byKey = oneIn(random, 2);
    const bool mayChange = window->grid()->editingAllowed();
    const QRect range = rangeOf(*window->grid(), 0);
    std::optional<Block> numbers;
    if (!oneIn(random, 4))
        numbers = block(random);
    QApplication::clipboard()->setText(numbers ? numbers->text : nonsense(random));
    const bool fits = numbers && !range.isEmpty() &&
                      range.left() + numbers->columns - 1 <= window->grid()->NrOfColumns() &&
                      range.top() + numbers->rows - 1 <= window->grid()->NrOfRows();
    if (!mayChange && !byKey)
        return std::nullopt;
    if (byKey)
        press(Qt::Key_V, Qt::ControlModifier);
    else
        chooseOfGrid(*window, "CellMenu", {QStringLiteral("Paste")});
    aim(*window, [this, mayChange, fits, numbers, range](Window& aimed) {
        std::optional<Table> after;
        if (mayChange && fits) {
            after = aimed.memory.now;
            for (int i = 0; i < numbers->columns * numbers->rows; ++i)
                after->set(range.left() + i % numbers->columns, range.top() + i / numbers->columns,
                           numbers->values[static_cast<std::size_t>(i)]);
        }
        m_account.learnPaste(aimed, after);
    });
    return QStringLiteral("paste «%1» in column %2, row %3 of %4")
        .arg(QApplication::clipboard()->text().replace(u'\t', u' ').simplified())
        .arg(range.left())
        .arg(range.top())
        .arg(window->name());
}

Monkey::Told Monkey::extract(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen() || !window->grid()->editingAllowed())
        return std::nullopt;
    std::vector<double> values;
    QString text = experimentText(random, values);
    if (oneIn(random, 5))
        text = nonsense(random);
    QApplication::clipboard()->setText(text);
    chooseOfGrid(*window, "CellMenu", {QStringLiteral("Extract from Clpbrd")});
    aim(*window, [this, values](Window& aimed) { m_account.learnExtraction(aimed, values); });
    return QStringLiteral("extract «%1» into %2")
        .arg(QString(text).replace(u'\t', u' ').simplified(), window->name());
}

Monkey::Told Monkey::switchEditing(Random&)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    chooseOfGrid(*window, "CellMenu",
                 {window->grid()->editingAllowed() ? QStringLiteral("Disable Editing")
                                                   : QStringLiteral("Enable Editing")});
    return QStringLiteral("switch editing of %1").arg(window->name());
}

Monkey::Told Monkey::editIdentifier(Random&)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    chooseOfGrid(*window, "HeaderMenu", {QStringLiteral("Edit Identifier")});
    aim(*window, [this](Window& aimed) { m_account.editIdentifier(aimed); });
    return QStringLiteral("edit the title of %1").arg(window->name());
}

Monkey::Told Monkey::changePrecision(Random&)
{
    Window* window = typingWindow();
    if (window == nullptr || cellIsOpen())
        return std::nullopt;
    chooseOfGrid(*window, "HeaderMenu", {QStringLiteral("Change Precision")});
    aim(*window, [this](Window& aimed) { m_account.learnLooks(aimed); });
    return QStringLiteral("change a precision of %1").arg(window->name());
}

Monkey::Told Monkey::undo(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    const bool isOfText = cellIsOpen();
    const bool mayChange = window->grid()->editingAllowed();
    const int times = oneIn(random, 4) ? 3 : 1;
    for (int i = 0; i < (isOfText ? 1 : times); ++i)
        press(Qt::Key_Z, Qt::ControlModifier);
    if (!isOfText)
        aim(*window, [this, mayChange, times](Window& aimed) {
            for (int i = 0; i < times; ++i)
                m_account.undo(aimed, mayChange);
        });
    return QStringLiteral("undo in %1, %2 times").arg(window->name()).arg(isOfText ? 1 : times);
}

Monkey::Told Monkey::redo(Random& random)
{
    Window* window = typingWindow();
    if (window == nullptr)
        return std::nullopt;
    const bool isOfText = cellIsOpen();
    const bool mayChange = window->grid()->editingAllowed();
    if (oneIn(random, 2))
        press(Qt::Key_Y, Qt::ControlModifier);
    else
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    if (!isOfText)
        aim(*window, [this, mayChange](Window& aimed) { m_account.redo(aimed, mayChange); });
    return QStringLiteral("redo in %1").arg(window->name());
}

} // namespace monkey
