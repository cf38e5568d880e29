// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStackedWidget>

class QLabel;

namespace shell {

/// The single text of the status line. What the child windows write stays until they write again,
/// covered by a notice of what was done, and both by the tip of a menu entry for as long as it is
/// hovered. A text too long for the line ends in "...", and is whole in its tool tip.
class StatusLine : public QStackedWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Shows a lasting text at once, even if the program is busy afterwards; no notice is left.
    void setText(const QString& text);

    /// Shows a notice at once in front of the lasting text; an empty one uncovers it.
    void showNotice(const QString& notice);

    /// Covers lasting text and notice; an empty tip uncovers them.
    void showTip(const QString& tip);

private:
    QString m_lasting;
    QLabel* m_text;
    QLabel* m_tip;
};

} // namespace shell
