// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/PowerStudy.h"

#include "power/study/SquareBatch.h"

#include <algorithm>
#include <span>

namespace power {

namespace {

using Rejections = PerTest<int>;

void count(const BatchStatistics& statistics, int squares, const CriticalValues& critical,
           Rejections& rejections)
{
    for (std::size_t lane = 0; lane < static_cast<std::size_t>(squares); ++lane) {
        const double standardisedC =
            (statistics.c[lane] - critical.meanOfC) / critical.deviationOfC;
        rejections.c += standardisedC > critical.c ? 1 : 0;
        rejections.m += statistics.m[lane] > critical.m ? 1 : 0;
        rejections.b += statistics.b[lane] > critical.b ? 1 : 0;
        rejections.z += statistics.z[lane] > critical.z ? 1 : 0;
    }
}

template <int n>
Powers powersOf(const StudySettings& settings, const CriticalValues& critical, double difference,
                Aleatorio& generator)
{
    constexpr std::size_t cells = ObservationKeys<n>::cells;
    const SquareBatch<n> batch(settings.errorKind, difference);
    std::array<std::uint32_t, cells * stats::laneCount> numbers{};
    Rejections rejections;
    for (int done = 0; done < settings.trials; done += stats::laneCount) {
        const int squares = std::min(stats::laneCount, settings.trials - done);
        generator.NextNumbers(std::span(numbers).first(cells * static_cast<std::size_t>(squares)));
        count(batch.evaluate(numbers, squares), squares, critical, rejections);
    }
    const double trials = settings.trials;
    return {rejections.c / trials, rejections.m / trials, rejections.b / trials,
            rejections.z / trials};
}

} // namespace

Powers simulatedPowers(const StudySettings& settings, const CriticalValues& critical,
                       double difference, Aleatorio& generator)
{
    switch (settings.order) {
    case 3:
        return powersOf<3>(settings, critical, difference, generator);
    case 4:
        return powersOf<4>(settings, critical, difference, generator);
    case 5:
        return powersOf<5>(settings, critical, difference, generator);
    case 6:
        return powersOf<6>(settings, critical, difference, generator);
    default:
        throw ImpossibleSetting();
    }
}

std::vector<double> studyDifferences()
{
    constexpr double step = 0.05;
    constexpr double end = 1.05;
    std::vector<double> differences;
    for (double difference = 0.0; difference < end; difference += step)
        differences.push_back(difference);
    return differences;
}

std::vector<PowerPoint> runPowerStudy(const StudySettings& settings, Aleatorio& generator,
                                      stats::RandomIntegers& integers, const PointDone& pointDone)
{
    const CriticalValues critical = criticalValues(settings.order, settings.level, integers);
    std::vector<PowerPoint> points;
    for (const double difference : studyDifferences()) {
        points.push_back({difference, simulatedPowers(settings, critical, difference, generator)});
        pointDone(points);
    }
    return points;
}

} // namespace power
