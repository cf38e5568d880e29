// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Dialogs.h"

namespace window {

/// The dialogs on the screen: Qt's own rather than the desktop's, so that they speak the program's
/// language everywhere.
class QtDialogs final : public Dialogs {
public:
    void showError(QWidget* parent, const QString& text, const QString& caption) override;
    Answer askYesNo(QWidget* parent, const QString& text, const QString& caption,
                    Answer ofReturn) override;
    std::optional<QString> openFileName(QWidget* parent, const FileRequest& request) override;
    std::optional<QString> saveFileName(QWidget* parent, const FileRequest& request) override;
    std::optional<QString> editLine(QWidget* parent, const QString& caption, const QString& label,
                                    const QString& text) override;
    std::optional<int> editInteger(QWidget* parent, const QString& caption, const QString& label,
                                   int value, int low, int high) override;
};

} // namespace window
