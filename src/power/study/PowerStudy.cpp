// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/PowerStudy.h"

namespace power {

std::vector<double> studyDifferences()
{
    constexpr double step = 0.05;
    constexpr double end = 1.05;
    std::vector<double> differences;
    for (double difference = 0.0; difference < end; difference += step)
        differences.push_back(difference);
    return differences;
}

std::vector<PowerPoint>
runPowerStudy(const StudySettings& settings, Aleatorio& generator, stats::RandomIntegers& integers,
              const std::function<void(const std::vector<PowerPoint>&)>& pointDone)
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
