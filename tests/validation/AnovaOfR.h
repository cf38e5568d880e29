// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/TypedSquares.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <map>
#include <optional>
#include <vector>

namespace validation {

/// An analysis of variance in doubles, by whatever means.
struct DoubleAnova {
    /// Sums of squares of rows, columns, treatments and error, then F of the first three.
    std::array<double, 7> numbers{};
};

/// R's analyses by the name of the square.
using AnovasOfR = std::map<QString, DoubleAnova>;

/// A square on its way to R.
struct NamedSquare {
    QString name;
    TypedSquare square;
};

/// 1,000 random squares of order 3 to 6 with no, one or two decimals; none without error variance.
std::vector<NamedSquare> randomSquares();

/// How many leading digits the observations of a stiff square have in common, and the squares.
struct StiffSquares {
    int constantDigits = 0;
    std::vector<NamedSquare> squares;
};

/// 100 squares each, of order 3 to 6: constant digits and one varying decimal.
std::vector<StiffSquares> stiffSquares();

/// All of them as the table that aov.R reads: name, row, column, treatment, observation as text.
QByteArray squaresForR();

/// Reads what aov.R wrote; nothing where that is no such file.
std::optional<AnovasOfR> readAnovasOfR(const QString& fileName);

} // namespace validation
