// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/UpDown.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace square {

UpDown::UpDown(int low, int high, QWidget* parent)
    : QSpinBox(parent)
{
    setLocale(QLocale::c()); // the same digits as everywhere else in the program
    setRange(low, high);
    lineEdit()->setReadOnly(true);
    connect(this, &QSpinBox::valueChanged, this, &UpDown::Click);
}

void UpDown::setPosition(int position)
{
    const QSignalBlocker blocker(this);
    setValue(position);
}

void UpDown::stepBy(int steps)
{
    if (std::clamp(value() + steps, minimum(), maximum()) != value())
        QSpinBox::stepBy(steps);
    else
        emit Click();
}

/// Both arrows work at the limits too, where a click is a click all the same.
QAbstractSpinBox::StepEnabled UpDown::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

} // namespace square
