// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace shell {

/// Names a part that the toolkit makes by itself and leaves nameless, for those who hear the names
/// of controls instead of seeing them: scroll bars, dividers, menus.
/// A part that has a name keeps it; a widget that is no such part stays as it is.
void namePart(QWidget& widget);

} // namespace shell
