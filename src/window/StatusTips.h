// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMenu;
class QWidget;

namespace window {

/// Makes a pop-up menu, with its submenus, tell the status tips of its entries through `owner` to
/// the frame around it, as a menu of the bar does of its own accord. Both must live equally long.
void tellStatusTips(QMenu& popup, QWidget& owner);

} // namespace window
