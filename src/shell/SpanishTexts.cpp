// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SpanishTexts.h"

#include <QString>
#include <QTranslator>

namespace shell {

void loadSpanishTexts(QTranslator& translator, const QString& folder)
{
    const QString catalogue = QStringLiteral("qtbase_es");
    [[maybe_unused]] const bool loaded =
        translator.load(catalogue, folder) || translator.load(catalogue, QStringLiteral(":/shell"));
    Q_ASSERT(loaded);
}

} // namespace shell
