// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LevelBar.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWheelEvent>

namespace controls {

LevelBar::LevelBar(QWidget* parent)
    : QScrollBar(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setInvertedControls(false); // the keys that point right raise the level
}

void LevelBar::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QScrollBar::wheelEvent(event);
    else
        event->ignore(); // who scrolls past it changes nothing
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
