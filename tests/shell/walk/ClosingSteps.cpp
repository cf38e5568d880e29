// SPDX-License-Identifier: GPL-3.0-or-later
// Closing children in every order and way.
#include "shell/walk/FrameWalk.h"

namespace walk {

void FrameWalk::addClosingSteps()
{
    const auto hasChild = [this] { return m_model.hasChild(); };
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_F4}) {
        add(key == Qt::Key_W ? "close, by Ctrl+W" : "close, by Ctrl+F4", hasChild, [this, key] {
            close(m_model.active, [this, key] { m_hands.press(key, Qt::ControlModifier); });
        });
    }
    addWithChild(
        "close, by its button",
        [this](int index) { return canClickButton(index, QStyle::SC_TitleBarCloseButton); },
        [this] {
            const QPoint button =
                *m_hands.buttonPoint(place(m_target), QStyle::SC_TitleBarCloseButton);
            m_model.activate(m_target);
            close(m_target, [this, button] { m_hands.clickFrame(button); });
        });
    add(
        "close the maximised one, by its button", [this] { return m_model.isMaximised; },
        [this] {
            close(m_model.active, [this] {
                m_hands.clickFrame(m_hands.maximisedButtonPoint(QStyle::SC_MdiCloseButton));
            });
        });
    addWithChild(
        "close any one", [](int) { return true; },
        [this] { close(m_target, [this] { place(m_target).close(); }); });
    add(
        "save and analyse", [this] { return m_model.isActive(Kind::Editor); },
        [this] { saveAndAnalyse(); });
    add(
        "leave, and think again",
        [this] {
            for (const Child& child : m_model.children) {
                if (child.kind == Kind::Editor && !child.isSaved && !child.hasFile)
                    return true;
            }
            return false;
        },
        [this] { thinkAgainAboutLeaving(); });
}

void FrameWalk::close(int index, const Action& command)
{
    if (index == m_model.active)
        m_model.commit();
    Child& child = m_model.children.at(static_cast<std::size_t>(index));
    bool isClosed = true;
    if (child.kind == Kind::Editor && !child.isSaved) {
        m_model.activate(index); // to be seen while it asks
        child.isMinimised = false;
        const bool isToBeSaved = flag();
        m_dialogs.yesNoAnswers = {isToBeSaved};
        if (isToBeSaved && !child.hasFile) {
            isClosed = flag();
            m_dialogs.saveAnswers = {isClosed ? std::optional(freshName()) : std::nullopt};
        }
    }
    command();
    if (isClosed)
        m_model.close(index);
}

void FrameWalk::saveAndAnalyse()
{
    m_model.commit();
    const int index = m_model.active;
    const Child& child = m_model.child();
    const bool isSaved = child.hasFile || flag();
    if (!child.hasFile)
        m_dialogs.saveAnswers = {isSaved ? std::optional(freshName()) : std::nullopt};
    choose({QStringLiteral("E&ditor"), QStringLiteral("Guardar y &Analizar...")});
    if (!isSaved)
        return;
    m_model.open(analysis(QStringLiteral("Análisis"), child.order));
    m_model.close(index);
}

/// Comes to an editor that has neither been saved nor has a file, and stays for its sake.
void FrameWalk::thinkAgainAboutLeaving()
{
    m_model.commit();
    bool hasLeftTheActiveOne = false;
    for (const int index : m_model.lastUsedFirst()) {
        Child& child = m_model.children.at(static_cast<std::size_t>(index));
        if (child.kind != Kind::Editor || child.isSaved)
            continue;
        hasLeftTheActiveOne = hasLeftTheActiveOne || index != m_model.active;
        if (!child.hasFile) {
            m_dialogs.yesNoAnswers.push_back(true);
            m_dialogs.saveAnswers.emplace_back(std::nullopt);
            break;
        }
        child.isSaved = flag();
        m_dialogs.yesNoAnswers.push_back(child.isSaved);
    }
    if (flag())
        m_hands.press(Qt::Key_F4, Qt::AltModifier);
    else
        choose({QStringLiteral("&Archivo"), QStringLiteral("Salir")});
    if (hasLeftTheActiveOne)
        m_model.comeBack();
}

} // namespace walk
