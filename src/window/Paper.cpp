// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Paper.h"

#include <QPalette>

namespace window {

void makePaper(QPalette& palette)
{
    constexpr QColor ink(0x20, 0x28, 0x30);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, ink);
    palette.setColor(QPalette::Window, QColor(0xF2, 0xF4, 0xF6));
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Button, QColor(0xE8, 0xEC, 0xF0));
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::Highlight, QColor(0xCF, 0xE3, 0xF7));
    palette.setColor(QPalette::HighlightedText, ink);
    palette.setColor(QPalette::Link, QColor(0x1F, 0x5F, 0xA8));
}

} // namespace window
