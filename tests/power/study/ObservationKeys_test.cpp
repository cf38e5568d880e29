// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/ObservationKeys.h"

#include "power/study/Aleatorio.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace power {
namespace {

constexpr int n = 6;
using Keys = ObservationKeys<n>;
constexpr std::size_t batchNumbers = Keys::cells * stats::laneCount;
constexpr std::uint32_t largest = 0xffffffffU;

struct Case {
    ErrorKind kind;
    double difference;
};

std::vector<Case> allCases()
{
    std::vector<Case> cases;
    for (const ErrorKind kind : {ErrorKind::Uniform, ErrorKind::Exponential, ErrorKind::Triangular})
        for (const double difference : {0.0, 0.05, 0.15000000000000002, 0.5, 1.0000000000000002})
            cases.push_back({kind, difference});
    return cases;
}

struct Cell {
    stats::Key level;
    double observation;
};

/// Level and observation of each cell of each square.
std::vector<std::vector<Cell>> cellsOf(const Case& which, const std::vector<std::uint32_t>& numbers)
{
    const Keys keys(which.kind, which.difference);
    const stats::KeyLanes<n> batch = keys.keysOf(Keys::Numbers(numbers));
    std::vector<std::vector<Cell>> squares(stats::laneCount);
    for (std::size_t lane = 0; lane < squares.size(); ++lane) {
        for (std::size_t cell = 0; cell < Keys::cells; ++cell) {
            const auto row = static_cast<int>(cell) / n;
            const auto column = static_cast<int>(cell) % n;
            const stats::Key key = batch[cell][lane];
            EXPECT_GE(key, stats::lowestKey);
            EXPECT_LE(key, stats::highestKey);
            EXPECT_EQ((key - stats::lowestKey) % 64, stats::cellCode(row, column, n));
            const int treatment = (row + column) % n + 1;
            squares[lane].push_back(
                {(key - stats::lowestKey) / 64,
                 ErrorDraw(which.kind, Aleatorio::uniformOf(numbers[lane * Keys::cells + cell]),
                           treatment * which.difference)});
        }
    }
    return squares;
}

/// Whether levels that differ enough tell the order of the observations; counts those that do.
void expectOrderTold(const std::vector<std::vector<Cell>>& squares, int& told)
{
    for (const auto& cells : squares) {
        for (const Cell& a : cells) {
            for (const Cell& b : cells) {
                if (a.level - b.level < Keys::nearTie)
                    continue;
                ++told;
                ASSERT_GT(a.observation, b.observation) << a.level << " and " << b.level;
            }
        }
    }
}

TEST(ObservationKeys, LevelsTellTheOrderOfRandomNumbers)
{
    Aleatorio generator;
    std::vector<std::uint32_t> numbers(batchNumbers);
    for (const Case& which : allCases()) {
        int told = 0;
        for (int batch = 0; batch < 20; ++batch) {
            generator.NextNumbers(numbers);
            expectOrderTold(cellsOf(which, numbers), told);
        }
        EXPECT_GT(told, 200000); // of 20 * 16 * 630
    }
}

/// Numbers of all magnitudes, and numbers that shifts bring side by side: near ties by the
/// thousand.
TEST(ObservationKeys, LevelsTellTheOrderOfNearTies)
{
    std::mt19937 random(20011);
    std::vector<std::uint32_t> numbers(batchNumbers);
    for (const Case& which : allCases()) {
        int told = 0;
        for (int batch = 0; batch < 40; ++batch) {
            const std::uint32_t centre = random() >> (random() % 30);
            for (std::uint32_t& number : numbers)
                number = centre + (random() >> (12 + random() % 20));
            for (std::size_t i = 0; i < numbers.size(); i += 7)
                numbers[i] = random() >> (random() % 32);
            expectOrderTold(cellsOf(which, numbers), told);
        }
        EXPECT_GT(told, 100000);
    }
}

TEST(ObservationKeys, TheEndsOfTheRange)
{
    for (const Case& which : allCases()) {
        std::vector<std::uint32_t> numbers(batchNumbers);
        const std::vector<std::uint32_t> ends{0, 1, 2, 3, largest / 2, largest - 1, largest};
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = ends[(i * i + i / Keys::cells) % ends.size()];
        int told = 0;
        expectOrderTold(cellsOf(which, numbers), told);
        EXPECT_GT(told, 0);
    }
}

TEST(ObservationKeys, MostPairsAreTold)
{
    Aleatorio generator;
    std::vector<std::uint32_t> numbers(batchNumbers);
    for (const Case& which : allCases()) {
        int near = 0;
        constexpr int batches = 50;
        for (int batch = 0; batch < batches; ++batch) {
            generator.NextNumbers(numbers);
            for (auto& cells : cellsOf(which, numbers)) {
                std::sort(cells.begin(), cells.end(),
                          [](const Cell& a, const Cell& b) { return a.level < b.level; });
                bool nearTie = false;
                for (std::size_t i = 1; i < cells.size(); ++i)
                    nearTie |= cells[i].level - cells[i - 1].level < Keys::nearTie;
                near += nearTie ? 1 : 0;
            }
        }
        EXPECT_LT(near, batches * stats::laneCount / 50); // 1 in 100 would cost time
    }
}

TEST(ObservationKeys, AnUnknownKindThrows)
{
    const std::vector<std::uint32_t> numbers(batchNumbers);
    const Keys keys(static_cast<ErrorKind>(3), 0.0);
    EXPECT_THROW(keys.keysOf(Keys::Numbers(numbers)), ImpossibleSetting);
}

} // namespace
} // namespace power
