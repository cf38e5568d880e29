// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/PlainStudy.h"

#include "stats/numbers/ExactDistribution.h"
#include "stats/numbers/STATIS.h"

#include <cmath>
#include <utility>

namespace plain {

namespace {

std::size_t treatmentOf(std::size_t row, std::size_t column, std::size_t n)
{
    return (row + column) % n;
}

/// The labels in ascending order of the observations; ties keep the order of the cells.
std::vector<std::size_t> sortedLabels(const Square& square)
{
    std::vector<std::pair<double, std::size_t>> pairs;
    for (std::size_t row = 0; row < square.size(); ++row) {
        for (std::size_t column = 0; column < square.size(); ++column)
            pairs.emplace_back(square[row][column], treatmentOf(row, column, square.size()));
    }
    for (std::size_t pass = 1; pass < pairs.size(); ++pass) {
        for (std::size_t k = 0; k + 1 < pairs.size(); ++k) {
            if (pairs[k].first > pairs[k + 1].first)
                std::swap(pairs[k], pairs[k + 1]);
        }
    }
    std::vector<std::size_t> labels;
    for (const auto& pair : pairs)
        labels.push_back(pair.second);
    return labels;
}

std::vector<long> runIndices(const std::vector<std::size_t>& labels)
{
    std::vector<long> indices{1};
    for (std::size_t k = 1; k < labels.size(); ++k)
        indices.push_back(labels[k] == labels[k - 1] ? indices.back() : indices.back() + 1);
    return indices;
}

/// The fraction of two whole numbers, rounded once.
double fraction(long numerator, long denominator)
{
    return static_cast<double>(numerator) / static_cast<double>(denominator);
}

/// The spread of whole numbers over treatments: n^4 times the sums of squares between treatment
/// means and in total.
struct Spread {
    long between = 0;
    long total = 0;
};

Spread spreadOf(const std::vector<long>& numbers, const std::vector<std::size_t>& treatments,
                long n)
{
    long sum = 0;
    for (const long number : numbers)
        sum += number;
    Spread spread;
    for (std::size_t treatment = 0; treatment < static_cast<std::size_t>(n); ++treatment) {
        long treatmentSum = 0;
        for (std::size_t k = 0; k < numbers.size(); ++k)
            treatmentSum += treatments[k] == treatment ? numbers[k] : 0;
        spread.between += (n * treatmentSum - sum) * (n * treatmentSum - sum);
    }
    for (const long number : numbers)
        spread.total += (n * n * number - sum) * (n * n * number - sum);
    return spread;
}

long orderOf(const Square& square)
{
    return static_cast<long>(square.size());
}

double firstReaching(const stats::ExactDistribution& distribution, double level)
{
    for (int i = 0;; ++i) {
        if (distribution.cumulative(distribution.value(i)) >= level)
            return distribution.value(i);
    }
}

} // namespace

double sequenceC(const Square& square)
{
    const long n = orderOf(square);
    const std::vector<std::size_t> labels = sortedLabels(square);
    const std::vector<long> indices = runIndices(labels);
    const long runs = indices.back();
    long spread = 0;
    for (std::size_t treatment = 0; treatment < square.size(); ++treatment) {
        long sum = 0;
        for (std::size_t k = 0; k < labels.size(); ++k)
            sum += labels[k] == treatment ? indices[k] : 0;
        spread += (2 * sum - n * (runs + 1)) * (2 * sum - n * (runs + 1));
    }
    return fraction(spread, 4 * n * n * runs * (runs + 1));
}

double sequenceM(const Square& square)
{
    const long n = orderOf(square);
    const std::vector<std::size_t> labels = sortedLabels(square);
    const Spread spread = spreadOf(runIndices(labels), labels, n);
    // n^2 deviations are n^4 times the squared ones; the means' are taken once a treatment.
    return fraction(n * spread.between, spread.total - spread.between);
}

double bennett(const Square& square)
{
    const long n = orderOf(square);
    const long cells = n * n;
    long sumOfSquares = 0;
    for (std::size_t treatment = 0; treatment < square.size(); ++treatment) {
        long rankSum = 0;
        for (std::size_t row = 0; row < square.size(); ++row) {
            for (std::size_t column = 0; column < square.size(); ++column) {
                if (treatmentOf(row, column, square.size()) != treatment)
                    continue;
                for (const auto& otherRow : square) {
                    for (const double other : otherRow)
                        rankSum += other <= square[row][column] ? 1 : 0;
                }
            }
        }
        sumOfSquares += rankSum * rankSum;
    }
    return fraction(12 * sumOfSquares - 3 * n * cells * (cells + 1) * (cells + 1),
                    n * cells * (cells + 1));
}

double zimmerman(const Square& square)
{
    const long n = orderOf(square);
    std::vector<long> rankSums;
    std::vector<std::size_t> treatments;
    for (std::size_t row = 0; row < square.size(); ++row) {
        for (std::size_t column = 0; column < square.size(); ++column) {
            long rankSum = 0;
            for (std::size_t other = 0; other < square.size(); ++other) {
                rankSum += square[row][other] <= square[row][column] ? 1 : 0;
                rankSum += square[other][column] <= square[row][column] ? 1 : 0;
            }
            rankSums.push_back(rankSum);
            treatments.push_back(treatmentOf(row, column, square.size()));
        }
    }
    const Spread spread = spreadOf(rankSums, treatments, n);
    return fraction((n - 1) * n * spread.between, (n + 1) * (spread.total - spread.between));
}

power::CriticalValues criticalValues(int n, double level, stats::RandomIntegers& integers)
{
    const double criticalF = stats::FQuantile(level, n - 1, (n - 1) * n);
    power::CriticalValues critical;
    critical.z = criticalF;
    critical.b = stats::ChiSquareQuantile(n - 1, level);
    if (n == 3) {
        critical.c = firstReaching(stats::exactDistributionOfC(n), level);
        critical.m = firstReaching(stats::exactDistributionOfM(n), level);
        return critical;
    }
    constexpr int squares = 5000;
    std::vector<double> values;
    Square square(static_cast<std::size_t>(n), std::vector<double>(static_cast<std::size_t>(n)));
    double sum = 0.0;
    for (int k = 0; k < squares; ++k) {
        // Filled one way, listed the other: rows outside here, columns outside there.
        for (std::size_t row = 0; row < square.size(); ++row) {
            for (auto& column : square)
                column[row] = integers.next() * 5.0;
        }
        values.push_back(sequenceC(square));
        sum += values.back();
    }
    critical.meanOfC = sum / squares;
    double squaredDeviations = 0.0;
    for (const double value : values)
        squaredDeviations += (value - critical.meanOfC) * (value - critical.meanOfC);
    critical.deviationOfC = std::sqrt(squaredDeviations / (squares - 1));
    critical.c = stats::NormalQuantile(level);
    critical.m = n == 4 ? 0.8476 : criticalF;
    return critical;
}

std::vector<power::Powers> simulatedPowers(const power::StudySettings& settings,
                                           const std::vector<power::CriticalValues>& criticals,
                                           double difference, power::Aleatorio& generator)
{
    const auto n = static_cast<std::size_t>(settings.order);
    Square square(n, std::vector<double>(n));
    std::vector<power::Powers> powers(criticals.size());
    for (int trial = 0; trial < settings.trials; ++trial) {
        for (std::size_t row = 0; row < n; ++row) {
            for (std::size_t column = 0; column < n; ++column) {
                const double treatment = static_cast<double>(treatmentOf(row, column, n) + 1);
                square[row][column] = power::ErrorDraw(settings.errorKind, generator.NextUniform(),
                                                       treatment * difference);
            }
        }
        const double c = sequenceC(square);
        const double m = sequenceM(square);
        const double b = bennett(square);
        const double z = zimmerman(square);
        for (std::size_t i = 0; i < criticals.size(); ++i) {
            const double scaledC =
                settings.order >= 4 ? (c - criticals[i].meanOfC) / criticals[i].deviationOfC : c;
            powers[i].c += scaledC > criticals[i].c ? 1 : 0;
            powers[i].m += m > criticals[i].m ? 1 : 0;
            powers[i].b += b > criticals[i].b ? 1 : 0;
            powers[i].z += z > criticals[i].z ? 1 : 0;
        }
    }
    for (power::Powers& shares : powers) {
        for (double* const share : {&shares.c, &shares.m, &shares.b, &shares.z})
            *share /= settings.trials;
    }
    return powers;
}

} // namespace plain
