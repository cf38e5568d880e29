// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/ClipboardNumbers.h"

#include "base/NumberText.h"
#include "grid/ClipboardLines.h"

namespace grid {

QString copiedText(const TableData& table, const CellRange& range)
{
    QString text;
    for (int row = range.row; row <= range.lastRow(); ++row) {
        if (row > range.row)
            text += QLatin1Char('\n');
        for (int column = range.column; column <= range.lastColumn(); ++column) {
            if (column > range.column)
                text += QLatin1Char('\t');
            text += base::fullText(table.value(column, row));
        }
    }
    return text;
}

Outcome<NumberBlock> readNumberBlock(QStringView text)
{
    using Result = Outcome<NumberBlock>;
    const std::vector<QStringView> lines = linesOf(text);
    if (lines.empty())
        return Result::refused(QStringLiteral("El portapapeles no contiene ningún texto."));

    const QChar separator = separatorOf(text);
    NumberBlock block;
    for (const QStringView line : lines) {
        const int lineNumber = ++block.rows;
        if (line.trimmed().isEmpty())
            return Result::refused(QStringLiteral("La línea %1 está vacía.").arg(lineNumber));
        const std::vector<QStringView> fields = fieldsOf(line, separator);
        const int count = static_cast<int>(fields.size());
        if (lineNumber == 1)
            block.columns = count;
        if (count != block.columns) {
            return Result::refused(
                QStringLiteral("La línea %1 tiene %2 y la primera, %3: los datos "
                               "no forman un rectángulo.")
                    .arg(lineNumber)
                    .arg(counted(count, QStringLiteral("campo")))
                    .arg(block.columns));
        }
        for (int i = 0; i < count; ++i) {
            const auto number = numberIn(fields[static_cast<std::size_t>(i)], lineNumber, i + 1);
            if (!number.value)
                return Result::refused(number.reason);
            block.values.push_back(*number.value);
        }
    }
    return Result::of(std::move(block));
}

} // namespace grid
