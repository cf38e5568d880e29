// SPDX-License-Identifier: GPL-3.0-or-later
// What is done to a square around its cells, and its files.
#include "reliability/monkey/Monkey.h"

#include "controls/UpDown.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace monkey {

Monkey::Told Monkey::changeOrder(Random& random)
{
    Window* window = activeOf(Window::Kind::Editor);
    const bool isUp = oneIn(random, 2);
    if (window == nullptr)
        return std::nullopt;
    const auto& spinner =
        *window->child->findChild<controls::UpDown*>(QStringLiteral("NumTratamientos"));
    const QPoint arrow(spinner.width() - 6, isUp ? 5 : spinner.height() - 5);
    const QPoint point = spinner.mapTo(&m_frame, arrow);
    if (!spinner.isVisible() || m_frame.childAt(point) != &spinner)
        return std::nullopt;
    m_hands.clickFrame(point);
    aim(*window, [this](Window& aimed) { m_account.learnOrder(aimed); });
    return QStringLiteral("%1 the order of %2")
        .arg(isUp ? QStringLiteral("raise") : QStringLiteral("lower"), window->name());
}

Monkey::Told Monkey::typePrefix(Random& random)
{
    Window* window = activeOf(Window::Kind::Editor);
    if (window == nullptr)
        return std::nullopt;
    const bool isOfRows = oneIn(random, 2);
    auto* edit = window->child->findChild<QLineEdit*>(isOfRows ? QStringLiteral("NFilas")
                                                               : QStringLiteral("NColumnas"));
    if (!m_hands.canClick(edit))
        return std::nullopt;
    m_hands.click(edit);
    const QChar letter = QStringLiteral("abcXY 12")[below(random, 8)];
    if (oneIn(random, 5))
        press(Qt::Key_Backspace);
    else
        type(letter);
    aim(*window, [this](Window& aimed) { m_account.learnPrefixes(aimed); });
    return QStringLiteral("change the names of the %1 of %2")
        .arg(isOfRows ? QStringLiteral("rows") : QStringLiteral("columns"), window->name());
}

Monkey::Told Monkey::save(Random& random)
{
    Window* window = activeOf(Window::Kind::Editor);
    if (window == nullptr)
        return std::nullopt;
    if (oneIn(random, 2))
        press(Qt::Key_F2);
    else
        chooseOfBar(random, {QStringLiteral("E&ditor"), QStringLiteral("&Guardar...")});
    aim(*window, [](Window&) {});
    m_deed.savesSquare = true;
    return QStringLiteral("save %1").arg(window->name());
}

Monkey::Told Monkey::load(Random& random)
{
    Window* window = activeOf(Window::Kind::Editor);
    if (window == nullptr)
        return std::nullopt;
    if (oneIn(random, 2))
        press(Qt::Key_F3);
    else
        chooseOfBar(random, {QStringLiteral("E&ditor"), QStringLiteral("&Cargar...")});
    aim(*window, [this](Window& aimed) { m_account.load(aimed); });
    return QStringLiteral("load into %1").arg(window->name());
}

Monkey::Told Monkey::saveAndAnalyse(Random& random)
{
    Window* window = activeOf(Window::Kind::Editor);
    if (window == nullptr)
        return std::nullopt;
    chooseOfBar(random, {QStringLiteral("E&ditor"), QStringLiteral("Guardar y &Analizar...")});
    aim(*window, [](Window&) {});
    m_deed.savesSquare = true;
    return QStringLiteral("save and analyse %1").arg(window->name());
}

/// Another program, or a colleague, writes one of the files, or removes it.
Monkey::Told Monkey::writeFromOutside(Random& random)
{
    const QString name = m_folder.anyFile(random);
    if (name.isEmpty() || m_folder.isFull())
        return std::nullopt;
    if (oneIn(random, 4)) {
        m_folder.removeFromOutside(name);
        return QStringLiteral("another removes %1").arg(name);
    }
    Table table;
    table.identifier = "De fuera";
    table.columns = table.rows = 3 + below(random, 3);
    for (int row = 1; row <= table.rows; ++row) {
        for (int column = 1; column <= table.columns; ++column)
            table.set(column, row, below(random, 999) / 4.0);
    }
    m_folder.writeFromOutside(name, writtenElsewhere(table));
    return QStringLiteral("another writes %1").arg(name);
}

} // namespace monkey
