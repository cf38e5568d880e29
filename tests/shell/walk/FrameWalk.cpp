// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/walk/FrameWalk.h"

#include "shell/walk/Differences.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QMdiArea>
#include <QMenu>

#include <utility>

namespace walk {

FrameWalk::FrameWalk(unsigned seed)
    : m_random(seed)
{
    m_spanish.loadFrom(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QApplication::installTranslator(&m_spanish);
    m_frame.showMaximized();
    m_frame.activateWindow();
    m_hands.settle();
    const auto addGroup = [this](int weight, void (FrameWalk::*addSteps)()) {
        m_lots.insert(m_lots.end(), static_cast<std::size_t>(weight), m_groups.size());
        m_groups.emplace_back();
        (this->*addSteps)();
    };
    addGroup(4, &FrameWalk::addOpeningSteps);
    addGroup(2, &FrameWalk::addArrangingSteps);
    addGroup(2, &FrameWalk::addMinimisingSteps);
    addGroup(2, &FrameWalk::addActivatingSteps);
    addGroup(2, &FrameWalk::addClosingSteps);
    // Of these only the ones of the active child's kind are possible.
    addGroup(3, &FrameWalk::addTypingSteps);
    addGroup(3, &FrameWalk::addEditorSteps);
    addGroup(5, &FrameWalk::addAnalysisSteps);
    addGroup(8, &FrameWalk::addGraphSteps);
    addGroup(4, &FrameWalk::addPowerSteps);
    addGroup(1, &FrameWalk::addFrameSteps);
    addGroup(1, &FrameWalk::addMenuSteps);
}

FrameWalk::~FrameWalk()
{
    QApplication::removeTranslator(&m_spanish);
}

QString FrameWalk::step()
{
    Step* step = nullptr;
    while (step == nullptr)
        step = possibleStep(m_groups[m_lots[below(m_lots.size())]]);
    ++step->count;
    step->take();
    m_hands.rest();
    m_hands.settle();
    m_hasBeenFull = m_hasBeenFull || !hasRoom();
    return step->name;
}

/// One of a group's steps that are possible now; null where none is.
FrameWalk::Step* FrameWalk::possibleStep(std::vector<Step>& group)
{
    const std::size_t start = below(group.size());
    for (std::size_t i = 0; i < group.size(); ++i) {
        Step& step = group[(start + i) % group.size()];
        if (step.isPossible())
            return &step;
    }
    return nullptr;
}

QStringList FrameWalk::differences()
{
    QStringList lines = walk::differences(m_model, m_frame);
    if (!m_dialogs.openAnswers.empty() || !m_dialogs.saveAnswers.empty() ||
        !m_dialogs.yesNoAnswers.empty())
        lines << QStringLiteral("a dialog that did not come");
    for (const ScriptedDialogs::Box& box : std::exchange(m_dialogs.errors, {}))
        lines << QStringLiteral("error box: ") + box.text;
    return lines;
}

QStringList FrameWalk::neverTaken() const
{
    QStringList names;
    for (const std::vector<Step>& group : m_groups) {
        for (const Step& step : group) {
            if (step.count == 0)
                names << step.name;
        }
    }
    return names;
}

void FrameWalk::add(const char* name, Condition isPossible, Action take)
{
    addAnywhere(
        name, [this, isPossible] { return m_model.isFrameActive() && isPossible(); }, take);
}

void FrameWalk::addWithChild(const char* name, std::function<bool(int)> isPossible, Action take)
{
    add(
        name,
        [this, isPossible] {
            if (m_model.children.empty())
                return false;
            const std::size_t count = m_model.children.size();
            const std::size_t start = below(count);
            for (std::size_t i = 0; i < count; ++i) {
                m_target = static_cast<int>((start + i) % count);
                if (isPossible(m_target))
                    return true;
            }
            return false;
        },
        take);
}

void FrameWalk::addAnywhere(const char* name, Condition isPossible, Action take)
{
    m_groups.back().push_back({QString::fromUtf8(name), std::move(isPossible), std::move(take)});
}

FrameWalk::Sample FrameWalk::sample()
{
    static const Sample samples[] = {{QStringLiteral("orden3.asc"), 3},
                                     {QStringLiteral("orden3.asc"), 3},
                                     {QStringLiteral("propelente.asc"), 5}};
    const Sample& original = samples[below(std::size(samples))];
    Sample copy{freshName(), original.order};
    if (!QFile::copy(QStringLiteral(CL_SOURCE_DIR "/ejemplos/") + original.fileName, copy.fileName))
        ADD_FAILURE() << "no copy of " << original.fileName.toStdString();
    return copy;
}

QString FrameWalk::freshName(const QString& suffix)
{
    return m_folder.filePath(QString::number(++m_names) + suffix);
}

QMdiSubWindow& FrameWalk::place(int index) const
{
    return *m_frame.findChild<QMdiArea*>()->subWindowList().at(index);
}

bool FrameWalk::canClickButton(int index, QStyle::SubControl button) const
{
    return m_hands.buttonPoint(place(index), button).has_value();
}

void FrameWalk::clickButton(QStyle::SubControl button)
{
    m_hands.clickFrame(*m_hands.buttonPoint(place(m_target), button));
    m_model.activate(m_target);
    m_model.commit();
}

QWidget* FrameWalk::control(const char* name) const
{
    return m_model.hasChild() ? place(m_model.active).findChild<QWidget*>(QString::fromLatin1(name))
                              : nullptr;
}

QWidget* FrameWalk::viewport(const char* name) const
{
    return qobject_cast<QAbstractScrollArea*>(control(name))->viewport();
}

void FrameWalk::click(const char* name)
{
    m_hands.click(control(name));
    m_model.focus(QString::fromLatin1(name));
}

void FrameWalk::choose(const QStringList& path)
{
    if (flag())
        m_hands.chooseByMouse(path);
    else
        m_hands.chooseByKeys(path);
}

} // namespace walk
