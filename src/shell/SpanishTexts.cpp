// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SpanishTexts.h"

#include <QRegularExpression>

#include <array>

namespace shell {

namespace {

struct Wording {
    QRegularExpression theirs;
    QString ours;
};

/// What stands with its article goes before the bare word, which may have changed its gender. A
/// mnemonic stays at its letter.
const std::array<Wording, 9>& wordings()
{
    const auto wording = [](const QString& theirs, const QString& ours) {
        return Wording{QRegularExpression(theirs), ours};
    };
    static const std::array<Wording, 9> all{
        wording(QStringLiteral("fic(&?)hero"), QStringLiteral("arc\\1hivo")),
        wording(QStringLiteral("Fichero"), QStringLiteral("Archivo")),
        wording(QStringLiteral("Directorio no encontrado"),
                QStringLiteral("No se encontró la carpeta")),
        wording(QStringLiteral("^r al directorio"), QStringLiteral("Ir a la carpeta")),
        wording(QStringLiteral("\\bdel directorio"), QStringLiteral("de la carpeta")),
        wording(QStringLiteral("\\bel directorio"), QStringLiteral("la carpeta")),
        wording(QStringLiteral("\\bun directorio"), QStringLiteral("una carpeta")),
        wording(QStringLiteral("directorio"), QStringLiteral("carpeta")),
        wording(QStringLiteral("Directorio"), QStringLiteral("Carpeta")),
    };
    return all;
}

struct KeyName {
    QLatin1String theirs;
    QLatin1String ours;
};

/// As keyboards and the manual call them.
constexpr std::array keyNames{
    KeyName{QLatin1String("Ctrl"), QLatin1String("Ctrl")},
    KeyName{QLatin1String("Del"), QLatin1String("Supr")},
    KeyName{QLatin1String("Esc"), QLatin1String("Esc")},
    KeyName{QLatin1String("Return"), QLatin1String("Intro")},
    KeyName{QLatin1String("Tab"), QLatin1String("Tab")},
};

} // namespace

void SpanishTexts::loadFrom(const QString& folder)
{
    const QString catalogue = QStringLiteral("qtbase_es");
    [[maybe_unused]] const bool loaded =
        load(catalogue, folder) || load(catalogue, QStringLiteral(":/shell"));
    Q_ASSERT(loaded);
}

QString SpanishTexts::translate(const char* context, const char* sourceText,
                                const char* disambiguation, int n) const
{
    if (qstrcmp(context, "QShortcut") == 0) {
        for (const KeyName& key : keyNames) {
            if (key.theirs == QLatin1String(sourceText))
                return key.ours;
        }
    }
    QString text = QTranslator::translate(context, sourceText, disambiguation, n);
    for (const Wording& wording : wordings())
        text.replace(wording.theirs, wording.ours);
    return text;
}

} // namespace shell
