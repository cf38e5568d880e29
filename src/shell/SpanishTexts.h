// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;
class QTranslator;

namespace shell {

/// Loads the texts of Qt's own dialogs and menus in Spanish: the catalogue `qtbase_es` in `folder`,
/// or the copy inside the program where there is none.
void loadSpanishTexts(QTranslator& translator, const QString& folder);

} // namespace shell
