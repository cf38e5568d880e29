// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

namespace power {

/// Up and down arrows beside an edit. Typing into the edit changes nothing by itself: the position
/// moves when an arrow is clicked (or its key pressed, or the wheel turned), from what then stands
/// in the edit.
///
/// Thousands are set apart by a point: "1.000".
class UpDown : public QSpinBox {
    Q_OBJECT

public:
    UpDown(int low, int high, int increment, int position, QWidget* parent = nullptr);

    QLineEdit* edit() const { return lineEdit(); }
    int Position() const { return m_position; }

    void stepBy(int steps) override;

signals:
    /// An arrow was clicked, also where the position was at its limit.
    void Click();

protected:
    StepEnabled stepEnabled() const override;
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;

private:
    int m_position;
};

} // namespace power
