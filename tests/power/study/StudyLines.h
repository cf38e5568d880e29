// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/StudyLog.h"

namespace power {

/// The whole log of a study.
inline QStringList studyLines(const StudySettings& settings, const std::vector<PowerPoint>& points)
{
    QStringList lines = startLines(settings);
    for (const PowerPoint& point : points)
        lines << pointLines(point);
    return lines;
}

} // namespace power
