// SPDX-License-Identifier: GPL-3.0-or-later

// How fast the power study is, and how fast against three measures taken in the same run: a plain
// transcription of its method, a simple quick one, and drawing its random numbers and nothing else.

#include "power/ScalarStudy.h"
#include "power/study/PlainStudy.h"
#include "power/study/PowerStudy.h"
#include "stats/numbers/LaneSort.h"
#include "stats/numbers/SequenceTests.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <vector>

namespace {

constexpr int order = scalar::order;
constexpr int trials = 5000;
constexpr std::size_t cells = order * order;

power::StudySettings settingsOf(int kind)
{
    return {order, trials, 0.95, static_cast<power::ErrorKind>(kind)};
}

std::vector<power::PowerPoint> study(const power::StudySettings& settings)
{
    power::Aleatorio generator;
    stats::RandomIntegers integers;
    return power::runPowerStudy(settings, generator, integers,
                                [](const std::vector<power::PowerPoint>&) {});
}

void plainStudy(const power::StudySettings& settings)
{
    power::Aleatorio generator;
    stats::RandomIntegers integers;
    const auto critical = plain::criticalValues(settings.order, settings.level, integers);
    for (const double difference : power::studyDifferences())
        benchmark::DoNotOptimize(
            plain::simulatedPowers(settings, {critical}, difference, generator));
}

std::vector<power::PowerPoint> scalarStudy(const power::StudySettings& settings)
{
    power::Aleatorio generator;
    stats::RandomIntegers integers;
    const auto critical = power::criticalValues(settings.order, settings.level, integers);
    std::vector<power::PowerPoint> points;
    for (const double difference : power::studyDifferences())
        points.push_back(
            {difference, scalar::simulatedPowers(settings, critical, difference, generator)});
    return points;
}

/// Whether two studies found the same. Ties and the last bit of a statistic, of which the scalar
/// one takes no care, may turn a square in a million.
bool areSame(const std::vector<power::PowerPoint>& a, const std::vector<power::PowerPoint>& b)
{
    const auto isNear = [](double x, double y) { return std::abs(x - y) < 1.5 / trials; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const auto& p, const auto& q) {
        return isNear(p.powers.c, q.powers.c) && isNear(p.powers.m, q.powers.m) &&
               isNear(p.powers.b, q.powers.b) && isNear(p.powers.z, q.powers.z);
    });
}

/// The uniform numbers of a study and nothing else, a batch of squares at a time.
void uniformsInBlocks()
{
    power::Aleatorio generator;
    std::vector<std::uint32_t> numbers(cells * stats::laneCount);
    std::vector<double> uniforms(numbers.size());
    const std::size_t all = power::studyDifferences().size() * trials * cells;
    for (std::size_t drawn = 0; drawn < all; drawn += numbers.size()) {
        generator.NextNumbers(numbers);
        std::transform(numbers.begin(), numbers.end(), uniforms.begin(),
                       power::Aleatorio::uniformOf);
        benchmark::DoNotOptimize(uniforms.data());
        benchmark::ClobberMemory();
    }
}

/// Milliseconds of the processor's time: other programs do not count.
double processorMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// The quickest of some runs: whatever disturbs a run makes it slower.
template <typename Work>
void keepQuickest(double& quickest, int runs, const Work& work)
{
    for (int run = 0; run < runs; ++run) {
        const double start = processorMilliseconds();
        work();
        quickest = std::min(quickest, processorMilliseconds() - start);
    }
}

/// All four in turns. range(0): the kind of errors.
void ratios(benchmark::State& state)
{
    const power::StudySettings settings = settingsOf(static_cast<int>(state.range(0)));
    constexpr int runs = 10;
    double fast = std::numeric_limits<double>::infinity();
    double plain = fast;
    double simple = fast;
    double blocks = fast;
    if (!areSame(study(settings), scalarStudy(settings)))
        state.SkipWithError("the scalar study finds other powers");
    for ([[maybe_unused]] const auto iteration : state) {
        keepQuickest(fast, runs, [&] { benchmark::DoNotOptimize(study(settings)); });
        keepQuickest(blocks, runs, uniformsInBlocks);
        keepQuickest(simple, 3, [&] { benchmark::DoNotOptimize(scalarStudy(settings)); });
        keepQuickest(plain, 1, [&] { plainStudy(settings); });
    }
    state.counters["study_ms"] = fast;
    state.counters["plain_ms"] = plain;
    state.counters["scalar_ms"] = simple;
    state.counters["blocks_ms"] = blocks;
    state.counters["plain/study"] = plain / fast;
    state.counters["scalar/study"] = simple / fast;
    state.counters["study/blocks"] = fast / blocks;
}

/// The time per square. range(0): order, range(1): kind of errors.
void squares(benchmark::State& state)
{
    power::StudySettings settings = settingsOf(static_cast<int>(state.range(1)));
    settings.order = static_cast<int>(state.range(0));
    stats::RandomIntegers integers;
    const power::CriticalValues critical =
        power::criticalValues(settings.order, settings.level, integers);
    power::Aleatorio generator;
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(power::simulatedPowers(settings, critical, 0.2, generator));
    state.counters["per_square"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * trials,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// The simulated squares of test C. range(0): order.
void squaresOfTestC(benchmark::State& state)
{
    stats::RandomIntegers integers;
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(stats::simulateC(static_cast<int>(state.range(0)), integers));
}

BENCHMARK(ratios)->DenseRange(0, 2)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(squares)->ArgsProduct({{3, 4, 5, 6}, {0, 1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(squaresOfTestC)->DenseRange(4, 6)->Unit(benchmark::kMillisecond);

} // namespace
