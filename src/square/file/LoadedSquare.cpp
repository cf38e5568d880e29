// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/LoadedSquare.h"

#include "base/SafeFile.h"
#include "square/file/SquareFile.h"

#include <new>
#include <utility>

namespace square {

base::Outcome<LoadedSquare> loadSquare(const QString& fileName)
{
    using Loaded = base::Outcome<LoadedSquare>;
    const QString badFile = QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.");
    try {
        const base::Outcome<QByteArray> bytes = base::readLimited(fileName);
        if (!bytes.value)
            return Loaded::refused(bytes.reason.isEmpty() ? badFile : bytes.reason);
        DecodedSquare decoded = decode(*bytes.value);
        if (decoded.code == NoObservation)
            return Loaded::refused(badFile + QLatin1Char('\n') + decoded.problem);
        if (decoded.code != Usable)
            return Loaded::refused(decoded.problem.isEmpty() ? badFile : decoded.problem);
        return Loaded::of({*std::move(decoded.data), base::fingerprint(*bytes.value)});
    } catch (const std::bad_alloc&) {
        return Loaded::refused(record::outOfMemoryMessage());
    }
}

QString shapeNotice(int columns, int rows)
{
    if (columns == rows)
        return {};
    const QString start =
        QStringLiteral("No es un cuadrado, tiene %1 columnas y %2 filas: se analiza "
                       "con orden %1, ")
            .arg(columns)
            .arg(rows);
    return start + (columns > rows ? QStringLiteral("y las celdas que faltan como 0.")
                                   : QStringLiteral("sin las filas que sobran."));
}

} // namespace square
