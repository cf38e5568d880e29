// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/Sequences.h"

#include "stats/numbers/Near.h"
#include "stats/numbers/RandomSquares.h"
#include "stats/numbers/Squares.h"
#include "stats/numbers/Treatments.h"

#include <gtest/gtest.h>

#include <utility>

using stats::ObservationPair;
using stats::TMatrix;

namespace {

/// The method step by step in doubles: the pairs, a bubble sort, the run indices, C and M.
class Transcription {
public:
    Transcription(const TMatrix& observations, int n)
        : m_n(n)
    {
        for (int i = 1; i <= n; ++i) {
            for (int j = 1; j <= n; ++j) {
                const int remainder = (i + j - 1) % n;
                m_pairs.push_back({observations.Elem(i, j), remainder == 0 ? n : remainder});
            }
        }
        bubbleSort();
        fillRunIndices();
    }

    const std::vector<ObservationPair>& pairs() const { return m_pairs; }

    int runs() const { return static_cast<int>(m_runIndices.back()); }

    double c() const
    {
        const double r = m_runIndices.back();
        double sum = 0.0;
        for (int t = 1; t <= m_n; ++t)
            sum += squared(runSum(t) / m_n - (r + 1) * 0.5);
        return sum / ((r + 1) * r);
    }

    double m() const
    {
        double mean = 0.0;
        for (const double r : m_runIndices)
            mean += r;
        mean /= m_n * m_n;
        double total = 0.0;
        for (const double r : m_runIndices)
            total += squared(r - mean);
        double between = 0.0;
        for (int t = 1; t <= m_n; ++t)
            between += squared(runSum(t) / m_n - mean);
        const double q = between / total;
        return m_n * q / (1 - q);
    }

private:
    static double squared(double x) { return x * x; }

    void bubbleSort()
    {
        for (std::size_t pass = 1; pass < m_pairs.size(); ++pass) {
            for (std::size_t k = 0; k + 1 < m_pairs.size(); ++k) {
                if (m_pairs[k].value > m_pairs[k + 1].value)
                    std::swap(m_pairs[k], m_pairs[k + 1]);
            }
        }
    }

    void fillRunIndices()
    {
        double run = 0.0;
        int label = 0;
        for (const ObservationPair& pair : m_pairs) {
            run += pair.label == label ? 0 : 1;
            label = pair.label;
            m_runIndices.push_back(run);
        }
    }

    double runSum(int treatment) const
    {
        double sum = 0.0;
        for (std::size_t k = 0; k < m_pairs.size(); ++k)
            sum += m_pairs[k].label == treatment ? m_runIndices[k] : 0.0;
        return sum;
    }

    int m_n;
    std::vector<ObservationPair> m_pairs;
    std::vector<double> m_runIndices;
};

/// The step-by-step values lie within this of the fractions.
constexpr double stepwiseError = 2e-15;

std::vector<ObservationPair> labelled(const std::vector<int>& labels)
{
    std::vector<ObservationPair> pairs;
    for (const int label : labels)
        pairs.push_back({0.0, label});
    return pairs;
}

} // namespace

TEST(Sequences, ValuesOfHand)
{
    // 1 1 1 2 2 2 3 3 3: R = 3, S = 3, 6, 9; C = 2 / 12; M with a = 162, b = 9 (9 . 42 - 18^2).
    const auto blocks = labelled({1, 1, 1, 2, 2, 2, 3, 3, 3});
    EXPECT_EQ(stats::SequenceCFromLabels(blocks, 3), 1.0 / 6.0);
    EXPECT_EQ(stats::SequenceMFromLabels(blocks, 3), 1.5);
    // 1 2 3 1 2 3 1 2 3: R = 9, S = 12, 15, 18; C = 2 / 90; a = 162, b = 9 (9 . 285 - 45^2).
    const auto mixed = labelled({1, 2, 3, 1, 2, 3, 1, 2, 3});
    EXPECT_EQ(stats::SequenceCFromLabels(mixed, 3), 1.0 / 45.0);
    EXPECT_EQ(stats::SequenceMFromLabels(mixed, 3), 3.0 * 162.0 / (4860.0 - 162.0));
}

TEST(Sequences, PropellantSquare)
{
    EXPECT_TRUE(isNear(stats::SequenceC(propellantSquare(), 5), 0.242786561264822, 5e-16));
    EXPECT_TRUE(isNear(stats::SequenceM(propellantSquare(), 5), 0.601234142418722, 5e-16));
}

TEST(Sequences, SquareOfOrderThree)
{
    const TMatrix square = squareOf({{12.5, 14, 9.75}, {11, 10.2, 16.1}, {8.3, 12, 13}});
    EXPECT_TRUE(isNear(stats::SequenceC(square, 3), 0.151851851851852, 5e-16));
    EXPECT_TRUE(isNear(stats::SequenceM(square, 3), 0.919354838709677, 5e-16));
}

TEST(Sequences, TiesKeepTheOrderOfTheirCells)
{
    // Columns outside, rows inside. The cyclic layout is symmetric, so only the values tell the
    // order of the cells: here those of row 1 come first, then all others tied.
    stats::TMatrix square = TMatrix::Create(3, 3);
    square.Elem(1, 1, -3.0);
    square.Elem(2, 1, -2.0);
    square.Elem(3, 1, -1.0);
    const auto sorted = stats::sortedPairs(square, 3);
    std::vector<int> labels;
    for (const ObservationPair& pair : sorted)
        labels.push_back(pair.label);
    EXPECT_EQ(labels, (std::vector<int>{1, 2, 3, 2, 3, 3, 1, 1, 2}));
}

TEST(Sequences, EqualObservationsReadTheLayout)
{
    for (int n = 2; n <= 6; ++n) {
        std::vector<int> labels;
        for (int column = 1; column <= n; ++column) {
            for (int row = 1; row <= n; ++row)
                labels.push_back(stats::treatmentOf(column, row, n));
        }
        const TMatrix equal = squareFrom(n, [](int, int) { return 3.0; });
        EXPECT_EQ(stats::SequenceC(equal, n), stats::SequenceCFromLabels(labelled(labels), n));
        EXPECT_EQ(stats::SequenceM(equal, n), stats::SequenceMFromLabels(labelled(labels), n));
    }
}

TEST(Sequences, OneBlockForEachTreatmentGivesTheLargestM)
{
    for (int n = 2; n <= 8; ++n) {
        const TMatrix square = squareFrom(
            n, [n](int column, int row) { return stats::treatmentOf(column, row, n) * 1.5; });
        EXPECT_EQ(stats::SequenceM(square, n), n / (n - 1.0)) << n;
    }
}

TEST(Sequences, OneTreatmentHasNoSpread)
{
    const TMatrix square = squareFrom(1, [](int, int) { return 3.0; });
    EXPECT_EQ(stats::SequenceC(square, 1), 0.0);
    EXPECT_TRUE(std::isnan(stats::SequenceM(square, 1)));
}

TEST(Sequences, LargeSquaresAgreeWithTheTranscription)
{
    // Orders on both sides of where the sorting changes, with ties whose order matters.
    for (const int n : {7, 8, 9, 12, 20}) {
        RandomSquares squares(n);
        for (int k = 0; k < 12; ++k) {
            const TMatrix square = squares.next();
            const Transcription slow(square, n);
            EXPECT_TRUE(isNear(stats::SequenceC(square, n), slow.c(), 1e-13));
            EXPECT_TRUE(isNear(stats::SequenceM(square, n), slow.m(), 1e-13));
        }
    }
}

TEST(Sequences, HugeOrdersDoNotOverflow)
{
    // One block for each treatment: M is n / (n - 1) whatever the order.
    const int n = 300;
    const TMatrix square = squareFrom(
        n, [](int column, int row) { return stats::treatmentOf(column, row, 300) * 1.5; });
    EXPECT_TRUE(isRelativelyNear(stats::SequenceM(square, n), n / (n - 1.0), 1e-15));
    // Run indices 1 to n, each mean of a treatment its own index: C = (n^3 - n) / 12 / (n (n + 1)).
    EXPECT_TRUE(isRelativelyNear(stats::SequenceC(square, n), (n - 1.0) / 12.0, 1e-15));
}

class SequencesOfOrder : public ::testing::TestWithParam<int> {};

TEST_P(SequencesOfOrder, PropertiesOnRandomSquares)
{
    const int n = GetParam();
    RandomSquares squares(n);
    for (int k = 0; k < propertySquares; ++k) {
        const TMatrix square = squares.next();
        const double c = stats::SequenceC(square, n);
        const double m = stats::SequenceM(square, n);
        ASSERT_GE(c, 0.0);
        ASSERT_GE(m, 0.0);
        ASSERT_LE(m, n / (n - 1.0));
        const TMatrix image = mapped(square, [](double x) { return x * x * x * 0.37 - 1000.5; });
        ASSERT_EQ(stats::SequenceC(image, n), c);
        ASSERT_EQ(stats::SequenceM(image, n), m);
        const Transcription slow(square, n);
        ASSERT_GE(slow.runs(), n);
        ASSERT_LE(slow.runs(), n * n);
        ASSERT_TRUE(isNear(c, slow.c(), stepwiseError));
        ASSERT_TRUE(isNear(m, slow.m(), stepwiseError));
        ASSERT_EQ(stats::SequenceCFromLabels(slow.pairs(), n), c);
        ASSERT_EQ(stats::SequenceMFromLabels(slow.pairs(), n), m);
    }
}

TEST_P(SequencesOfOrder, NamesOfTreatmentsDoNotMatter)
{
    const int n = GetParam();
    RandomSquares squares(n);
    for (int k = 0; k < 1000; ++k) {
        const Transcription sorted(squares.next(), n);
        std::vector<ObservationPair> renamed = sorted.pairs();
        for (ObservationPair& pair : renamed)
            pair.label = n + 1 - pair.label;
        ASSERT_EQ(stats::SequenceCFromLabels(renamed, n),
                  stats::SequenceCFromLabels(sorted.pairs(), n));
        ASSERT_EQ(stats::SequenceMFromLabels(renamed, n),
                  stats::SequenceMFromLabels(sorted.pairs(), n));
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, SequencesOfOrder, ::testing::Range(3, 7));

TEST(ObservationPairs, ASquareOfNoOrderHasNone)
{
    const TMatrix square = TMatrix::Create(2, 2);
    EXPECT_TRUE(stats::sortedPairs(square, 0).empty());
    EXPECT_TRUE(stats::sortedPairs(square, -1).empty());
    EXPECT_EQ(stats::sortedPairs(square, 1).size(), 1U);
}
