// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

#include <cstdint>

namespace controls {

/// Up and down arrows that drive an edit, without wrap-around. Arrows and keys step, and the wheel
/// where the control has the focus: who scrolls past it changes nothing. A value that assistive
/// technology sets is a click too, but nothing is taken while a question is open. The position
/// stands in the edit in plain digits, which no decimal sign can be mistaken in.
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

    /// What stands in the edit at this position until the first click; its thousands may be set
    /// apart by a point.
    void setFirstText(const QString& text);

    /// Sets back what was typed and never taken over by a step. @return whether there was any
    bool discardTyped();

    void stepBy(int steps) override;

signals:
    /// The user asked for a step, be it one at a limit, which leaves the position where it is.
    void Click();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    StepEnabled stepEnabled() const override;
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& cursor) const override;

private:
    void takeOver();

    int m_position;
    QString m_firstText;
    bool m_isTyping = false; ///< While the edit tells of what its user typed.
    bool m_clicked = false;
};

} // namespace controls
