// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QString>

/// What forms are put together with.
namespace controls {

/// A control by the name that programs know it by and the one that a screen reader tells.
template <typename Control>
Control* named(Control* control, const QString& name, const QString& accessibleName)
{
    control->setObjectName(name);
    control->setAccessibleName(accessibleName);
    return control;
}

/// A label, whose mnemonic and click lead to its control.
inline QLabel* labelOf(QWidget* control, const QString& text)
{
    auto* label = new QLabel(text);
    label->setBuddy(control);
    return label;
}

} // namespace controls
