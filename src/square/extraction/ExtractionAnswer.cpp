// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/extraction/ExtractionAnswer.h"

#include "experiment/CyclicSquareReading.h"
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

/// The identifier of a table after an extraction: its own, unless it had none or the key of an
/// experiment that was there before.
QByteArray identifierAfter(const QByteArray& before, const QStringList& treatments)
{
    const bool isFree = before.isEmpty() || !treatmentsIn(before).isEmpty();
    return isFree ? treatmentKey(treatments).toUtf8() : before;
}

/// How a doubtful number was read, the key, what had to change its place for it, and where the key
/// is not kept.
QString noticeOf(const experiment::CyclicSquare& read, const QByteArray& identifier)
{
    const auto sentence = [](const QString& text) {
        return text.isEmpty() ? text : text + QLatin1Char('.');
    };
    const bool isKept = !treatmentsIn(identifier).isEmpty();
    QStringList notices = {
        sentence(read.foreignMarks.notice()), sentence(treatmentKey(read.square.treatments)),
        noticeOfMoves(read),
        isKept ? QString()
               : QStringLiteral("El cuadrado conserva su título: anote los tratamientos.")};
    notices.removeAll(QString());
    return notices.join(QLatin1Char(' '));
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
    const QByteArray kept = identifierAfter(identifier, treatments);
    grid::Extraction extraction{recordOf(read.value->square), treatments,
                                noticeOf(*read.value, kept)};
    extraction.square.setIdentifier(kept);
    return Result::of(std::move(extraction));
}

} // namespace

grid::Extractor extractionAnswer(std::function<QString()> warning)
{
    return [warning = std::move(warning)](QStringView text, const QByteArray& identifier) {
        base::Outcome<grid::Extraction> extraction = extractionOf(text, identifier);
        const QString more = extraction.value && warning ? warning() : QString();
        if (!more.isEmpty())
            extraction.value->notice += QLatin1Char(' ') + more;
        return extraction;
    };
}

} // namespace square
