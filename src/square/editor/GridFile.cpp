// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/GridFile.h"

#include "base/SafeFile.h"
#include "grid/view/NTabEd.h"
#include "square/editor/Freeze.h"
#include "square/editor/ShowSquare.h"

namespace square {

std::optional<QString> Export(grid::TNTabEd& table, const QString& fileName, int precision)
{
    const Freeze freeze(table);
    const EncodedSquare encoded = encode(squareOf(table), fileName, precision);
    if (auto reason = base::writeFile(fileName, encoded.bytes))
        return reason;
    for (int column = 1; column <= table.NrOfColumns(); ++column)
        table.setColumnName(column, encoded.columnNames.at(column - 1));
    for (int row = 1; row <= table.NrOfRows(); ++row)
        table.setRowName(row, encoded.rowNames.at(row - 1));
    return std::nullopt;
}

SquareHeader ReadHeader(const QString& fileName)
{
    const std::optional<QByteArray> bytes = base::readFile(fileName);
    return bytes ? readHeader(*bytes) : SquareHeader();
}

int Import(grid::TNTabEd& table, const QString& fileName, int /*mode*/)
{
    const std::optional<QByteArray> bytes = base::readFile(fileName);
    if (!bytes)
        return NoColumnCount;
    const DecodedSquare decoded = decode(*bytes);
    if (!decoded.data)
        return decoded.code;
    try {
        showSquare(*decoded.data, table);
    } catch (const grid::GridError&) {
        return NoRoomOrLineFeed;
    }
    return decoded.code;
}

} // namespace square
