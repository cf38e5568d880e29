// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/ShapeNotice.h"

namespace square {

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
