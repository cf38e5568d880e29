// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/CyclicSquareReading.h"

#include "base/FieldLines.h"
#include "experiment/CyclicArrangement.h"
#include "experiment/ExperimentList.h"
#include "experiment/ExperimentSquare.h"

namespace experiment {

namespace {

using Result = base::Outcome<LatinSquare>;

constexpr qsizetype longestExperiment = 1'000'000; // characters: the lists of order 200 and more

Result latinSquareIn(const base::Outcome<Experiment>& reading)
{
    return reading.value ? latinSquareOf(*reading.value) : Result::refused(reading.reason);
}

/// The first reading of the lines that gives a Latin square; the fault of the likeliest where none
/// does.
Result readLatinSquare(const FieldLines& lines)
{
    const auto readings = isExperimentList(lines) ? std::vector{readExperimentList(lines)}
                                                  : readExperimentSquare(lines);
    if (readings.empty()) {
        return Result::refused(QStringLiteral(
            "El texto no tiene forma de experimento: hacen falta líneas con fila, columna, "
            "tratamiento y observación, o un cuadrado de celdas como «A 24», con los campos "
            "separados por tabuladores o por punto y coma."));
    }
    const Result likeliest = latinSquareIn(readings.front());
    for (std::size_t i = 1; i < readings.size() && !likeliest.value; ++i) {
        Result other = latinSquareIn(readings[i]);
        if (other.value)
            return other;
    }
    return likeliest;
}

} // namespace

base::Outcome<LatinSquare> readCyclicSquare(QStringView text)
{
    if (text.size() > longestExperiment) {
        return Result::refused(
            QStringLiteral(
                "El portapapeles tiene %1 caracteres. De un experimento se leen hasta %2.")
                .arg(text.size())
                .arg(longestExperiment));
    }
    const QChar separator = base::separatorOf(text);
    FieldLines lines;
    while (!text.isEmpty()) {
        const QStringView line = base::takeLine(text);
        if (line.trimmed().isEmpty())
            return Result::refused(QStringLiteral("La línea %1 está vacía.").arg(lines.size() + 1));
        lines.push_back(base::fieldsOf(line, separator));
    }
    if (lines.empty())
        return Result::refused(QStringLiteral("El portapapeles no contiene ningún texto."));

    const Result square = readLatinSquare(lines);
    if (!square.value)
        return square;
    std::optional<LatinSquare> cyclic = cyclicArrangement(*square.value);
    if (!cyclic) {
        return Result::refused(QStringLiteral(
            "Los datos forman un cuadrado latino, pero ningún cambio de orden de sus filas, "
            "columnas y tratamientos lo convierte en el cuadrado cíclico que el programa "
            "analiza."));
    }
    return Result::of(*std::move(cyclic));
}

} // namespace experiment
