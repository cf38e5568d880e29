// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/ExactDistribution.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace distribution {

/// The exact distribution of a statistic as a graph window shows it.
struct ShownDistribution {
    std::vector<stats::ExactFigures> figures; ///< Of the values, ascending.
    QString Title;
    QString StatName; ///< "c" or "m".

    // The published form, for tests and the outside: `Count` values, then as many probabilities.
    int Count() const { return static_cast<int>(figures.size()); }
    std::vector<double> Values() const;
};

/// The distribution as a text table, in UTF-8 with CRLF line ends: the title, a line of headers,
/// then value, probability and cumulative probability of each value in columns of 23 characters.
QByteArray distributionTable(const ShownDistribution& distribution);

} // namespace distribution
