// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/PlainStudy.h"

#include "stats/numbers/STATIS.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace plain {

namespace {

/// A fraction of whole numbers, so that the definitions hold as they read, without a rounding. 0 /
/// 0 is no number, and nothing made of it is one.
class Fraction {
public:
    Fraction(long numerator, long denominator = 1)
        : m_numerator(numerator)
        , m_denominator(denominator)
    {
    }

    friend Fraction operator+(const Fraction& a, const Fraction& b)
    {
        if (a.m_denominator == b.m_denominator)
            return {a.m_numerator + b.m_numerator, a.m_denominator};
        return {a.m_numerator * b.m_denominator + b.m_numerator * a.m_denominator,
                a.m_denominator * b.m_denominator};
    }
    friend Fraction operator-(const Fraction& a, const Fraction& b) { return a + Fraction(-1) * b; }
    friend Fraction operator*(const Fraction& a, const Fraction& b)
    {
        return {a.m_numerator * b.m_numerator, a.m_denominator * b.m_denominator};
    }
    friend Fraction operator/(const Fraction& a, const Fraction& b)
    {
        return Fraction(a.m_numerator * b.m_denominator, a.m_denominator * b.m_numerator).reduced();
    }

    /// Rounded once.
    double value() const
    {
        return static_cast<double>(m_numerator) / static_cast<double>(m_denominator);
    }

private:
    Fraction reduced() const
    {
        const long divisor = std::gcd(m_numerator, m_denominator);
        return divisor == 0 ? *this : Fraction(m_numerator / divisor, m_denominator / divisor);
    }

    long m_numerator;
    long m_denominator;
};

Fraction squared(const Fraction& fraction)
{
    return fraction * fraction;
}

/// Some whole numbers, each with its treatment, from 0.
struct Labelled {
    std::vector<long> numbers;
    std::vector<std::size_t> treatments;
};

std::size_t treatmentOf(std::size_t row, std::size_t column, std::size_t n)
{
    return (row + column) % n;
}

long orderOf(const Square& square)
{
    return static_cast<long>(square.size());
}

long sum(const std::vector<long>& numbers)
{
    return std::accumulate(numbers.begin(), numbers.end(), 0L);
}

/// By treatment.
std::vector<long> treatmentSums(const Labelled& labelled, long n)
{
    std::vector<long> sums(static_cast<std::size_t>(n));
    for (std::size_t k = 0; k < labelled.numbers.size(); ++k)
        sums[labelled.treatments[k]] += labelled.numbers[k];
    return sums;
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

/// Each place's run, from 1.
Labelled runIndices(const std::vector<std::size_t>& labels)
{
    std::vector<long> indices{1};
    for (std::size_t k = 1; k < labels.size(); ++k)
        indices.push_back(labels[k] == labels[k - 1] ? indices.back() : indices.back() + 1);
    return {indices, labels};
}

/// The share of the numbers' spread that lies between the treatments' means, each counted once.
Fraction shareBetween(const Labelled& labelled, long n)
{
    const Fraction mean(sum(labelled.numbers), n * n);
    Fraction between = 0;
    for (const long treatmentSum : treatmentSums(labelled, n))
        between = between + squared(Fraction(treatmentSum, n) - mean);
    Fraction total = 0;
    for (const long number : labelled.numbers)
        total = total + squared(Fraction(number) - mean);
    return between / total;
}

double sequenceCOf(const std::vector<std::size_t>& labels, long n)
{
    const Labelled indices = runIndices(labels);
    const long runs = indices.numbers.back();
    Fraction spread = 0;
    for (const long treatmentSum : treatmentSums(indices, n))
        spread = spread + squared(Fraction(treatmentSum, n) - Fraction(runs + 1, 2));
    return (spread / (Fraction(runs + 1) * runs)).value();
}

double sequenceMOf(const std::vector<std::size_t>& labels, long n)
{
    const Fraction q = shareBetween(runIndices(labels), n);
    return (Fraction(n) * q / (Fraction(1) - q)).value();
}

/// The first value that at least such a share of all arrangements of order 3 does not exceed.
double exactPoint(double (*statistic)(const std::vector<std::size_t>&, long), double level)
{
    std::vector<std::size_t> labels{0, 0, 0, 1, 1, 1, 2, 2, 2};
    std::vector<double> values;
    do {
        values.push_back(statistic(labels, 3));
    } while (std::next_permutation(labels.begin(), labels.end()));
    std::sort(values.begin(), values.end());
    std::size_t upTo = 1;
    while (static_cast<double>(upTo) / static_cast<double>(values.size()) < level)
        ++upTo;
    return values.at(upTo - 1);
}

} // namespace

double sequenceC(const Square& square)
{
    return sequenceCOf(sortedLabels(square), orderOf(square));
}

double sequenceM(const Square& square)
{
    return sequenceMOf(sortedLabels(square), orderOf(square));
}

double bennett(const Square& square)
{
    const long n = orderOf(square);
    const long cells = n * n;
    Labelled ranks;
    for (std::size_t row = 0; row < square.size(); ++row) {
        for (std::size_t column = 0; column < square.size(); ++column) {
            long rank = 0;
            for (const auto& otherRow : square) {
                for (const double other : otherRow)
                    rank += other <= square[row][column] ? 1 : 0;
            }
            ranks.numbers.push_back(rank);
            ranks.treatments.push_back(treatmentOf(row, column, square.size()));
        }
    }
    long squares = 0;
    for (const long rankSum : treatmentSums(ranks, n))
        squares += rankSum * rankSum;
    return (Fraction(squares, n) * 12 / (cells * (cells + 1)) - 3 * (cells + 1)).value();
}

double zimmerman(const Square& square)
{
    const long n = orderOf(square);
    Labelled ranks;
    for (std::size_t row = 0; row < square.size(); ++row) {
        for (std::size_t column = 0; column < square.size(); ++column) {
            long rank = 0;
            for (std::size_t other = 0; other < square.size(); ++other) {
                rank += square[row][other] <= square[row][column] ? 1 : 0;
                rank += square[other][column] <= square[row][column] ? 1 : 0;
            }
            ranks.numbers.push_back(rank);
            ranks.treatments.push_back(treatmentOf(row, column, square.size()));
        }
    }
    const Fraction t = shareBetween(ranks, n);
    return (Fraction(n) * t / (Fraction(1) - t) * Fraction(n - 1, n + 1)).value();
}

power::CriticalValues criticalValues(int n, double level, stats::RandomIntegers& integers)
{
    const double criticalF = stats::FQuantile(level, n - 1, (n - 1) * n);
    power::CriticalValues critical;
    critical.z = criticalF;
    critical.b = stats::ChiSquareQuantile(n - 1, level);
    if (n == 3) {
        critical.c = exactPoint(sequenceCOf, level);
        critical.m = exactPoint(sequenceMOf, level);
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
