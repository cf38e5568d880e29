// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

#include <cstdint>

namespace controls {

/// Up and down arrows that drive an edit, without wrap-around. Arrows and keys step, and the wheel
/// where the control has the focus: who scrolls past it changes nothing. The position is in the
/// edit with its thousands set apart by a point: "1.000".
class UpDown : public QSpinBox {
    Q_OBJECT

public:
    /// What can be typed into the edit.
    enum class Typing : std::uint8_t {
        Nothing,
        /// A number, which by itself changes nothing: the next step is taken from what then stands
        /// in the edit.
        StartOfStep,
    };

    /// Begins at the lowest position.
    UpDown(int low, int high, int increment, Typing typing, QWidget* parent = nullptr);

    QLineEdit* edit() const { return lineEdit(); }

    /// Moves to a position, or to the limit before it. That is no click.
    void setPosition(int position);
    int Position() const { return m_position; }

    void stepBy(int steps) override;

signals:
    /// The user asked for a step, be it one at a limit, which leaves the position where it is.
    void Click();

protected:
    void wheelEvent(QWheelEvent* event) override;
    StepEnabled stepEnabled() const override;
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& cursor) const override;

private:
    void takeOver();

    int m_position;
};

} // namespace controls
