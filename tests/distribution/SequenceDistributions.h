// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "stats/numbers/ExactDistribution.h"

#include <array>
#include <cstddef>
#include <map>
#include <vector>

/// The exact null distributions of the statistics C and M of order 3, as real data for the charts:
/// all 1680 sequences of three labels three times each, by the definitions of the statistics. They
/// are worked out in integers with one division, so that equal outcomes are equal doubles.
namespace sequence_distributions {

inline constexpr std::size_t labels = 3;
inline constexpr std::size_t length = 9;
inline constexpr double arrangements = 1680.0;

using Sequence = std::array<std::size_t, length>;
using Statistic = double (*)(const Sequence&);

/// Sums of the numbers of the runs, counted from 1.
struct RunSums {
    int runs = 0;
    std::array<int, labels> ofLabel{};
    int ofAll = 0;
    int ofSquares = 0;
};

inline RunSums runSumsOf(const Sequence& sequence)
{
    RunSums sums;
    for (std::size_t k = 0; k < length; ++k) {
        if (k == 0 || sequence[k] != sequence[k - 1])
            ++sums.runs;
        sums.ofLabel[sequence[k]] += sums.runs;
        sums.ofAll += sums.runs;
        sums.ofSquares += sums.runs * sums.runs;
    }
    return sums;
}

inline double statisticC(const Sequence& sequence)
{
    constexpr int n = labels;
    const RunSums sums = runSumsOf(sequence);
    const int runs = sums.runs;
    int numerator = 0;
    for (const int sum : sums.ofLabel)
        numerator += (2 * sum - n * (runs + 1)) * (2 * sum - n * (runs + 1));
    return numerator / (4.0 * n * n * runs * (runs + 1));
}

inline double statisticM(const Sequence& sequence)
{
    constexpr int n = labels;
    const RunSums sums = runSumsOf(sequence);
    int between = 0;
    for (const int sum : sums.ofLabel)
        between += (n * sum - sums.ofAll) * (n * sum - sums.ofAll);
    const int total = n * n * (n * n * sums.ofSquares - sums.ofAll * sums.ofAll);
    return n * between / static_cast<double>(total - between);
}

inline void enumerate(Sequence& sequence, std::size_t position,
                      std::array<std::size_t, labels>& used, Statistic statistic,
                      std::map<double, double>& distribution)
{
    if (position == length) {
        distribution[statistic(sequence)] += 1.0 / arrangements;
        return;
    }
    for (std::size_t label = 0; label < labels; ++label) {
        if (used[label] == labels)
            continue;
        ++used[label];
        sequence[position] = label;
        enumerate(sequence, position + 1, used, statistic, distribution);
        --used[label];
    }
}

/// The running sums carry the digits that each addition would lose (Neumaier, ZAMM 54, 1974).
inline std::vector<stats::ExactFigures> exactDistribution(Statistic statistic)
{
    Sequence sequence{};
    std::array<std::size_t, labels> used{};
    std::map<double, double> distribution;
    enumerate(sequence, 0, used, statistic, distribution);
    std::vector<stats::ExactFigures> figures;
    double sum = 0.0;
    double lost = 0.0;
    for (const auto& [value, probability] : distribution) {
        const double next = sum + probability;
        lost += sum >= probability ? (sum - next) + probability : (probability - next) + sum;
        sum = next;
        figures.push_back({value, probability, sum + lost});
    }
    return figures;
}

} // namespace sequence_distributions
