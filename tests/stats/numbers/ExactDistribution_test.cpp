// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ExactDistribution.h"

#include "stats/numbers/Near.h"
#include "stats/numbers/Sequences.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <map>

using boost::multiprecision::cpp_rational;
using stats::ExactDistribution;

namespace {

using Labels = std::vector<int>;
using Statistic = std::function<cpp_rational(const Labels&, int)>;
using Table = std::map<cpp_rational, int>;

std::vector<int> runIndices(const Labels& labels)
{
    std::vector<int> indices{1};
    for (std::size_t k = 1; k < labels.size(); ++k)
        indices.push_back(indices.back() + (labels[k] == labels[k - 1] ? 0 : 1));
    return indices;
}

cpp_rational meanRunIndex(const Labels& labels, int treatment, int n)
{
    const std::vector<int> indices = runIndices(labels);
    cpp_rational sum = 0;
    for (std::size_t k = 0; k < labels.size(); ++k) {
        if (labels[k] == treatment)
            sum += indices[k];
    }
    return sum / n;
}

cpp_rational squared(const cpp_rational& x)
{
    return x * x;
}

/// C as it is defined, in fractions.
cpp_rational exactC(const Labels& labels, int n)
{
    const int runs = runIndices(labels).back();
    cpp_rational sum = 0;
    for (int t = 1; t <= n; ++t)
        sum += squared(meanRunIndex(labels, t, n) - cpp_rational(runs + 1, 2));
    return sum / (runs * (runs + 1));
}

/// M as it is defined, in fractions.
cpp_rational exactM(const Labels& labels, int n)
{
    cpp_rational mean = 0;
    for (const int index : runIndices(labels))
        mean += cpp_rational(index, n * n);
    cpp_rational total = 0;
    for (const int index : runIndices(labels))
        total += squared(index - mean);
    cpp_rational between = 0;
    for (int t = 1; t <= n; ++t)
        between += squared(meanRunIndex(labels, t, n) - mean);
    const cpp_rational q = between / total;
    return n * q / (1 - q);
}

/// Depth first: each position tries every label that is not used up.
void enumerate(Labels& labels, std::vector<int>& left, int n, const Statistic& statistic,
               Table& table)
{
    if (labels.size() == static_cast<std::size_t>(n * n)) {
        ++table[statistic(labels, n)];
        return;
    }
    for (int label = 1; label <= n; ++label) {
        int& available = left[static_cast<std::size_t>(label - 1)];
        if (available == 0)
            continue;
        --available;
        labels.push_back(label);
        enumerate(labels, left, n, statistic, table);
        labels.pop_back();
        ++available;
    }
}

Table bruteForce(int n, const Statistic& statistic)
{
    Labels labels;
    std::vector<int> left(static_cast<std::size_t>(n), n);
    Table table;
    enumerate(labels, left, n, statistic, table);
    return table;
}

/// Every value, every count and every cumulative count, to the last bit.
void expectSame(const ExactDistribution& distribution, const Table& table)
{
    ASSERT_EQ(distribution.count(), static_cast<int>(table.size()));
    const std::vector<stats::ExactFigures> figures = distribution.figures();
    ASSERT_EQ(figures.size(), table.size());
    std::size_t at = 0;
    int index = 0;
    int upTo = 0;
    const auto all = static_cast<double>(distribution.arrangements());
    for (const auto& [value, count] : table) {
        upTo += count;
        EXPECT_EQ(distribution.value(index), static_cast<double>(value)) << value;
        EXPECT_EQ(distribution.probability(index), count / all) << value;
        EXPECT_EQ(distribution.cumulative(static_cast<double>(value)), upTo / all) << value;
        EXPECT_EQ(figures[at].value, static_cast<double>(value));
        EXPECT_EQ(figures[at].probability, count / all) << value;
        EXPECT_EQ(figures[at++].cumulative, upTo / all) << value;
        EXPECT_EQ(distribution.shareAbove(static_cast<double>(value)), (all - upTo) / all) << value;
        ++index;
    }
    EXPECT_EQ(upTo, distribution.arrangements());
}

} // namespace

TEST(ExactDistribution, OfCIsTheEnumerationInFractions)
{
    const Table table = bruteForce(3, exactC);
    ASSERT_EQ(table.size(), 86U);
    EXPECT_EQ(table.begin()->first, 0);
    EXPECT_EQ(table.rbegin()->first, cpp_rational(53, 270));
    EXPECT_EQ(stats::exactDistributionOfC(3).arrangements(), 1680);
    expectSame(stats::exactDistributionOfC(3), table);
}

TEST(ExactDistribution, OfMIsTheEnumerationInFractions)
{
    const Table table = bruteForce(3, exactM);
    ASSERT_EQ(table.size(), 112U);
    EXPECT_EQ(table.begin()->first, 0);
    EXPECT_EQ(table.rbegin()->first, cpp_rational(3, 2));
    EXPECT_EQ(stats::exactDistributionOfM(3).arrangements(), 1680);
    expectSame(stats::exactDistributionOfM(3), table);
}

TEST(ExactDistribution, ReachesNinetyFivePerCentExactly)
{
    EXPECT_EQ(stats::exactDistributionOfC(3).cumulative(235.0 / 1512.0), 0.95); // 1596 / 1680
    EXPECT_EQ(stats::exactDistributionOfM(3).cumulative(273.0 / 326.0), 0.95);
}

TEST(ExactDistribution, OfOrderTwo)
{
    const Table c = bruteForce(2, exactC);
    const Table m = bruteForce(2, exactM);
    EXPECT_EQ(stats::exactDistributionOfC(2).arrangements(), 6);
    expectSame(stats::exactDistributionOfC(2), c);
    expectSame(stats::exactDistributionOfM(2), m);
}

TEST(ExactDistribution, OfOrderOne)
{
    const ExactDistribution c = stats::exactDistributionOfC(1);
    EXPECT_EQ(c.count(), 1);
    EXPECT_EQ(c.value(0), 0.0);
    EXPECT_EQ(c.cumulative(0.0), 1.0);
    const ExactDistribution m = stats::exactDistributionOfM(1);
    EXPECT_EQ(m.count(), 1);
    EXPECT_TRUE(std::isnan(m.value(0)));
    EXPECT_TRUE(std::isnan(m.cumulative(m.value(0))));
}

TEST(ExactDistribution, CountsEqualValuesTogetherInAscendingOrder)
{
    ExactDistribution distribution;
    for (const double value : {2.0, 1.0, 3.0, 2.0})
        distribution.add(value);
    ASSERT_EQ(distribution.count(), 3);
    EXPECT_EQ(distribution.arrangements(), 4);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(distribution.value(i), i + 1.0);
    EXPECT_EQ(distribution.probability(1), 0.5);
    EXPECT_EQ(distribution.cumulative(0.5), 0.25);
    EXPECT_EQ(distribution.cumulative(1.0), 0.25);
    EXPECT_EQ(distribution.cumulative(1.5), 0.75);
    EXPECT_EQ(distribution.cumulative(3.0), 1.0);
    EXPECT_EQ(distribution.cumulative(9.0), 1.0);
    EXPECT_EQ(distribution.shareAbove(0.5), 1.0);
    EXPECT_EQ(distribution.shareAbove(2.0), 0.25);
    EXPECT_EQ(distribution.shareAbove(3.0), 0.0);
    constexpr double noStatistic = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(distribution.cumulative(noStatistic)));
    EXPECT_TRUE(std::isnan(distribution.shareAbove(noStatistic)));
}

TEST(ExactDistribution, IsHandedOverAsValuesThenProbabilities)
{
    const ExactDistribution distribution = stats::exactDistributionOfC(3);
    std::array<double, 200> out{};
    out.fill(-1.0);
    distribution.handOver(out);
    double sum = 0.0;
    for (int i = 0; i < 86; ++i) {
        const auto at = static_cast<std::size_t>(i);
        EXPECT_EQ(out[at], distribution.value(i));
        EXPECT_EQ(out[86 + at], distribution.probability(i));
        sum += out[86 + at];
    }
    EXPECT_EQ(out[172], -1.0);
    EXPECT_TRUE(isNear(sum, 1.0, 86 * 1e-16)); // each of the probabilities is rounded
}
