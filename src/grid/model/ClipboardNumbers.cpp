// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/ClipboardNumbers.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"

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
    QStringList advice{QStringLiteral("Iba a %1.").arg(cell)};
    if (std::none_of(field.begin(), field.end(), [](QChar c) { return c.isLetter(); })) {
        advice << base::adviceOnObservation(field);
    } else {
        advice << base::letterQuestion(field)
               << QStringLiteral("Si los datos llevan su tratamiento, como «A 24», tráigalos con "
                                 "«Extract from Clpbrd», del menú de la tabla.");
    }
    advice.removeAll(QString());
    return advice.join(QLatin1Char(' '));
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
    if (text.isEmpty())
        return Result::refused(QStringLiteral("El portapapeles no contiene ningún texto."));

    const QStringView all = text;
    const QChar separator = base::separatorOf(all);
    NumberBlock block;
    while (!text.isEmpty()) {
        const QStringView line = base::takeLine(text);
        const int lineNumber = ++block.rows;
        if (line.trimmed().isEmpty())
            return Result::refused(QStringLiteral("La línea %1 está vacía.").arg(lineNumber));
        const qsizetype count = base::fieldCount(line, separator);
        if (lineNumber > 1 && count != block.columns) {
            return Result::refused(
                QStringLiteral("La línea %1 tiene %2 y la primera, %3: los datos "
                               "no forman un rectángulo.")
                    .arg(lineNumber)
                    .arg(base::counted(count, QStringLiteral("campo")))
                    .arg(block.columns));
        }
        if (count > room.columns() || lineNumber > room.rows())
            return Result::refused(tooLarge(count, base::lineCount(all), room));
        block.columns = static_cast<int>(count);
        const std::vector<QStringView> fields = base::fieldsOf(line, separator);
        for (int i = 0; i < block.columns; ++i) {
            const QStringView field = fields[static_cast<std::size_t>(i)];
            const auto number = base::numberIn(field, lineNumber, i + 1);
            if (!number.value) {
                const QString cell =
                    placeText(room.square, room.column + i, room.row + lineNumber - 1);
                return Result::refused(number.reason + QLatin1Char(' ') + adviceOn(field, cell));
            }
            block.values.push_back(*number.value);
        }
    }
    return Result::of(std::move(block));
}

} // namespace grid
