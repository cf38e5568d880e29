// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/Extraction.h"

#include "base/FieldLines.h"

namespace experiment {

namespace {

using Result = base::Outcome<LatinSquare>;

constexpr qsizetype longestExperiment = 1'000'000; // characters: the lists of order 200 and more

/// A square read in one way.
Result readSquare(const FieldLines& lines, SquareLabels labels)
{
    const base::Outcome<Experiment> cells = readExperimentSquare(lines, labels);
    return cells.value ? latinSquareOf(*cells.value) : Result::refused(cells.reason);
}

/// A square read in the first way that gives a Latin square; the fault of the likeliest where none
/// does.
Result readSquare(const FieldLines& lines)
{
    const std::vector<SquareLabels> ways = possibleSquareLabels(lines);
    if (ways.empty()) {
        return Result::refused(QStringLiteral(
            "El texto no tiene forma de experimento: hacen falta líneas con fila, columna, "
            "tratamiento y observación, o un cuadrado de celdas como «A 24», con los campos "
            "separados por tabuladores o por punto y coma."));
    }
    const Result likeliest = readSquare(lines, ways.front());
    for (std::size_t i = 1; i < ways.size() && !likeliest.value; ++i) {
        Result other = readSquare(lines, ways[i]);
        if (other.value)
            return other;
    }
    return likeliest;
}

Result readLatinSquare(const FieldLines& lines)
{
    if (!isExperimentList(lines))
        return readSquare(lines);
    const base::Outcome<Experiment> experiment = readExperimentList(lines);
    return experiment.value ? latinSquareOf(*experiment.value) : Result::refused(experiment.reason);
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
