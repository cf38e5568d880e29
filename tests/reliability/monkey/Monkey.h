// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reliability/monkey/Account.h"
#include "reliability/monkey/Folder.h"
#include "reliability/monkey/RandomDialogs.h"

#include "shell/walk/FrameHands.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <optional>
#include <vector>

namespace monkey {

/// Somebody at the frame who presses whatever comes to hand, and an account of what he must not
/// lose by it. Each step is drawn whole from a number of its own, so that a walk is a list of
/// numbers, of which any may be left out: a step that is not possible is none.
class Monkey {
public:
    Monkey(Folder& folder, RandomDialogs& dialogs);

    /// @return what was done, for a reader; nothing where the step is not possible now
    std::optional<QString> take(unsigned number);
    /// What the last step did that it must not; empty when all is well.
    const QStringList& wrongs() const { return m_wrongs; }
    qsizetype children() const { return area().subWindowList().size(); }

private:
    using Told = std::optional<QString>;
    struct Step {
        int weight;
        Told (Monkey::*take)(Random& random);
    };
    static const std::vector<Step>& steps();

    // Typing.
    Told typeCharacter(Random& random);
    Told typeNumber(Random& random);
    Told leaveCell(Random& random);
    Told forgetCell(Random& random);
    Told moveCursor(Random& random);
    Told clickCell(Random& random);
    Told openCell(Random& random);
    Told dragOverCells(Random& random);
    // What is done to cells.
    Told clearByKey(Random& random);
    Told clearByMenu(Random& random);
    Told mark(Random& random);
    Told copy(Random& random);
    Told paste(Random& random);
    Told extract(Random& random);
    Told switchEditing(Random& random);
    Told editIdentifier(Random& random);
    Told changePrecision(Random& random);
    Told undo(Random& random);
    Told redo(Random& random);
    // Editors and their files.
    Told changeOrder(Random& random);
    Told typePrefix(Random& random);
    Told save(Random& random);
    Told load(Random& random);
    Told saveAndAnalyse(Random& random);
    Told writeFromOutside(Random& random);
    // Windows.
    Told newEditor(Random& random);
    Told openFile(Random& random);
    Told newAnalysis(Random& random);
    Told newPower(Random& random);
    Told activate(Random& random);
    Told arrange(Random& random);
    Told minimiseOrMaximise(Random& random);
    Told closeOne(Random& random);
    Told leave(Random& random);
    // The others.
    Told analyse(Random& random);
    Told exportSomething(Random& random);
    Told showGraph(Random& random);
    Told handleGraph(Random& random);
    Told study(Random& random);
    Told wander(Random& random);
    Told turnWheel(Random& random);

    QMdiArea& area() const { return *m_frame.findChild<QMdiArea*>(); }
    Window* active() const;
    /// The active window that has a square, where the keyboard is in its grid; null otherwise.
    Window* typingWindow() const;
    /// The active window of a kind, not minimised; null otherwise.
    Window* activeOf(Window::Kind kind) const;
    bool cellIsOpen() const;
    bool hasRoom() const;
    QRect rangeOf(const grid::TNTabEd& grid, int scope) const;
    void comeBack();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    bool canClickCell(const grid::TNTabEd& grid, int column, int row) const;
    QPoint cellPoint(const grid::TNTabEd& grid, int column, int row) const;
    /// An entry of the menu of the cells, or of that of the names.
    void chooseOfGrid(const Window& window, const char* menu, const QStringList& path);
    void chooseOfBar(Random& random, const QStringList& path);
    Told pasteText(const QString& text, const QString& told, const std::optional<Table>& wanted);
    void runBy(const Window& window, const char* button);
    void assail(Random& random);
    void aim(Window& window, std::function<void(Window&)> effect);

    Folder& m_folder;
    RandomDialogs& m_dialogs;
    shell::TPrincipal m_frame{m_dialogs};
    walk::FrameHands m_hands{m_frame};
    Account m_account;
    Deed m_deed;
    QStringList m_wrongs;
    int m_studies = 0;
};

} // namespace monkey
