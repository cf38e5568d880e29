// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/monkey/RandomDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <utility>

namespace monkey {

namespace {

const window::ChildWindow* childAround(QWidget* widget)
{
    while (widget != nullptr && qobject_cast<window::ChildWindow*>(widget) == nullptr)
        widget = widget->parentWidget();
    return qobject_cast<window::ChildWindow*>(widget);
}

/// The button of that text, the only one, or else the way out without an answer.
void press(QMessageBox& box, const QString& text)
{
    const QList<QAbstractButton*> buttons = box.buttons();
    for (QAbstractButton* button : buttons) {
        if (QString(button->text()).remove(u'&') == text || buttons.size() == 1) {
            button->click();
            return;
        }
    }
    box.reject();
}

} // namespace

void RandomDialogs::begin(Random& random)
{
    m_random = &random;
    m_exchanges.clear();
    m_names = 0;
}

void RandomDialogs::showError(QWidget* parent, const QString& text, const QString& caption)
{
    note(Exchange::What::Error, parent, text, window::Answer::None);
    if (m_folder.isFull() && oneIn(*m_random, 3))
        m_folder.makeRoom();
    if (isOnScreen()) {
        const auto pressing = presser(QStringLiteral("OK"));
        m_real.showError(parent, text, caption);
    }
}

window::Answer RandomDialogs::askYesNo(QWidget* parent, const QString& text, const QString& caption,
                                       window::Answer ofReturn)
{
    constexpr window::Answer answers[] = {window::Answer::Yes, window::Answer::Yes,
                                          window::Answer::No, window::Answer::None};
    const window::Answer answer = answers[below(*m_random, 4)];
    note(Exchange::What::YesNo, parent, text, answer);
    if (!isOnScreen())
        return answer;
    const auto pressing = presser(answer == window::Answer::Yes  ? QStringLiteral("Sí")
                                  : answer == window::Answer::No ? QStringLiteral("No")
                                                                 : QString());
    return m_real.askYesNo(parent, text, caption, ofReturn);
}

std::optional<QString> RandomDialogs::openFileName(QWidget* parent, const window::FileRequest&)
{
    const bool isCancelled = oneIn(*m_random, 4);
    const QString name = m_folder.nameToOpen(*m_random);
    note(Exchange::What::Open, parent, name,
         isCancelled ? window::Answer::None : window::Answer::Yes);
    return isCancelled ? std::nullopt : std::optional(name);
}

std::optional<QString> RandomDialogs::saveFileName(QWidget* parent,
                                                   const window::FileRequest& request)
{
    constexpr int mostAttempts = 4; // then the user gives up
    const bool isCancelled = oneIn(*m_random, 5) || ++m_names > mostAttempts;
    const QString name = m_folder.nameToSave(*m_random, u'.' + request.suffix);
    note(Exchange::What::Save, parent, name,
         isCancelled ? window::Answer::None : window::Answer::Yes);
    return isCancelled ? std::nullopt : std::optional(name);
}

std::optional<QString> RandomDialogs::editLine(QWidget* parent, const QString&, const QString&,
                                               const QString& text)
{
    const bool isCancelled = oneIn(*m_random, 4);
    const QString line =
        oneIn(*m_random, 4) ? text : QStringLiteral("Ensayo %1").arg(below(*m_random, 99));
    note(Exchange::What::Line, parent, line,
         isCancelled ? window::Answer::None : window::Answer::Yes);
    return isCancelled ? std::nullopt : std::optional(line);
}

std::optional<int> RandomDialogs::editInteger(QWidget* parent, const QString&, const QString&, int,
                                              int low, int high)
{
    const bool isCancelled = oneIn(*m_random, 4);
    const int number = low + below(*m_random, high - low + 1);
    note(Exchange::What::Integer, parent, {},
         isCancelled ? window::Answer::None : window::Answer::Yes, number);
    return isCancelled ? std::nullopt : std::optional(number);
}

void RandomDialogs::note(Exchange::What what, QWidget* parent, const QString& text,
                         window::Answer answer, int number)
{
    m_exchanges.push_back({what, childAround(parent), text, answer, number});
}

bool RandomDialogs::isOnScreen()
{
    return oneIn(*m_random, 4);
}

/// Looks for the box until it is there, and until it has gone by the answer.
std::unique_ptr<QTimer> RandomDialogs::presser(const QString& button)
{
    auto timer = std::make_unique<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(),
                     [this, button, hasAssailed = false]() mutable {
                         auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                         if (box == nullptr)
                             return;
                         if (!std::exchange(hasAssailed, true) && oneIn(*m_random, 2))
                             m_assault(*m_random);
                         press(*box, button);
                     });
    timer->start(1);
    return timer;
}

} // namespace monkey
