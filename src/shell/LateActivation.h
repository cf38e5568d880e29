// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace shell {

/// Makes up for an activation that Qt loses: while a pop-up is open Qt 6.4 takes no notice of a
/// window that becomes active, and does not look again once the pop-up is gone. The file dialog's
/// list of completions closes that late when a name is typed and Enter pressed at once; the frame
/// would have the focus of the desktop and yet no shortcut of it would work.
class LateActivation : public QObject {
    Q_OBJECT

public:
    explicit LateActivation(QObject* parent = nullptr);

private:
    void check();
};

} // namespace shell
