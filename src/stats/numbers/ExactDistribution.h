// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace stats {

/// One value of a distribution with its figures.
struct ExactFigures {
    double value;
    double probability;
    double cumulative; ///< P(X <= value).
};

/// The null distribution of a sequence statistic: every arrangement of n labels of each of n
/// treatments is equally likely.
///
/// It keeps how many arrangements give each value; a probability, point or cumulative, is one
/// division of such a count by the number of all.
class ExactDistribution {
public:
    /// One more arrangement with this value. Values count as the same when they are equal doubles.
    void add(double value);

    /// The number of distinct values.
    int count() const { return static_cast<int>(m_points.size()); }
    /// The values, ascending; index from 0 to count() - 1.
    double value(int index) const { return point(index).value; }

    // For tests and the outside.
    /// The number of arrangements, and the share of them that has a value.
    std::int64_t arrangements() const { return m_arrangements; }
    double probability(int index) const { return share(point(index).arrangements); }

    /// P(X <= x) for one of the values; between two values that of the next larger one. Not a
    /// number for an x that is none.
    double cumulative(double x) const;

    /// P(X > x), as one division of the number of arrangements above x by that of all. Not a number
    /// for an x that is none.
    double shareAbove(double x) const;

    /// Of every value, ascending; each figure is one division of whole counts.
    std::vector<ExactFigures> figures() const;

    /// The published hand-over form: all values, ascending, followed by their probabilities in the
    /// same order. `out` holds at least 2 count() doubles.
    void handOver(std::span<double> out) const;

private:
    struct Point {
        double value = 0.0;
        std::int64_t arrangements = 0;
    };

    const Point& point(int index) const { return m_points[static_cast<std::size_t>(index)]; }
    double share(std::int64_t arrangements) const;

    std::vector<Point> m_points; ///< ascending
    std::int64_t m_arrangements = 0;
};

/// Up to this order the sequence tests enumerate: order 3 has 1680 arrangements, order 4 already
/// 63 million.
constexpr int largestExactOrder = 3;

/// The null distributions of C and M for n from 1 to largestExactOrder, by enumeration of all
/// (n^2)! / (n!)^n arrangements.
ExactDistribution exactDistributionOfC(int n);
ExactDistribution exactDistributionOfM(int n);

} // namespace stats
