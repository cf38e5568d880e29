// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Caption.h"

namespace window {

namespace {

// Qt reads it in a caption as the place of a mark; doubled it stands for itself.
const QLatin1String markPlace("[*]");
const QLatin1String markPlaceItself("[*][*]");

} // namespace

QString fileCaption(const QString& kind, QString fileName)
{
    return kind + QStringLiteral(" - ") + fileName.replace(markPlace, markPlaceItself);
}

QString onOneLine(QString text)
{
    for (QChar& character : text) {
        if (character < QLatin1Char(' '))
            character = QLatin1Char(' ');
    }
    return text;
}

QString readCaption(QString windowTitle)
{
    return onOneLine(windowTitle.replace(markPlaceItself, markPlace));
}

} // namespace window
