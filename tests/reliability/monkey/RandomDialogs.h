// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reliability/monkey/Folder.h"
#include "window/ChildWindow.h"
#include "window/QtDialogs.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace monkey {

/// A question that was put to the user, and the answer.
struct Exchange {
    enum class What { Error, YesNo, Open, Save, Line, Integer };
    What what;
    const window::ChildWindow* asker; ///< The child that it stood over; null over the frame.
    QString text;                     ///< Of the box; of a name or a line that was given.
    window::Answer answer = window::Answer::None; ///< None too where the dialog was cancelled.
    int number = 0;
};

/// Dialogs that answer at random and note down what was asked. Some are Qt's own, on the screen,
/// where the user presses what he pleases before he answers.
class RandomDialogs final : public window::Dialogs {
public:
    explicit RandomDialogs(Folder& folder)
        : m_folder(folder)
    {
    }

    /// Answers from this source from now on.
    void begin(Random& random);
    const std::vector<Exchange>& exchanges() const { return m_exchanges; }
    /// What the user does behind an open question.
    void setAssault(std::function<void(Random&)> assault) { m_assault = std::move(assault); }

    void showError(QWidget* parent, const QString& text, const QString& caption) override;
    window::Answer askYesNo(QWidget* parent, const QString& text, const QString& caption,
                            window::Answer ofReturn) override;
    std::optional<QString> openFileName(QWidget* parent,
                                        const window::FileRequest& request) override;
    std::optional<QString> saveFileName(QWidget* parent,
                                        const window::FileRequest& request) override;
    std::optional<QString> editLine(QWidget* parent, const QString& caption, const QString& label,
                                    const QString& text) override;
    std::optional<int> editInteger(QWidget* parent, const QString& caption, const QString& label,
                                   int value, int low, int high) override;

private:
    void note(Exchange::What what, QWidget* parent, const QString& text, window::Answer answer,
              int number = 0);
    /// Answers the box that is about to open, once it is there.
    std::unique_ptr<QTimer> presser(const QString& button);
    bool isOnScreen();

    Folder& m_folder;
    window::QtDialogs m_real;
    Random* m_random = nullptr;
    std::vector<Exchange> m_exchanges;
    std::function<void(Random&)> m_assault = [](Random&) {};
    int m_names = 0; ///< Asked for in this step.
};

} // namespace monkey
