// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/ClipboardNumbers.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"

namespace grid {

namespace {

/// "1 columna y 3 filas".
QString sizeText(qsizetype columns, qsizetype rows)
{
    return QStringLiteral("%1 y %2").arg(base::counted(columns, QStringLiteral("columna")),
                                         base::counted(rows, QStringLiteral("fila")));
}

QString tooLarge(qsizetype columns, qsizetype rows, const Room& room)
{
    return QStringLiteral("Los datos del portapapeles ocupan %1. Desde %2 solo hay sitio para %3.")
        .arg(sizeText(columns, rows), room.start, sizeText(room.columns, room.rows));
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
        if (count > room.columns || lineNumber > room.rows)
            return Result::refused(tooLarge(count, base::lineCount(all), room));
        block.columns = static_cast<int>(count);
        const std::vector<QStringView> fields = base::fieldsOf(line, separator);
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const auto number =
                base::numberIn(fields[i], lineNumber, static_cast<qsizetype>(i) + 1);
            if (!number.value)
                return Result::refused(number.reason);
            block.values.push_back(*number.value);
        }
    }
    return Result::of(std::move(block));
}

} // namespace grid
