// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/extraction/ExtractionAnswer.h"

#include "experiment/CyclicSquareReading.h"
#include "grid/view/NTabEd.h"
#include "square/extraction/TreatmentKey.h"

namespace square {

namespace {

QString noticeOfMoves(const experiment::CyclicSquare& read)
{
    if (read.rowsMoved && read.columnsMoved)
        return QStringLiteral("Se reordenaron las filas y las columnas.");
    if (read.rowsMoved)
        return QStringLiteral("Se reordenaron las filas.");
    return read.columnsMoved ? QStringLiteral("Se reordenaron las columnas.") : QString();
}

/// How a doubtful number was read, the key, and what had to change its place for it.
QString noticeOf(const experiment::CyclicSquare& read)
{
    QString doubt = read.foreignMarks.notice();
    if (!doubt.isEmpty())
        doubt += QLatin1Char('.');
    QStringList notices = {doubt, treatmentKey(read.square.treatments) + QLatin1Char('.'),
                           noticeOfMoves(read)};
    notices.removeAll(QString());
    return notices.join(QLatin1Char(' '));
}

/// The identifier of a table after an extraction: its own, unless it had none or the key of an
/// experiment that was there before.
QByteArray identifierAfter(const QByteArray& before, const QStringList& treatments)
{
    const bool isFree = before.isEmpty() || !treatmentsIn(before).isEmpty();
    return isFree ? treatmentKey(treatments).toUtf8() : before;
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

base::Outcome<grid::Extraction> extractionOf(QStringView text, const QByteArray& identifier)
{
    using Result = base::Outcome<grid::Extraction>;
    const auto read = experiment::readCyclicSquare(text);
    if (!read.value)
        return Result::refused(read.reason);
    const QStringList& treatments = read.value->square.treatments;
    grid::Extraction extraction{recordOf(read.value->square), treatments, noticeOf(*read.value)};
    extraction.square.setIdentifier(identifierAfter(identifier, treatments));
    return Result::of(std::move(extraction));
}

} // namespace

void answerExtractions(grid::TNTabEd& table)
{
    table.setExtractor(extractionOf);
}

} // namespace square
