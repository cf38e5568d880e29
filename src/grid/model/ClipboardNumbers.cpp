// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/ClipboardNumbers.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"
#include "base/TableText.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace grid {

namespace {

/// "1 columna y 3 filas".
QString sizeText(qsizetype columns, qsizetype rows)
{
    return QStringLiteral("%1 y %2").arg(base::counted(columns, QStringLiteral("columna")),
                                         base::counted(rows, QStringLiteral("fila")));
}

/// "la fila «R-1», columna «C-1»".
QString placeText(const record::SquareData& square, int column, int row)
{
    return QStringLiteral("la fila «%1», columna «%2»")
        .arg(square.rowName(row), square.columnName(column));
}

QString tooLarge(qsizetype columns, qsizetype rows, const Room& room)
{
    QString reason =
        QStringLiteral("Los datos del portapapeles ocupan %1. Desde %2 solo hay sitio para %3.")
            .arg(sizeText(columns, rows), placeText(room.square, room.column, room.row),
                 sizeText(room.columns(), room.rows()));
    QStringList steps;
    const bool fitsTheTable =
        columns <= room.square.NrOfColumns() && rows <= room.square.NrOfRows();
    if (!fitsTheTable) {
        constexpr qsizetype most = std::numeric_limits<int>::max();
        steps << (room.advice ? room.advice(static_cast<int>(std::min(columns, most)),
                                            static_cast<int>(std::min(rows, most)))
                              : QString());
        if (steps.last().isEmpty())
            return reason;
    }
    if (room.column > 1 || room.row > 1)
        steps << QStringLiteral("ponga el cursor en la primera celda");
    return QStringLiteral("%1 Para que quepan, %2.").arg(reason, steps.join(QStringLiteral(" y ")));
}

/// What to do about a field that is no number and was to go to a cell.
QString adviceOn(QStringView field, const QString& cell)
{
    const bool hasLetter =
        std::any_of(field.begin(), field.end(), [](QChar c) { return c.isLetter(); });
    const QString advice =
        hasLetter && base::letterQuestion(field).isEmpty()
            ? QStringLiteral("Si los datos llevan su tratamiento, como «A 24», tráigalos con "
                             "«Extract from Clpbrd», del menú de la tabla.")
            : base::adviceOnObservation(field);
    return QStringLiteral("Iba a %1. %2").arg(cell, advice);
}

} // namespace

QString copiedText(const record::SquareData& square, const CellRange& range)
{
    QString text;
    for (int row = range.row; row <= range.lastRow(); ++row) {
        if (row > range.row)
            text += QLatin1Char('\n');
        for (int column = range.column; column <= range.lastColumn(); ++column) {
            if (column > range.column)
                text += QLatin1Char('\t');
            text += base::fullText(square.value(column, row));
        }
    }
    return text;
}

base::Outcome<NumberBlock> readNumberBlock(QStringView text, const Room& room)
{
    using Result = base::Outcome<NumberBlock>;
    base::Outcome<base::TableText> reading = base::tableIn(text);
    if (!reading.value)
        return Result::refused(reading.reason);
    base::TableText& table = *reading.value;
    if (table.lines == 0)
        return Result::refused(QStringLiteral("El portapapeles no contiene ningún texto."));
    if (table.columns > room.columns() || table.lines > room.rows())
        return Result::refused(tooLarge(table.columns, table.lines, room));

    NumberBlock block;
    while (block.rows < table.lines) {
        const int lineNumber = ++block.rows;
        const std::vector<QStringView> fields = base::takeFields(table);
        const auto count = static_cast<int>(fields.size());
        if (count == 0)
            return Result::refused(QStringLiteral("La línea %1 está vacía.").arg(lineNumber));
        if (lineNumber > 1 && count != block.columns)
            return Result::refused(base::raggedLine(lineNumber, count, block.columns));
        block.columns = count;
        for (int i = 0; i < count; ++i) {
            const QStringView field = fields[static_cast<std::size_t>(i)];
            const auto number = base::numberIn(field, lineNumber, i + 1);
            if (!number.value) {
                const QString cell =
                    placeText(room.square, room.column + i, room.row + lineNumber - 1);
                return Result::refused(number.reason + QLatin1Char(' ') + adviceOn(field, cell));
            }
            block.values.push_back(*number.value);
            block.foreignMarks.look(fields[i], *number.value);
        }
    }
    return table.unclearNumbers ? Result::refused(base::unclearCommas())
                                : Result::of(std::move(block));
}

} // namespace grid
