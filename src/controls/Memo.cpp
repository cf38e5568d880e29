// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Memo.h"

namespace controls {

Memo::Memo(const QString& text, QWidget* parent)
    : QPlainTextEdit(text, parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

QStringList Memo::lines() const
{
    return toPlainText().split(QLatin1Char('\n'));
}

} // namespace controls
