// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/monkey/Monkey.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <numeric>
#include <utility>

namespace monkey {

Monkey::Monkey(Folder& folder, RandomDialogs& dialogs)
    : m_folder(folder)
    , m_dialogs(dialogs)
    , m_account(folder, dialogs)
{
    m_frame.resize(1280, 900);
    m_frame.show();
    m_frame.activateWindow();
    m_hands.settle();
    m_dialogs.setAssault([this](Random& random) { assail(random); });
}

const std::vector<Monkey::Step>& Monkey::steps()
{
    static const std::vector<Step> all{
        {20, &Monkey::typeNumber},
        {12, &Monkey::typeCharacter},
        {14, &Monkey::leaveCell},
        {3, &Monkey::forgetCell},
        {6, &Monkey::moveCursor},
        {12, &Monkey::clickCell},
        {6, &Monkey::openCell},
        {5, &Monkey::dragOverCells},
        {4, &Monkey::clearByKey},
        {3, &Monkey::clearByMenu},
        {3, &Monkey::mark},
        {3, &Monkey::copy},
        {8, &Monkey::paste},
        {3, &Monkey::extract},
        {2, &Monkey::switchEditing},
        {2, &Monkey::editIdentifier},
        {2, &Monkey::changePrecision},
        {14, &Monkey::undo},
        {8, &Monkey::redo},
        {5, &Monkey::changeOrder},
        {5, &Monkey::typePrefix},
        {8, &Monkey::save},
        {4, &Monkey::load},
        {3, &Monkey::saveAndAnalyse},
        {2, &Monkey::writeFromOutside},
        {5, &Monkey::newEditor},
        {4, &Monkey::openFile},
        {2, &Monkey::newAnalysis},
        {1, &Monkey::newPower},
        {10, &Monkey::activate},
        {2, &Monkey::arrange},
        {4, &Monkey::minimiseOrMaximise},
        {7, &Monkey::closeOne},
        {1, &Monkey::leave},
        {5, &Monkey::analyse},
        {3, &Monkey::exportSomething},
        {3, &Monkey::showGraph},
        {4, &Monkey::handleGraph},
        {1, &Monkey::study},
        {6, &Monkey::wander},
        {3, &Monkey::turnWheel},
    };
    return all;
}

std::optional<QString> Monkey::take(unsigned number)
{
    static const int all =
        std::accumulate(steps().begin(), steps().end(), 0,
                        [](int sum, const Step& step) { return sum + step.weight; });
    Random random(number);
    int lot = below(random, all);
    const Step* drawn = steps().data();
    while (lot >= drawn->weight)
        lot -= (drawn++)->weight;

    m_dialogs.begin(random);
    m_deed = {};
    m_wrongs.clear();
    comeBack();
    const bool isFull = oneIn(random, 12);
    if (isFull)
        m_folder.fill();
    Told told = (this->*drawn->take)(random);
    m_hands.settle();
    m_folder.makeRoom();
    if (!told)
        return std::nullopt;
    if (isFull)
        *told += QStringLiteral(", the disk full");
    for (const Exchange& exchange : m_dialogs.exchanges()) {
        static const char* const kinds[] = {"told", "asked", "open", "save", "line", "number"};
        static const char* const answers[] = {"yes", "no", "cancelled"};
        *told += QStringLiteral("\n      %1: %2 -> %3")
                     .arg(QString::fromLatin1(kinds[static_cast<int>(exchange.what)]),
                          exchange.text.simplified(),
                          QString::fromLatin1(answers[static_cast<int>(exchange.answer)]));
    }
    QList<window::ChildWindow*> children;
    for (const QMdiSubWindow* place : area().subWindowList())
        children << qobject_cast<window::ChildWindow*>(place->widget());
    m_wrongs = m_account.settle(m_deed, children);
    if (!m_frame.isVisible()) { // everything was given up or saved: another day begins
        m_frame.show();
        m_frame.activateWindow();
        m_hands.settle();
    }
    return told;
}

/// To the frame, where there is no window manager to do so once a box or a menu has gone.
void Monkey::comeBack()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    if (!m_frame.isActiveWindow()) {
        m_frame.activateWindow();
        m_hands.settle();
    }
    if (m_frame.menuBar()->hasFocus()) // after F10 or Alt
        m_hands.press(Qt::Key_Escape);
}

Window* Monkey::active() const
{
    const QMdiSubWindow* place = area().activeSubWindow();
    return place == nullptr || place->isMinimized() ? nullptr : m_account.windowOf(place->widget());
}

Window* Monkey::activeOf(Window::Kind kind) const
{
    Window* window = active();
    return window != nullptr && window->kind == kind ? window : nullptr;
}

Window* Monkey::typingWindow() const
{
    Window* window = active();
    const QWidget* focus = QApplication::focusWidget();
    if (window == nullptr || !window->hasSquare() || focus == nullptr)
        return nullptr;
    return focus == window->grid() || window->grid()->isAncestorOf(focus) ? window : nullptr;
}

bool Monkey::cellIsOpen() const
{
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus->objectName() == QStringLiteral("CellEditor");
}

bool Monkey::hasRoom() const
{
    constexpr qsizetype mostChildren = 50;
    return children() < mostChildren;
}

/// The cells of a scope: 0 those chosen, 1 the column, 2 the row, 3 all. Counted from 1.
QRect Monkey::rangeOf(const grid::TNTabEd& grid, int scope) const
{
    const QModelIndex cursor = grid.currentIndex();
    const QItemSelection chosen = grid.selectionModel()->selection();
    if (scope == 3)
        return {1, 1, grid.NrOfColumns(), grid.NrOfRows()};
    if (scope == 0 || !cursor.isValid()) {
        if (chosen.isEmpty())
            return cursor.isValid() ? QRect(cursor.column() + 1, cursor.row() + 1, 1, 1) : QRect();
        const QItemSelectionRange& range = chosen.first();
        return {range.left() + 1, range.top() + 1, range.width(), range.height()};
    }
    return scope == 1 ? QRect(cursor.column() + 1, 1, 1, grid.NrOfRows())
                      : QRect(1, cursor.row() + 1, grid.NrOfColumns(), 1);
}

void Monkey::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (QApplication::activeWindow() == nullptr)
        comeBack();
    m_hands.press(key, modifiers);
}

void Monkey::type(const QString& text)
{
    if (QApplication::activeWindow() == nullptr)
        comeBack();
    m_hands.type(text);
}

QPoint Monkey::cellPoint(const grid::TNTabEd& grid, int column, int row) const
{
    const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
    return grid.viewport()->mapTo(&m_frame, cell.center());
}

bool Monkey::canClickCell(const grid::TNTabEd& grid, int column, int row) const
{
    return grid.isVisible() && m_frame.childAt(cellPoint(grid, column, row)) == grid.viewport();
}

void Monkey::chooseOfGrid(const Window& window, const char* menu, const QStringList& path)
{
    auto* open = window.grid()->findChild<QMenu*>(QString::fromLatin1(menu));
    press(Qt::Key_F10, QString::fromLatin1(menu) == QStringLiteral("HeaderMenu")
                           ? Qt::ShiftModifier | Qt::ControlModifier
                           : Qt::KeyboardModifiers(Qt::ShiftModifier));
    for (const QString& text : path) {
        QAction* entry = walk::entryOf(*open, text);
        QMenu* const next = entry->menu();
        m_hands.clickEntry(*open, entry);
        open = next;
    }
    while (QWidget* popup = QApplication::activePopupWidget()) // an entry that cannot be chosen
        popup->close();
}

void Monkey::chooseOfBar(Random& random, const QStringList& path)
{
    if (oneIn(random, 2))
        m_hands.chooseByMouse(path);
    else
        m_hands.chooseByKeys(path);
}

/// Whatever can be tried while a question is open. None of it may do anything.
void Monkey::assail(Random& random)
{
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    } keys[] = {{Qt::Key_W, Qt::ControlModifier},   {Qt::Key_N, Qt::ControlModifier},
                {Qt::Key_F2, Qt::NoModifier},       {Qt::Key_F3, Qt::NoModifier},
                {Qt::Key_F4, Qt::AltModifier},      {Qt::Key_Z, Qt::ControlModifier},
                {Qt::Key_Delete, Qt::NoModifier},   {Qt::Key_F9, Qt::NoModifier},
                {Qt::Key_Tab, Qt::ControlModifier}, {Qt::Key_7, Qt::NoModifier}};
    const auto& pressed = keys[below(random, static_cast<int>(std::size(keys)))];
    QTest::keyClick(m_frame.windowHandle(), pressed.key, pressed.modifiers);
    if (oneIn(random, 3))
        m_frame.close();
    if (QMdiSubWindow* place = area().activeSubWindow(); place != nullptr && oneIn(random, 3))
        place->close();
}

void Monkey::aim(Window& window, std::function<void(Window&)> effect)
{
    m_deed.target = &window;
    m_deed.effect = std::move(effect);
}

} // namespace monkey
