// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes have a code, and what loads survives a save.
#include "square/file/SquareFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const char* bytes, std::size_t size)
{
    const QByteArray file(bytes, static_cast<qsizetype>(size));
    const square::DecodedSquare read = square::decode(file);
    if (read.code != square::Usable)
        return 0;
    const record::SquareData& data = *read.data;
    const square::EncodedSquare encoded = square::encode(data, QStringLiteral("/tmp/a.asc"));
    const square::DecodedSquare again = square::decode(encoded.bytes);
    if (again.code != square::Usable || again.data->NrOfColumns() != data.NrOfColumns() ||
        again.data->NrOfRows() != data.NrOfRows())
        std::abort();
    if (!data.Identifier().isEmpty() && again.data->Identifier() != data.Identifier())
        std::abort();
    const bool exact = !encoded.rounded;
    for (int row = 1; row <= data.NrOfRows(); ++row) {
        if (again.data->rowAttribute(row) != data.rowAttribute(row))
            std::abort();
        for (int column = 1; exact && column <= data.NrOfColumns(); ++column) {
            if (again.data->value(column, row) != data.value(column, row))
                std::abort();
        }
    }
    return 0;
}
