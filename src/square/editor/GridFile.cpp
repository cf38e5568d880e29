// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/GridFile.h"

#include "base/SafeFile.h"
#include "grid/view/NTabEd.h"
#include "square/extraction/TreatmentKey.h"

#include <utility>

namespace square {

namespace {

/// A square without the key of treatments that it had before its order changed.
record::SquareData withItsTitle(const record::SquareData& square)
{
    record::SquareData titled = square;
    const auto treatments = treatmentsIn(square.Identifier()).size();
    if (treatments > 0 && treatments != square.NrOfColumns())
        titled.setIdentifier({});
    return titled;
}

} // namespace

base::Outcome<ExportedSquare> Export(grid::TNTabEd& table, const QString& fileName, int precision)
{
    const EncodedSquare encoded = encode(withItsTitle(table.square()), fileName, precision);
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
