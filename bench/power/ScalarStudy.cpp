// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/ScalarStudy.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace scalar {

namespace {

constexpr int n = order;
constexpr int cells = n * n;

using Square = std::array<double, cells>; ///< cell after cell, columns outside
using Ranks = std::array<int, cells>;

constexpr auto treatments = [] {
    std::array<std::size_t, cells> all{};
    for (std::size_t cell = 0; cell < cells; ++cell)
        all[cell] = (cell / n + cell % n) % n;
    return all;
}();

/// Whole numbers fallen to the treatments.
struct Sums {
    std::array<int, n> ofTreatments{};
    int ofSquares = 0;

    void add(std::size_t treatment, int number)
    {
        ofTreatments[treatment] += number;
        ofSquares += number * number;
    }

    /// The form of M: n * between / (total - between).
    double spread() const
    {
        std::int64_t sum = 0;
        std::int64_t squares = 0;
        for (const int each : ofTreatments) {
            sum += each;
            squares += std::int64_t{each} * each;
        }
        const std::int64_t between = n * (n * squares - sum * sum);
        const std::int64_t total = cells * (std::int64_t{cells} * ofSquares - sum * sum);
        return static_cast<double>(n * between) / static_cast<double>(total - between);
    }
};

std::array<std::size_t, cells> cellsInOrder(const Square& square)
{
    std::array<std::pair<double, std::size_t>, cells> pairs;
    for (std::size_t cell = 0; cell < cells; ++cell)
        pairs[cell] = {square[cell], cell};
    std::sort(pairs.begin(), pairs.end());
    std::array<std::size_t, cells> sorted{};
    std::transform(pairs.begin(), pairs.end(), sorted.begin(),
                   [](const auto& pair) { return pair.second; });
    return sorted;
}

/// Row and column ranks together, from the ranks in the whole square.
Ranks ranksInLines(const Ranks& overall)
{
    Ranks ranks;
    ranks.fill(2);
    const auto compare = [&](std::size_t a, std::size_t b) {
        const bool isLarger = overall[a] > overall[b];
        ranks[a] += isLarger ? 1 : 0;
        ranks[b] += isLarger ? 0 : 1;
    };
    for (std::size_t line = 0; line < n; ++line) {
        for (std::size_t i = 1; i < n; ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                compare(line * n + i, line * n + j);
                compare(i * n + line, j * n + line);
            }
        }
    }
    return ranks;
}

power::PerTest<double> statisticsOf(const Square& square)
{
    Ranks overall{};
    Sums runSums;
    Sums rankSums;
    int runs = 0;
    int rank = 0;
    std::size_t previous = n;
    for (const std::size_t cell : cellsInOrder(square)) {
        const std::size_t treatment = treatments[cell];
        runs += treatment == previous ? 0 : 1;
        previous = treatment;
        overall[cell] = ++rank;
        runSums.add(treatment, runs);
        rankSums.add(treatment, rank);
    }
    Sums lineSums;
    const Ranks inLines = ranksInLines(overall);
    for (std::size_t cell = 0; cell < cells; ++cell)
        lineSums.add(treatments[cell], inLines[cell]);

    int runSpread = 0;
    int squaredRankSums = 0;
    for (std::size_t treatment = 0; treatment < n; ++treatment) {
        const int deviation = 2 * runSums.ofTreatments[treatment] - n * (runs + 1);
        runSpread += deviation * deviation;
        squaredRankSums += rankSums.ofTreatments[treatment] * rankSums.ofTreatments[treatment];
    }
    return {static_cast<double>(runSpread) / (4 * n * n * runs * (runs + 1)), runSums.spread(),
            12.0 * squaredRankSums / (n * cells * (cells + 1)) - 3.0 * (cells + 1),
            (n - 1) * lineSums.spread() / (n + 1)};
}

} // namespace

power::Powers simulatedPowers(const power::StudySettings& settings,
                              const power::CriticalValues& critical, double difference,
                              power::Aleatorio& generator)
{
    std::array<std::uint32_t, cells> numbers{};
    Square square{};
    power::Powers powers;
    for (int trial = 0; trial < settings.trials; ++trial) {
        generator.NextNumbers(numbers);
        for (std::size_t cell = 0; cell < cells; ++cell) {
            const double shift = static_cast<double>(treatments[cell] + 1) * difference;
            square[cell] = power::ErrorDraw(settings.errorKind,
                                            power::Aleatorio::uniformOf(numbers[cell]), shift);
        }
        const power::PerTest<double> statistics = statisticsOf(square);
        const double c = (statistics.c - critical.meanOfC) / critical.deviationOfC;
        powers.c += c > critical.c ? 1 : 0;
        powers.m += statistics.m > critical.m ? 1 : 0;
        powers.b += statistics.b > critical.b ? 1 : 0;
        powers.z += statistics.z > critical.z ? 1 : 0;
    }
    for (double* const share : {&powers.c, &powers.m, &powers.b, &powers.z})
        *share /= settings.trials;
    return powers;
}

} // namespace scalar
