// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/SquareBatch.h"

#include "power/study/Aleatorio.h"
#include "power/study/PlainStudy.h"

#include <gtest/gtest.h>

#include <bit>
#include <functional>
#include <vector>

namespace power {
namespace {

template <typename Order>
class SquareBatchTest : public testing::Test {
public:
    static constexpr int n = Order::value;
    static constexpr std::size_t cells = ObservationKeys<n>::cells;
    using Numbers = std::vector<std::uint32_t>;

    static plain::Square squareOf(const Numbers& numbers, std::size_t lane, ErrorKind kind,
                                  double difference)
    {
        plain::Square square(n, std::vector<double>(n));
        std::size_t next = lane * cells;
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j < n; ++j) {
                const double treatment = static_cast<double>((i + j) % n + 1);
                square[i][j] =
                    ErrorDraw(kind, Aleatorio::uniformOf(numbers[next++]), treatment * difference);
            }
        }
        return square;
    }

    static void expectPlain(const Numbers& numbers, ErrorKind kind, double difference)
    {
        const SquareBatch<n> batch(kind, difference);
        const BatchStatistics statistics =
            batch.evaluate(typename SquareBatch<n>::Numbers(numbers), stats::laneCount);
        for (std::size_t lane = 0; lane < stats::laneCount; ++lane) {
            const plain::Square square = squareOf(numbers, lane, kind, difference);
            const auto same = [](double actual, double expected) {
                return std::bit_cast<std::uint64_t>(actual) ==
                       std::bit_cast<std::uint64_t>(expected);
            };
            ASSERT_PRED2(same, statistics.c[lane], plain::sequenceC(square));
            ASSERT_PRED2(same, statistics.m[lane], plain::sequenceM(square));
            ASSERT_PRED2(same, statistics.b[lane], plain::bennett(square));
            if (statistics.z[lane] == statistics.z[lane]) {
                ASSERT_PRED2(same, statistics.z[lane], plain::zimmerman(square));
            } else { // 0 / 0 of a square of equal observations
                ASSERT_NE(plain::zimmerman(square), plain::zimmerman(square));
            }
        }
    }

    /// All kinds and differences; `change` spoils the numbers drawn for each batch.
    static void compare(int batches, const std::function<void(Numbers&)>& change)
    {
        Aleatorio generator;
        Numbers numbers(cells * stats::laneCount);
        for (const ErrorKind kind :
             {ErrorKind::Uniform, ErrorKind::Exponential, ErrorKind::Triangular}) {
            for (const double difference : studyDifferences()) {
                for (int batch = 0; batch < batches; ++batch) {
                    generator.NextNumbers(numbers);
                    change(numbers);
                    expectPlain(numbers, kind, difference);
                }
            }
        }
    }
};

struct OrderNames {
    template <typename Order>
    static std::string GetName(int)
    {
        return "Order" + std::string(1, static_cast<char>('0' + Order::value));
    }
};

using Orders = testing::Types<std::integral_constant<int, 3>, std::integral_constant<int, 4>,
                              std::integral_constant<int, 5>, std::integral_constant<int, 6>>;
TYPED_TEST_SUITE(SquareBatchTest, Orders, OrderNames);

TYPED_TEST(SquareBatchTest, RandomSquares)
{
    this->compare(12, [](auto&) {});
}

/// Numbers rounded to a few values: ties within treatments always, between them at difference 0.
TYPED_TEST(SquareBatchTest, SquaresFullOfTies)
{
    this->compare(1, [](auto& numbers) {
        for (std::uint32_t& number : numbers)
            number &= 0xe0000000U;
    });
    this->compare(1, [](auto& numbers) {
        for (std::uint32_t& number : numbers)
            number = number < 0x80000000U ? 0 : 0xffffffffU;
    });
}

TYPED_TEST(SquareBatchTest, EqualNumbers)
{
    for (const std::uint32_t value : {0U, 1U, 0x12345678U, 0xffffffffU})
        this->compare(1, [value](auto& numbers) { numbers.assign(numbers.size(), value); });
}

/// Small numbers have few bits, and many of them few differences.
TYPED_TEST(SquareBatchTest, SmallAndNeighbouringNumbers)
{
    this->compare(1, [](auto& numbers) {
        for (std::uint32_t& number : numbers)
            number >>= 22;
    });
    this->compare(1, [](auto& numbers) {
        for (std::uint32_t& number : numbers)
            number = 0x7fff0000U + (number >> 18);
    });
}

/// One tie in an otherwise ordinary square.
TYPED_TEST(SquareBatchTest, SingleTies)
{
    this->compare(2, [cells = this->cells](auto& numbers) {
        for (std::size_t square = 0; square < numbers.size(); square += cells)
            numbers[square + numbers[square] % cells] = numbers[square + 1];
    });
}

} // namespace
} // namespace power
