// SPDX-License-Identifier: GPL-3.0-or-later
// Opening, arranging and closing windows.
#include "reliability/monkey/Monkey.h"

#include <QMenu>
#include <QStyle>

namespace monkey {

Monkey::Told Monkey::newEditor(Random& random)
{
    if (!hasRoom())
        return std::nullopt;
    if (oneIn(random, 2))
        press(Qt::Key_N, Qt::ControlModifier);
    else
        chooseOfBar(random, {QStringLiteral("&Archivo"), QStringLiteral("&Editor"),
                             QStringLiteral("&Nuevo Archivo")});
    return QStringLiteral("new editor");
}

Monkey::Told Monkey::openFile(Random& random)
{
    if (!hasRoom())
        return std::nullopt;
    chooseOfBar(random, {QStringLiteral("&Archivo"), QStringLiteral("&Editor"),
                         QStringLiteral("&Abrir Archivo...")});
    return QStringLiteral("open a file");
}

Monkey::Told Monkey::newAnalysis(Random& random)
{
    if (!hasRoom())
        return std::nullopt;
    chooseOfBar(random, {QStringLiteral("&Archivo"), QStringLiteral("&Nuevo"),
                         QStringLiteral("Análisis de &Datos...")});
    return QStringLiteral("new analysis");
}

Monkey::Told Monkey::newPower(Random& random)
{
    if (!hasRoom())
        return std::nullopt;
    chooseOfBar(random, {QStringLiteral("&Archivo"), QStringLiteral("&Nuevo"),
                         QStringLiteral("&Cálculo de Potencia...")});
    return QStringLiteral("new power study");
}

Monkey::Told Monkey::activate(Random& random)
{
    const auto count = static_cast<int>(children());
    if (count < 2)
        return std::nullopt;
    switch (below(random, 3)) {
    case 0:
        press(Qt::Key_Tab, Qt::ControlModifier);
        return QStringLiteral("the next window");
    case 1:
        press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        return QStringLiteral("the window before");
    default:
        break;
    }
    const int number = 1 + below(random, count);
    QMenu* list = m_hands.barEntry(QStringLiteral("&Ventana"))->menu();
    emit list->aboutToShow(); // it is filled then
    const QString entry = list->actions().at(list->actions().size() - count + number - 1)->text();
    m_hands.chooseByKeys({QStringLiteral("&Ventana"), entry});
    return QStringLiteral("window %1").arg(number);
}

Monkey::Told Monkey::arrange(Random& random)
{
    const bool isTiled = oneIn(random, 2);
    press(isTiled ? Qt::Key_F5 : Qt::Key_F4, Qt::ShiftModifier);
    return isTiled ? QStringLiteral("tile") : QStringLiteral("cascade");
}

Monkey::Told Monkey::minimiseOrMaximise(Random& random)
{
    QMdiSubWindow* place = area().activeSubWindow();
    if (place == nullptr)
        return std::nullopt;
    switch (below(random, 4)) {
    case 0:
        place->showMinimized();
        return QStringLiteral("minimise");
    case 1:
        place->showMaximized();
        return QStringLiteral("maximise");
    default:
        place->showNormal();
        return QStringLiteral("restore");
    }
}

Monkey::Told Monkey::closeOne(Random& random)
{
    const auto count = static_cast<int>(children());
    if (count == 0)
        return std::nullopt;
    const QList<QMdiSubWindow*> places = area().subWindowList();
    QMdiSubWindow* active = area().activeSubWindow();
    switch (active == nullptr ? 2 : below(random, 4)) {
    case 0:
        press(Qt::Key_W, Qt::ControlModifier);
        return QStringLiteral("close by Ctrl+W");
    case 1:
        press(Qt::Key_F4, Qt::ControlModifier);
        return QStringLiteral("close by Ctrl+F4");
    case 2: {
        const int number = below(random, count);
        places.at(number)->close();
        return QStringLiteral("close window %1").arg(number + 1);
    }
    default:
        break;
    }
    const auto button = m_hands.buttonPoint(*active, QStyle::SC_TitleBarCloseButton);
    if (!button)
        return std::nullopt;
    m_hands.clickFrame(*button);
    return QStringLiteral("close by its button");
}

/// Leaving the program: all close, or none.
Monkey::Told Monkey::leave(Random& random)
{
    if (!oneIn(random, 3))
        return std::nullopt;
    press(Qt::Key_F4, Qt::AltModifier);
    return QStringLiteral("leave the program");
}

} // namespace monkey
