// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/view/NTabEd.h"
#include "reliability/monkey/Folder.h"
#include "reliability/monkey/RandomDialogs.h"
#include "reliability/monkey/SquareMemory.h"
#include "window/ChildWindow.h"

#include <QLineEdit>
#include <QPointer>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace monkey {

/// A child of the frame and what it must know.
struct Window {
    enum class Kind { Editor, Analysis, Other };

    /// A cell that is being typed in, with the text that its user sees.
    struct OpenCell {
        QPointer<QLineEdit> edit;
        int column = 0;
        int row = 0;
        QString openedText;
        QString text;
    };

    QPointer<window::ChildWindow> child;
    const window::ChildWindow* identity = nullptr; ///< Also of a child that is gone.
    Kind kind = Kind::Other;
    int number = 0;
    SquareMemory memory;
    OpenCell cell;
    std::vector<int> looks;               ///< Decimals and marks.
    std::vector<grid::TableShape> shapes; ///< Of its grids.

    bool hasSquare() const { return kind != Kind::Other; }
    grid::TNTabEd* grid() const
    {
        return child == nullptr ? nullptr
                                : child->findChild<grid::TNTabEd*>(QStringLiteral("Datos"));
    }
    QString name() const;
};

/// What a step of the user does to the square of a window, once the open cell has been dealt with.
struct Deed {
    Window* target = nullptr;
    std::function<void(Window&)> effect = [](Window&) {};
    bool savesSquare = false;
    bool forgetsCell = false; ///< The user gave the open cell's text up.
};

/// Keeps account of every observation that exists, typed or saved, and finds the one that is lost:
/// what each window shows, what each file holds, and what the user was asked before either changed.
class Account {
public:
    Account(Folder& folder, RandomDialogs& dialogs)
        : m_folder(folder)
        , m_dialogs(dialogs)
    {
    }

    const std::vector<std::unique_ptr<Window>>& windows() const { return m_windows; }
    Window* windowOf(const QWidget* child) const;

    /// Takes in what became of a step, with the children that there are now.
    /// @return what is wrong; empty when all is well
    QStringList settle(const Deed& deed, const QList<window::ChildWindow*>& children);

    // Effects of steps.
    void load(Window& window);
    void learnOrder(Window& window);
    void learnPrefixes(Window& window);
    void learnLooks(Window& window);
    void learnPaste(Window& window, const std::optional<Table>& wanted);
    void learnExtraction(Window& window, std::vector<double> values);
    void editIdentifier(Window& window);
    void undo(Window& window, bool mayChange);
    void redo(Window& window, bool mayChange);

private:
    bool settleCell(Window& window, const Deed& deed);
    void settleQuestions(Window& window, bool savesSquare);
    std::optional<QString> savedAs(Window& window);
    void keepSave(Window& window, const QString& name);
    std::size_t timeOf(const Window& window) const;
    void checkFiles();
    void adopt(const QList<window::ChildWindow*>& children);
    void compare(Window& window);
    void lookAtCell(Window& window) const;
    std::vector<Exchange> exchangesOf(const Window& window) const;
    bool wasToldOfError(const Window& window, const QString& part) const;
    SquareMemory::OnDisk onDisk() const;
    void wrong(const QString& text) { m_wrong << text; }

    Folder& m_folder;
    RandomDialogs& m_dialogs;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::map<QString, Window*> m_saves; ///< Of this step, by file: the last who saved there.
    QString m_namedFile;                ///< That the user saved in by a command of this step.
    QStringList m_wrong;
    int m_numbers = 0;
};

/// What a window shows of its square.
Table shown(const Window& window);
std::vector<int> looksOf(const Window& window);
/// Sizes, names and decimals of the observations, and of an editor's treatments beside them.
std::vector<grid::TableShape> shapesOf(const Window& window);

} // namespace monkey
