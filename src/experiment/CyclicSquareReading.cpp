// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/CyclicSquareReading.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"
#include "base/TableText.h"
#include "experiment/CyclicArrangement.h"
#include "experiment/ExperimentList.h"
#include "experiment/ExperimentSquare.h"

#include <algorithm>

namespace experiment {

namespace {

/// A Latin square as it was copied.
struct CopiedSquare {
    LatinSquare square;
    base::ForeignMarks foreignMarks;
};
using Result = base::Outcome<CopiedSquare>;

constexpr qsizetype longestExperiment = 1'000'000; // characters: the lists of order 200 and more

Result latinSquareIn(const base::Outcome<Experiment>& reading)
{
    if (!reading.value)
        return Result::refused(reading.reason);
    base::Outcome<LatinSquare> square = latinSquareOf(*reading.value);
    if (!square.value)
        return Result::refused(square.reason);
    CopiedSquare copied{*std::move(square.value), {}};
    for (const Observation& observation : *reading.value)
        copied.foreignMarks.look(observation.number, observation.value);
    return Result::of(std::move(copied));
}

/// Whether a refused list may be a small square of numbers, perhaps with names around it.
bool mayBeSquareOfNumbers(const FieldLines& lines)
{
    return lines.size() > 1 && lines.size() <= mostLinesOfASquare &&
           std::all_of(lines.begin() + 1, lines.end(), [](const auto& fields) {
               return !fields.empty() &&
                      std::all_of(fields.begin() + 1, fields.end(), [](QStringView field) {
                          return base::readTypedNumber(field).value.has_value();
                      });
           });
}

/// Why there is no arrangement, what not to do, and how the next experiment will have one.
QString noCyclicArrangement()
{
    return QStringLiteral(
        "Los datos forman un cuadrado latino, pero ningún cambio de orden de sus filas, "
        "columnas y tratamientos lo convierte en el cuadrado cíclico que el programa "
        "analiza.\n\n"
        "No lo escriba ni lo pegue como números: el programa daría a las celdas los tratamientos "
        "de REFERENCIA: TRATAMIENTOS, que no son los que se sembraron, y el reporte sería falso."
        "\n\n"
        "Para que el próximo sirva, sortéelo a partir del cuadrado cíclico: ponga al azar el orden "
        "de sus filas, el de sus columnas y qué tratamiento lleva cada número. Vea «Un cuadrado "
        "que no se vuelve cíclico» en el manual (F1).");
}

/// The first reading of the lines that gives a Latin square; the fault of the likeliest where none
/// does.
Result readLatinSquare(const FieldLines& lines, Separators separators)
{
    const bool isList = isExperimentList(lines);
    const auto readings =
        isList ? std::vector{readExperimentList(lines, separators)} : readExperimentSquare(lines);
    if (readings.empty()) {
        return Result::refused(QStringLiteral(
            "El texto no tiene forma de experimento: hacen falta líneas con fila, columna, "
            "tratamiento y observación, o un cuadrado de celdas como «A 24», con los campos "
            "separados por tabuladores, por punto y coma o, si el decimal es el punto, por "
            "comas."));
    }
    const Result likeliest = latinSquareIn(readings.front());
    for (std::size_t i = 1; i < readings.size() && !likeliest.value; ++i) {
        Result other = latinSquareIn(readings[i]);
        if (other.value)
            return other;
    }
    if (!likeliest.value && isList && mayBeSquareOfNumbers(lines))
        return Result::refused(numbersArePasted());
    return likeliest;
}

} // namespace

base::Outcome<CyclicSquare> readCyclicSquare(QStringView text)
{
    using Reading = base::Outcome<CyclicSquare>;
    if (text.size() > longestExperiment) {
        return Reading::refused(
            QStringLiteral(
                "El portapapeles tiene %1 caracteres. De un experimento se leen hasta %2.")
                .arg(text.size())
                .arg(longestExperiment));
    }
    base::Outcome<base::TableText> table = base::tableIn(text);
    if (!table.value)
        return Reading::refused(table.reason);
    FieldLines lines;
    for (qsizetype line = 1; line <= table.value->lines; ++line) {
        lines.push_back(base::takeFields(*table.value));
        if (lines.back().empty())
            return Reading::refused(base::emptyLine(line));
    }
    if (lines.empty())
        return Reading::refused(base::noText());

    const Result copied =
        readLatinSquare(lines, table.value->byCommas ? Separators::Commas : Separators::Others);
    if (!copied.value)
        return Reading::refused(copied.reason);
    const LatinSquare& square = copied.value->square;
    std::optional<LatinSquare> cyclic = cyclicArrangement(square);
    if (!cyclic)
        return Reading::refused(noCyclicArrangement());
    const bool rowsMoved = cyclic->rows != square.rows;
    const bool columnsMoved = cyclic->columns != square.columns;
    return Reading::of({*std::move(cyclic), rowsMoved, columnsMoved, copied.value->foreignMarks});
}

} // namespace experiment
