// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace walk {

enum class Kind { Editor, Analysis, Graph, Power };

/// Whose window is the active one of the desktop.
enum class Foreground { Frame, About, OtherProgram };

/// An approach and a test as an analysis has them: the names of their buttons.
struct Choice {
    QString approach = QStringLiteral("RadioGroup1Item0");
    QString test = QStringLiteral("RadioGroup2Item0");
};

/// A child window as its user knows it.
struct Child {
    Kind kind = Kind::Editor;
    QString caption;
    QString control; ///< The one that has the focus while the child is active.
    bool isMinimised = false;
    bool isSaved = true;     ///< An editor's.
    bool hasFile = false;    ///< An editor's.
    bool cellIsOpen = false; ///< Something new is typed in it.
    int order = 3;           ///< Of the square.
    QString exact;           ///< An analysis's: the statistic whose distribution it can show.
    Choice choice;           ///< An analysis's.
    std::optional<Choice> reported; ///< Of an analysis's report; none before the first.
    bool hasOtherData = false;      ///< Than those of its report.
    QString stale;                  ///< What an analysis says of a report that answers no more.
    bool wasEdited = false;         ///< An analysis's data were, once at least.
};

Child editor();
Child analysis(const QString& caption, int order);
Child graph(const QString& statistic);
Child power();

/// A key and the command that it belongs to.
struct LiveKey {
    QKeySequence key;
    QString command;
};

/// What must be true of the frame and its children: a plain account of what the user did, kept
/// beside the real thing. Children are numbered from 0 in the order of their creation.
class FrameModel {
public:
    std::vector<Child> children;
    int active = -1;          ///< -1 where there is no child.
    bool isMaximised = false; ///< The active child is.
    Foreground foreground = Foreground::Frame;
    bool isAboutOpen = false;
    QString notice; ///< What the status line says of the last command until something changes.

    /// What the status line says.
    QString status() const { return notice.isEmpty() ? m_text : notice; }
    /// A window says something of itself.
    void say(const QString& text);

    bool isFrameActive() const { return foreground == Foreground::Frame; }
    bool hasChild() const { return active >= 0; }
    bool isActive(Kind kind) const { return hasChild() && child().kind == kind; }
    /// The active child is there to be worked with.
    bool canWork(Kind kind) const { return isActive(kind) && !child().isMinimised; }
    Child& child() { return children.at(static_cast<std::size_t>(active)); }
    const Child& child() const { return children.at(static_cast<std::size_t>(active)); }

    /// A new child; an analysis opens maximised.
    void open(const Child& opened);
    void activate(int index);
    void close(int index);
    /// The children in the order in which they are asked whether they may go.
    std::vector<int> lastUsedFirst() const { return {m_history.rbegin(), m_history.rend()}; }
    /// Another child was in front and the active one is again.
    void comeBack();
    void maximise();
    void restore();
    void minimise();
    /// Cascade or tiles: none stays maximised, the minimised ones stay where they are.
    void arrange() { isMaximised = false; }
    /// The active child's open cell is taken over.
    void commit();
    void changed();
    /// Another test, or another approach with its test, is chosen in the active analysis.
    void choose(const Choice& choice);
    /// The active analysis has run its test.
    void report();
    /// The user clicks on a control of the active child.
    void focus(const QString& control);

    QStringList bar() const;
    QString caption() const;
    QStringList captions() const;
    /// Where keys go: the name of a control, empty for the bare place of a minimised child.
    QString focus() const;
    std::vector<LiveKey> liveKeys() const;

private:
    void becomeActive(int index);
    void tellWhetherStale();

    QString m_text = QStringLiteral("Listo.");
    std::vector<int> m_history; ///< The last one is the active child.
};

} // namespace walk
