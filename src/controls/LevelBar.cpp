// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LevelBar.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace controls {

LevelBar::LevelBar(QWidget* parent)
    : QScrollBar(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setInvertedControls(false); // the keys that point right raise the level
}

void LevelBar::paintEvent(QPaintEvent* event)
{
    QScrollBar::paintEvent(event);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

} // namespace controls
