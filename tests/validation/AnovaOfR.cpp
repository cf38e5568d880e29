// SPDX-License-Identifier: GPL-3.0-or-later
#include "validation/AnovaOfR.h"

#include "base/NumberText.h"
#include "base/SafeFile.h"
#include "stats/numbers/Treatments.h"

#include <QList>

namespace validation {

std::vector<NamedSquare> randomSquares()
{
    std::mt19937_64 generator(1);
    std::vector<NamedSquare> squares;
    while (squares.size() < 1000) {
        const auto number = static_cast<int>(squares.size());
        TypedSquare square =
            randomTypedSquare(3 + number % 4, number % 3, 0, number % 2 ? 600 : 50, generator);
        if (ExactAnova(square).error != 0)
            squares.push_back({QStringLiteral("azar%1").arg(number), std::move(square)});
    }
    return squares;
}

std::vector<StiffSquares> stiffSquares()
{
    // In tenths.
    const std::vector<std::pair<int, std::int64_t>> constants{
        {1, 10},         {3, 1000},           {7, 10000000},
        {9, 1000000000}, {12, 1000000000000}, {13, 10000000000000}};
    std::mt19937_64 generator(2);
    std::vector<StiffSquares> all;
    for (const auto& [digits, constant] : constants) {
        StiffSquares stiff{digits, {}};
        while (stiff.squares.size() < 100) {
            const auto number = static_cast<int>(stiff.squares.size());
            TypedSquare square = randomTypedSquare(3 + number % 4, 1, constant, 10, generator);
            const ExactAnova exact(square);
            if (exact.error != 0 && exact.rows != 0 && exact.columns != 0 && exact.treatments != 0)
                stiff.squares.push_back(
                    {QStringLiteral("rigido%1_%2").arg(digits).arg(number), std::move(square)});
        }
        all.push_back(std::move(stiff));
    }
    return all;
}

namespace {

QByteArray linesOf(const NamedSquare& named)
{
    const int n = named.square.n;
    QByteArray lines;
    auto unit = named.square.units.begin();
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            lines += named.name.toUtf8() + ',' + QByteArray::number(row) + ',' +
                     QByteArray::number(column) + ',' +
                     QByteArray::number(stats::treatmentOf(column, row, n)) + ',' +
                     QByteArray::fromStdString(typedText(*unit++, named.square.decimals)) + '\n';
        }
    }
    return lines;
}

} // namespace

QByteArray squaresForR()
{
    QByteArray table("name,row,column,treatment,x\n");
    for (const NamedSquare& square : randomSquares())
        table += linesOf(square);
    for (const StiffSquares& stiff : stiffSquares()) {
        for (const NamedSquare& square : stiff.squares)
            table += linesOf(square);
    }
    return table;
}

std::optional<AnovasOfR> readAnovasOfR(const QString& fileName)
{
    const std::optional<QByteArray> bytes = base::readFile(fileName);
    if (!bytes)
        return std::nullopt;
    AnovasOfR anovas;
    for (const QByteArray& line : bytes->split('\n')) {
        const QList<QByteArray> cells = line.split(',');
        DoubleAnova anova;
        if (cells.size() != static_cast<qsizetype>(anova.numbers.size()) + 1)
            continue;
        for (std::size_t k = 0; k < anova.numbers.size(); ++k) {
            const auto number =
                base::readPlainNumber(cells.at(static_cast<qsizetype>(k) + 1).toStdString());
            if (!number)
                return std::nullopt;
            anova.numbers[k] = *number;
        }
        anovas[QString::fromUtf8(cells.first())] = anova;
    }
    return anovas;
}

} // namespace validation
