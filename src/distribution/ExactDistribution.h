// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <span>
#include <vector>

namespace distribution {

/// The exact distribution of a statistic as a graph window shows it.
struct ExactDistribution {
    static constexpr int mostValues = 500;

    /// `Count` values of the statistic, ascending, then as many probabilities.
    std::array<double, 2 * mostValues> Values{};
    int Count = 0;
    QString Title;
    QString StatName; ///< "c" or "m".

    std::span<const double> values() const;
    std::span<const double> probabilities() const;

    /// P(X <= x) for every value: the running sums of the probabilities, compensated, so that the
    /// last one is as near to 1 as their true sum. Nothing is normalised.
    std::vector<double> cumulative() const;
};

/// The distribution as a text table, in UTF-8 with CRLF line ends: the title, a line of headers,
/// then value, probability and cumulative probability of each value in columns of 23 characters.
QByteArray distributionTable(const ExactDistribution& distribution);

} // namespace distribution
