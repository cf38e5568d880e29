// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/SpanishTexts.h"
#include "shell/walk/FrameHands.h"
#include "shell/walk/FrameModel.h"

#include "support/ScriptedDialogs.h"

#include <QTemporaryDir>

#include <functional>
#include <optional>
#include <random>
#include <vector>

namespace walk {

/// A random walk of a user over the frame with up to ten children of all four kinds, by mouse and
/// by keyboard. Each step is taken in the model too. The same seed takes the same steps.
class FrameWalk {
public:
    explicit FrameWalk(unsigned seed);
    ~FrameWalk();

    /// Takes a step that is possible now. @return its name
    QString step();

    /// What is otherwise than the model says; empty when all is well.
    QStringList differences();

    /// The steps that were never possible or never drawn.
    QStringList neverTaken() const;
    bool hasBeenFull() const { return m_hasBeenFull; }

private:
    static constexpr std::size_t mostChildren = 10;

    using Condition = std::function<bool()>;
    using Action = std::function<void()>;

    struct Step {
        QString name;
        Condition isPossible;
        Action take;
        int count = 0;
    };

    Step* possibleStep(std::vector<Step>& group);
    void addOpeningSteps();
    void addArrangingSteps();
    void addMinimisingSteps();
    void addActivatingSteps();
    void addClosingSteps();
    void addTypingSteps();
    void addEditorSteps();
    void addAnalysisSteps();
    void addGraphSteps();
    void addPowerSteps();
    void addFrameSteps();
    void addMenuSteps();
    /// A step that is possible while the frame is the active window.
    void add(const char* name, Condition isPossible, Action take);
    /// A step with a child that the condition holds for, which m_target then is.
    void addWithChild(const char* name, std::function<bool(int)> isPossible, Action take);
    void addAnywhere(const char* name, Condition isPossible, Action take);

    std::size_t below(std::size_t count) { return m_random() % count; }
    bool flag() { return below(2) == 0; }

    struct Sample {
        QString fileName;
        int order;
    };
    /// A copy of one of the samples, of order 3 more often than not.
    Sample sample();
    /// A name that no file has.
    QString freshName(const QString& suffix = QStringLiteral(".asc"));

    bool hasRoom() const { return m_model.children.size() < mostChildren; }
    Child& target() { return m_model.children.at(static_cast<std::size_t>(m_target)); }
    QMdiSubWindow& place(int index) const;
    bool canClickButton(int index, QStyle::SubControl button) const;
    void clickButton(QStyle::SubControl button);
    /// A control of the active child; null where it has none of that name.
    QWidget* control(const char* name) const;
    bool canClick(const char* name) const { return m_hands.canClick(control(name)); }
    /// What is clicked on in a control that scrolls.
    QWidget* viewport(const char* name) const;
    /// Clicks on a control of the active child that takes the focus.
    void click(const char* name);
    /// The control in the middle of a child, and what is to be clicked on there.
    const char* bodyName(int index) const;
    QWidget* body(int index) const;
    /// An entry of the bar's menus, by mouse or by keyboard.
    void choose(const QStringList& path);

    void openEditorOf(const std::optional<Sample>& file, const Action& command);
    void openAnalysisOf(const std::optional<Sample>& file, const Action& command);
    /// Closes a child, answering what it asks in one way or another.
    void close(int index, const Action& command);
    void saveAndAnalyse();
    void thinkAgainAboutLeaving();
    void save(const Action& command);
    void load(const Action& command);
    void saveOrNot(const QString& told, const QString& suffix = QStringLiteral(".asc"));
    void runTest(const char* approach, const char* test, const QString& statistic);
    void runStudy();
    /// Clicks on the button that runs a test or a study, or presses F9.
    void runBy(const char* button);
    /// Moves the mouse over every entry of an open menu and leaves it.
    void readAndLeave(QMenu& menu);

    std::mt19937 m_random;
    shell::SpanishTexts m_spanish;
    QTemporaryDir m_folder;
    ScriptedDialogs m_dialogs;
    shell::TPrincipal m_frame{m_dialogs};
    QWidget m_other; ///< The window of another program.
    FrameHands m_hands{m_frame};
    FrameModel m_model;
    std::vector<std::vector<Step>> m_groups;
    std::vector<std::size_t> m_lots; ///< Groups, each as often as it is to be drawn.
    int m_target = -1;
    int m_names = 0;   ///< So many have been given to files and the like.
    int m_studies = 0; ///< So many have been run.
    bool m_hasBeenFull = false;
};

} // namespace walk
