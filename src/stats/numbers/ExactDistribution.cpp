// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/ExactDistribution.h"

#include "stats/numbers/Sequences.h"

#include <algorithm>
#include <cmath>

namespace stats {

namespace {

/// Calls visit with every arrangement of n copies of the labels 1 to n, once each, in
/// lexicographic order.
template <typename Visit>
void forEachArrangement(int n, const Visit& visit)
{
    std::vector<ObservationPair> pairs;
    for (int label = 1; label <= n; ++label)
        pairs.insert(pairs.end(), static_cast<std::size_t>(n), ObservationPair{0.0, label});
    const auto byLabel = [](const ObservationPair& a, const ObservationPair& b) {
        return a.label < b.label;
    };
    do {
        visit(pairs);
    } while (std::next_permutation(pairs.begin(), pairs.end(), byLabel));
}

} // namespace

void ExactDistribution::add(double value)
{
    const auto at = std::ranges::lower_bound(m_points, value, {}, &Point::value);
    if (at != m_points.end() && at->value == value)
        ++at->arrangements;
    else
        m_points.insert(at, {value, 1});
    ++m_arrangements;
}

double ExactDistribution::cumulative(double x) const
{
    if (std::isnan(x))
        return x;
    std::int64_t upToX = 0;
    for (const Point& point : m_points) {
        upToX += point.arrangements;
        if (point.value >= x)
            break;
    }
    return share(upToX);
}

double ExactDistribution::shareAbove(double x) const
{
    if (std::isnan(x))
        return x;
    std::int64_t above = 0;
    for (const Point& point : m_points) {
        if (point.value > x)
            above += point.arrangements;
    }
    return share(above);
}

std::vector<ExactFigures> ExactDistribution::figures() const
{
    std::vector<ExactFigures> all;
    std::int64_t upTo = 0;
    for (const Point& point : m_points) {
        upTo += point.arrangements;
        all.push_back({point.value, share(point.arrangements), share(upTo)});
    }
    return all;
}

void ExactDistribution::handOver(std::span<double> out) const
{
    const auto values = static_cast<std::size_t>(count());
    for (std::size_t i = 0; i < values; ++i) {
        out[i] = m_points[i].value;
        out[values + i] = share(m_points[i].arrangements);
    }
}

double ExactDistribution::share(std::int64_t arrangements) const
{
    return static_cast<double>(arrangements) / static_cast<double>(m_arrangements);
}

ExactDistribution exactDistributionOfC(int n)
{
    ExactDistribution distribution;
    forEachArrangement(n, [&](std::span<const ObservationPair> pairs) {
        distribution.add(SequenceCFromLabels(pairs, n));
    });
    return distribution;
}

ExactDistribution exactDistributionOfM(int n)
{
    ExactDistribution distribution;
    forEachArrangement(n, [&](std::span<const ObservationPair> pairs) {
        distribution.add(SequenceMFromLabels(pairs, n));
    });
    return distribution;
}

} // namespace stats
