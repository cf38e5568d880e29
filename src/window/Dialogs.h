// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace window {

/// What a window asks of a file dialog.
struct FileRequest {
    QString title;
    QString fileName; ///< Offered at first; may be empty.
    QString suffix;   ///< Added to a name typed without one: "asc", without a dot.
    QString filter;   ///< As shown: "ASCII|*.asc" means text "ASCII", pattern "*.asc".
    bool confirmOverwrite = true;
    /// What the status line says once the file is written, with the place of its name.
    QString savedNotice = QStringLiteral("Guardado: %1");

    /// The name that a chosen one will be written under, where it is another one: overwriting is
    /// asked about that one. The answer is still the chosen name.
    std::function<QString(const QString& chosen)> writtenName = {};
};

/// What came of a question with Yes and No.
enum class Answer {
    Yes,
    No,
    None, ///< The question went unanswered, with its window or at the end of the program.
};

/// Every question that a window puts to its user. The program passes QtDialogs, a test an object
/// that answers by script.
///
/// All calls are modal over `parent` and return once answered. No shortcut and no close reaches the
/// windows meanwhile, and commands are refused (see OpenQuestion.h), but where `parent` is gone all
/// the same by then, the call returns as cancelled: a window that does nothing on a cancelled
/// question touches nothing that is dead.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// An error box: icon, `text`, an OK button; `caption` is its title.
    virtual void showError(QWidget* parent, const QString& text, const QString& caption) = 0;

    /// A question box with Yes and No and no way past them.
    /// @param ofReturn the answer that the Return key gives at once: the one that loses nothing
    virtual Answer askYesNo(QWidget* parent, const QString& text, const QString& caption,
                            Answer ofReturn) = 0;

    /// The existing file that the user chose; nothing when the dialog was cancelled.
    virtual std::optional<QString> openFileName(QWidget* parent, const FileRequest& request) = 0;

    /// The file to be written that the user chose, in a folder that exists, overwriting agreed to
    /// where the request wants it; nothing when the dialog was cancelled.
    virtual std::optional<QString> saveFileName(QWidget* parent, const FileRequest& request) = 0;

    /// One line of text, `text` at first; nothing when cancelled.
    virtual std::optional<QString> editLine(QWidget* parent, const QString& caption,
                                            const QString& label, const QString& text) = 0;

    /// A whole number in `low`..`high`, `value` at first; nothing when cancelled.
    virtual std::optional<int> editInteger(QWidget* parent, const QString& caption,
                                           const QString& label, int value, int low, int high) = 0;
};

} // namespace window
