// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

namespace square {

/// Up and down arrows that drive a read-only edit, without wrap-around.
///
/// Arrows, wheel and keys step; nothing can be typed. Click tells of every step that the user asks
/// for, also of one at a limit, which leaves the position where it is.
class UpDown : public QSpinBox {
    Q_OBJECT

public:
    UpDown(int low, int high, QWidget* parent = nullptr);

    QLineEdit* edit() const { return lineEdit(); }

    /// Moves to a position, or to the limit before it. That is no click.
    void setPosition(int position);
    int Position() const { return value(); }

    void stepBy(int steps) override;

signals:
    void Click();

protected:
    StepEnabled stepEnabled() const override;
};

} // namespace square
