// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/UpDown.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace controls {

namespace {

constexpr QLatin1Char thousandsSeparator('.');

QString withoutSeparators(QString text)
{
    return text.remove(thousandsSeparator);
}

} // namespace

UpDown::UpDown(int low, int high, int increment, Typing typing, QWidget* parent)
    : QSpinBox(parent)
    , m_position(low)
{
    setLocale(QLocale::c()); // the same digits as everywhere else in the program
    setRange(low, high);
    setSingleStep(increment);
    setValue(low);
    setFocusPolicy(Qt::StrongFocus); // which the wheel does not give
    if (typing == Typing::Nothing) {
        edit()->setReadOnly(true);
        // Assistive technology sets values without a step.
        connect(this, &QSpinBox::valueChanged, this, &UpDown::takeOver);
    }
}

void UpDown::setPosition(int position)
{
    const QSignalBlocker blocker(this);
    setValue(position);
    m_position = value();
}

void UpDown::stepBy(int steps)
{
    const int target = std::clamp(value() + steps * singleStep(), minimum(), maximum());
    const bool changeTells = edit()->isReadOnly() && target != value();
    if (changeTells || !edit()->isReadOnly())
        QSpinBox::stepBy(steps);
    if (!changeTells)
        takeOver();
}

void UpDown::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

/// Both arrows work at the limits too, where a click is a click all the same.
QAbstractSpinBox::StepEnabled UpDown::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

QString UpDown::textFromValue(int value) const
{
    QString text = QString::number(value);
    for (qsizetype place = text.size() - 3; place > 0; place -= 3)
        text.insert(place, thousandsSeparator);
    return text;
}

int UpDown::valueFromText(const QString& text) const
{
    return withoutSeparators(text).toInt();
}

QValidator::State UpDown::validate(QString& text, int& cursor) const
{
    QString digits = withoutSeparators(text);
    return QSpinBox::validate(digits, cursor);
}

void UpDown::takeOver()
{
    m_position = value();
    emit Click();
}

} // namespace controls
