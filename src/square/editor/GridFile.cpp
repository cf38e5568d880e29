// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/GridFile.h"

#include "base/SafeFile.h"
#include "grid/view/NTabEd.h"
#include "square/extraction/TreatmentKey.h"

#include <utility>

namespace square {

namespace {

/// Whether the title is the key of treatments from before the order changed.
bool hasOldKey(const record::SquareData& square)
{
    const auto treatments = treatmentsIn(square.Identifier()).size();
    return treatments > 0 && treatments != square.NrOfColumns();
}

record::SquareData untitled(record::SquareData square)
{
    square.setIdentifier({});
    return square;
}

} // namespace

base::Outcome<ExportedSquare> Export(grid::TNTabEd& table, const QString& fileName, int precision)
{
    const record::SquareData& square = table.square();
    const EncodedSquare encoded = hasOldKey(square) ? encode(untitled(square), fileName, precision)
                                                    : encode(square, fileName, precision);
    const QByteArray fingerprint = base::fingerprint(encoded.bytes);
    const base::Outcome<base::WrittenFile> file = base::replaceFile(fileName, encoded.bytes);
    if (!file.value)
        return base::Outcome<ExportedSquare>::refused(file.reason);
    const grid::Freeze freeze(table);
    for (int column = 1; column <= table.NrOfColumns(); ++column)
        table.setColumnName(column, encoded.columnNames.at(column - 1));
    for (int row = 1; row <= table.NrOfRows(); ++row)
        table.setRowName(row, encoded.rowNames.at(row - 1));
    return base::Outcome<ExportedSquare>::of({encoded.rounded, file.value->notKept, fingerprint});
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
    DecodedSquare decoded = decode(*bytes);
    if (!decoded.data)
        return decoded.code;
    try {
        table.setSquare(*std::move(decoded.data));
    } catch (const grid::GridError&) {
        return NoRoomOrLineFeed;
    }
    return decoded.code;
}

} // namespace square
