// SPDX-License-Identifier: GPL-3.0-or-later

// Nanoseconds for each statistic and order, and for the exact distributions of order 3.

#include "stats/numbers/ExactDistribution.h"
#include "stats/numbers/LatinSquareAnova.h"
#include "stats/numbers/RankStatistics.h"
#include "stats/numbers/STATIS.h"
#include "stats/numbers/SequenceTests.h"
#include "stats/numbers/Sequences.h"
#include "stats/numbers/SimulatedSquares.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

/// So many squares that the processor cannot learn their order by heart; one of those that only a
/// file can bring.
std::size_t squareCount(int n)
{
    return n <= 20 ? 1024 : 1;
}

std::vector<stats::TMatrix> randomSquares(int n)
{
    stats::RandomIntegers integers;
    std::vector<stats::TMatrix> squares(squareCount(n), stats::TMatrix::Create(n, n));
    for (stats::TMatrix& square : squares) {
        for (int row = 1; row <= n; ++row) {
            for (int column = 1; column <= n; ++column)
                square.Elem(column, row, integers.next());
        }
    }
    return squares;
}

template <typename Statistic>
void statisticOfOrder(benchmark::State& state, const Statistic& statistic)
{
    const int n = static_cast<int>(state.range(0));
    const std::vector<stats::TMatrix> squares = randomSquares(n);
    std::size_t at = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(statistic(squares[at], n));
        at = (at + 1) % squares.size();
    }
}

void zimmermanStatistic(benchmark::State& state)
{
    statisticOfOrder(state, stats::ZimmermanStatistic);
}

void bennettStatistic(benchmark::State& state)
{
    statisticOfOrder(state, stats::BennettStatistic);
}

void sequenceC(benchmark::State& state)
{
    statisticOfOrder(state, stats::SequenceC);
}

void sequenceM(benchmark::State& state)
{
    statisticOfOrder(state, stats::SequenceM);
}

void latinSquareAnova(benchmark::State& state)
{
    statisticOfOrder(state, [](const stats::TMatrix& square, int n) {
        return stats::latinSquareAnova(square, n, 0.05);
    });
}

void fQuantile(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(stats::FQuantile(0.95, n - 1, n * (n - 1)));
}

void simulatedC(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    stats::RandomIntegers integers;
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(stats::simulateC(n, integers));
}

void exactDistributionOfC(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(stats::exactDistributionOfC(3));
}

void exactDistributionOfM(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(stats::exactDistributionOfM(3));
}

} // namespace

BENCHMARK(zimmermanStatistic)->DenseRange(3, 6)->Arg(20)->Arg(1000);
BENCHMARK(bennettStatistic)->DenseRange(3, 6)->Arg(20)->Arg(1000);
BENCHMARK(sequenceC)->DenseRange(3, 6)->Arg(20)->Arg(1000);
BENCHMARK(sequenceM)->DenseRange(3, 6)->Arg(20)->Arg(1000);
BENCHMARK(latinSquareAnova)->DenseRange(3, 6)->Arg(20)->Arg(1000);
BENCHMARK(fQuantile)->DenseRange(3, 6)->Arg(20);
BENCHMARK(simulatedC)
    ->DenseRange(4, 6)
    ->Arg(20)
    ->Arg(stats::largestSimulatedOrder)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(exactDistributionOfC)->Unit(benchmark::kMicrosecond);
BENCHMARK(exactDistributionOfM)->Unit(benchmark::kMicrosecond);
