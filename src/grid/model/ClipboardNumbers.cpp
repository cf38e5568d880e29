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

/// Whether a field holds a word and not a number that cannot be read, such as "1e999".
bool isWord(QStringView field)
{
    const bool isBetweenDigits =
        !field.isEmpty() && base::isDigit(field.front()) && base::isDigit(field.back());
    return !isBetweenDigits && base::letterQuestion(field).isEmpty() &&
           std::any_of(field.begin(), field.end(), [](QChar c) { return c.isLetter(); });
}

/// What to do about a field of a line that is no number. One that is empty beside words is the
/// corner of a table with its names.
QString adviceOn(QStringView field, const std::vector<QStringView>& line)
{
    const bool standsForNames =
        field.isEmpty() ? std::any_of(line.begin(), line.end(), isWord) : isWord(field);
    return standsForNames
               ? QStringLiteral("Copie solo números, sin nombres; los datos con su tratamiento, "
                                "como «A 24», van por «Extract from Clpbrd», del menú de la tabla.")
               : base::adviceOnObservation(field);
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
        return Result::refused(base::noText());
    const bool fits = table.columns <= room.columns() && table.lines <= room.rows();
    // What is too large is looked at as far as to tell whether it is a rectangle of numbers at all.
    constexpr qsizetype head = 12;
    const qsizetype lines = fits ? table.lines : std::min(table.lines, head);

    NumberBlock block;
    while (block.rows < lines) {
        const int lineNumber = ++block.rows;
        const std::vector<QStringView> fields = base::takeFields(table);
        const auto count = static_cast<int>(fields.size());
        if (count == 0)
            return Result::refused(base::emptyLine(lineNumber));
        if (lineNumber > 1 && count != block.columns)
            return Result::refused(base::raggedLine(lineNumber, count, block.columns));
        block.columns = count;
        const int read = fits ? count : std::min(count, static_cast<int>(head));
        for (int i = 0; i < read; ++i) {
            const QStringView field = fields[static_cast<std::size_t>(i)];
            const auto number = base::numberIn(field, lineNumber, i + 1);
            if (!number.value) {
                const QString cell =
                    placeText(room.square, room.column + i, room.row + lineNumber - 1);
                const QString place =
                    fits ? QStringLiteral(" Iba a %1. ").arg(cell) : QStringLiteral(" ");
                return Result::refused(number.reason + place + adviceOn(field, fields));
            }
            block.values.push_back(*number.value);
            block.foreignMarks.look(fields[i], *number.value);
        }
    }
    if (table.unclearNumbers)
        return Result::refused(base::unclearCommas());
    return fits ? Result::of(std::move(block))
                : Result::refused(tooLarge(table.columns, table.lines, room));
}

} // namespace grid
