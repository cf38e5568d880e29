// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/extraction/ExtractionAnswer.h"

#include "experiment/CyclicSquareReading.h"
#include "grid/view/NTabEd.h"

namespace square {

namespace {

/// "1 = A, 2 = B": which number each treatment has in the cyclic layout.
QString treatmentKey(const QStringList& treatments)
{
    QStringList entries;
    for (qsizetype i = 0; i < treatments.size(); ++i)
        entries += QStringLiteral("%1 = %2").arg(i + 1).arg(treatments[i]);
    return entries.join(QStringLiteral(", "));
}

record::SquareData recordOf(const experiment::LatinSquare& square)
{
    const int n = square.order();
    record::SquareData result(n, n);
    for (int i = 0; i < n; ++i) {
        result.setColumnName(i + 1, square.columns[i]);
        result.setRowName(i + 1, square.rows[i]);
        for (int row = 0; row < n; ++row)
            result.setValue(i + 1, row + 1, square.values[square.place(i, row)]);
    }
    return result;
}

base::Outcome<grid::Extraction> extractionOf(QStringView text)
{
    using Result = base::Outcome<grid::Extraction>;
    const auto read = experiment::readCyclicSquare(text);
    if (!read.value)
        return Result::refused(read.reason);
    return Result::of(
        {recordOf(*read.value),
         QStringLiteral("Tratamientos: %1.").arg(treatmentKey(read.value->treatments))});
}

} // namespace

void answerExtractions(grid::TNTabEd& table)
{
    table.setExtractor(extractionOf);
}

} // namespace square
