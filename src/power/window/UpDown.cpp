// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/window/UpDown.h"

#include <QLineEdit>

namespace power {

namespace {

constexpr QLatin1Char thousandsSeparator('.');

QString withoutSeparators(QString text)
{
    return text.remove(thousandsSeparator);
}

} // namespace

UpDown::UpDown(int low, int high, int increment, int position, QWidget* parent)
    : QSpinBox(parent)
    , m_position(position)
{
    setLocale(QLocale::c()); // the same digits as everywhere else in the program
    setRange(low, high);
    setSingleStep(increment);
    setValue(position);
}

void UpDown::stepBy(int steps)
{
    QSpinBox::stepBy(steps);
    m_position = value();
    emit Click();
}

/// Both arrows work at the limits too, where what was typed may still have to be taken over.
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

QValidator::State UpDown::validate(QString& text, int& position) const
{
    QString digits = withoutSeparators(text);
    return QSpinBox::validate(digits, position);
}

} // namespace power
