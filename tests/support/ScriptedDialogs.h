// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Dialogs.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <vector>

/// Dialogs that answer from a script and remember what they were asked.
///
/// A question without an answer left fails the test and is answered as a cancelled dialog (No for a
/// Yes/No box). Error boxes need no answer.
class ScriptedDialogs : public window::Dialogs {
public:
    struct Box {
        QString text;
        QString caption;
        window::Answer ofReturn = window::Answer::None; ///< Of a Yes/No box.
    };

    std::deque<std::optional<QString>> openAnswers;
    std::deque<std::optional<QString>> saveAnswers;
    std::deque<bool> yesNoAnswers;
    std::deque<std::optional<QString>> lineAnswers;
    std::deque<std::optional<int>> integerAnswers;

    std::vector<Box> errors;
    std::vector<Box> questions;
    std::function<void()> whenAskedYesNo = [] {}; ///< Looks at the program while it asks.
    std::vector<window::FileRequest> openRequests;
    std::vector<window::FileRequest> saveRequests;

    void showError(QWidget*, const QString& text, const QString& caption) override
    {
        errors.push_back({text, caption});
    }
    window::Answer askYesNo(QWidget*, const QString& text, const QString& caption,
                            window::Answer ofReturn) override
    {
        questions.push_back({text, caption, ofReturn});
        whenAskedYesNo();
        return next(yesNoAnswers, false, "Yes/No") ? window::Answer::Yes : window::Answer::No;
    }
    std::optional<QString> openFileName(QWidget*, const window::FileRequest& request) override
    {
        openRequests.push_back(request);
        return next(openAnswers, std::optional<QString>(), "open file");
    }
    std::optional<QString> saveFileName(QWidget*, const window::FileRequest& request) override
    {
        saveRequests.push_back(request);
        return next(saveAnswers, std::optional<QString>(), "save file");
    }
    std::optional<QString> editLine(QWidget*, const QString& caption, const QString&,
                                    const QString& text) override
    {
        questions.push_back({text, caption});
        return next(lineAnswers, std::optional<QString>(), "edit line");
    }
    std::optional<int> editInteger(QWidget*, const QString& caption, const QString& label, int, int,
                                   int) override
    {
        questions.push_back({label, caption});
        return next(integerAnswers, std::optional<int>(), "edit integer");
    }

private:
    template <typename Answer>
    static Answer next(std::deque<Answer>& answers, Answer fallback, const char* dialog)
    {
        if (answers.empty()) {
            ADD_FAILURE() << "the script has no answer for a dialog: " << dialog;
            return fallback;
        }
        std::swap(fallback, answers.front());
        answers.pop_front();
        return fallback;
    }
};
