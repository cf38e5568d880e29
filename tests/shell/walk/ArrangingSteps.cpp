// SPDX-License-Identifier: GPL-3.0-or-later
// Arranging the children, and going from one to another.
#include "shell/walk/FrameWalk.h"

#include <QAbstractScrollArea>

namespace walk {

void FrameWalk::addArrangingSteps()
{
    addWithChild(
        "maximise, by its button",
        [this](int index) { return canClickButton(index, QStyle::SC_TitleBarMaxButton); },
        [this] {
            clickButton(QStyle::SC_TitleBarMaxButton);
            m_model.maximise();
        });
    addWithChild(
        "maximise, by double click",
        [this](int index) {
            return !m_model.children.at(static_cast<std::size_t>(index)).isMinimised &&
                   canClickButton(index, QStyle::SC_TitleBarLabel);
        },
        [this] {
            m_hands.doubleClickFrame(*m_hands.captionPoint(place(m_target)));
            m_model.activate(m_target);
            m_model.commit();
            m_model.maximise();
        });
    add(
        "restore from maximised", [this] { return m_model.isMaximised; },
        [this] {
            m_hands.clickFrame(m_hands.maximisedButtonPoint(QStyle::SC_MdiNormalButton));
            m_model.restore();
        });

    const auto always = [] { return true; };
    const QString menu = QStringLiteral("&Ventana");
    add("cascade, by menu", always, [this, menu] {
        choose({menu, QStringLiteral("&Cascada")});
        m_model.arrange();
    });
    add("cascade, by key", always, [this] {
        m_hands.press(Qt::Key_F4, Qt::ShiftModifier);
        m_model.arrange();
    });
    add("tile, by menu", always, [this, menu] {
        choose({menu, QStringLiteral("&Mosaico")});
        m_model.arrange();
    });
    add("tile, by key", always, [this] {
        m_hands.press(Qt::Key_F5, Qt::ShiftModifier);
        m_model.arrange();
    });
}

void FrameWalk::addMinimisingSteps()
{
    addWithChild(
        "minimise",
        [this](int index) { return canClickButton(index, QStyle::SC_TitleBarMinButton); },
        [this] {
            clickButton(QStyle::SC_TitleBarMinButton);
            m_model.minimise();
        });
    addWithChild(
        "restore from minimised",
        [this](int index) { return canClickButton(index, QStyle::SC_TitleBarNormalButton); },
        [this] {
            clickButton(QStyle::SC_TitleBarNormalButton);
            m_model.restore();
        });
    add(
        "minimise from maximised", [this] { return m_model.isMaximised; },
        [this] {
            m_hands.clickFrame(m_hands.maximisedButtonPoint(QStyle::SC_MdiMinButton));
            m_model.minimise();
        });
}

void FrameWalk::addActivatingSteps()
{
    addWithChild(
        "another child, by the window list", [](int) { return true; },
        [this] {
            const QString number = QString::number(m_target + 1);
            choose({QStringLiteral("&Ventana"),
                    (m_target < 9 ? QStringLiteral("&%1 %2") : QStringLiteral("%1 %2"))
                        .arg(number, target().caption)});
            m_model.activate(m_target);
        });
    addWithChild(
        "another child, by its caption",
        [this](int index) { return canClickButton(index, QStyle::SC_TitleBarLabel); },
        [this] { clickButton(QStyle::SC_TitleBarLabel); });
    addWithChild(
        "a click into a child", [this](int index) { return m_hands.canClick(body(index)); },
        [this] {
            m_hands.click(body(m_target));
            m_model.activate(m_target);
            m_model.focus(QString::fromLatin1(bodyName(m_target)));
        });
    const auto goRound = [this](Qt::Key key, Qt::KeyboardModifiers modifiers, int distance) {
        return [this, key, modifiers, distance] {
            m_hands.press(key, modifiers);
            const int count = static_cast<int>(m_model.children.size());
            m_model.activate((m_model.active + distance + count) % count);
        };
    };
    const auto hasChild = [this] { return m_model.hasChild(); };
    add("the next child, by Ctrl+Tab", hasChild, goRound(Qt::Key_Tab, Qt::ControlModifier, 1));
    add("the previous child, by Ctrl+Shift+Tab", hasChild,
        goRound(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, -1));
}

const char* FrameWalk::bodyName(int index) const
{
    switch (m_model.children.at(static_cast<std::size_t>(index)).kind) {
    case Kind::Graph:
        return "Graph";
    case Kind::Power:
        return "log";
    default:
        return "Datos";
    }
}

QWidget* FrameWalk::body(int index) const
{
    auto* named = place(index).findChild<QWidget*>(QString::fromLatin1(bodyName(index)));
    const auto* scrolled = qobject_cast<QAbstractScrollArea*>(named);
    return scrolled == nullptr ? named : scrolled->viewport();
}

} // namespace walk
