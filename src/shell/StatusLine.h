// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStackedWidget>

class QLabel;

namespace shell {

/// The single text of the status line. What the child windows write stays until they write again;
/// the tip of a menu entry covers it for as long as it is hovered. A text too long for the line
/// ends in "...", and is whole in its tool tip.
class StatusLine : public QStackedWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Shows a lasting text at once, even if the program is busy afterwards.
    void setText(const QString& text);

    /// Covers the lasting text; an empty tip uncovers it.
    void showTip(const QString& tip);

private:
    QLabel* m_lasting;
    QLabel* m_tip;
};

} // namespace shell
