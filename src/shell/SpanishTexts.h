// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTranslator>

namespace shell {

/// The texts of Qt's own dialogs and menus in Spanish, in the words of this program: Qt's catalogue
/// calls one thing "fichero" here and "archivo" there, and the key Ctrl "Control".
class SpanishTexts : public QTranslator {
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    /// Loads the catalogue `qtbase_es` in `folder`, or the copy inside the program where there is
    /// none.
    void loadFrom(const QString& folder);

    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
};

} // namespace shell
