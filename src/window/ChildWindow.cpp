// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ChildWindow.h"

namespace window {

ChildWindow::ChildWindow(QWidget* parent)
    : QWidget(parent)
{
}

} // namespace window
