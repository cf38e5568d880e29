// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/PowerStudy.h"

#include <QStringList>

/// A power study as the user reads it. Numbers carry the user's decimal separator.
namespace power {

/// "Distribución Uniforme" and the like; empty for a kind that is none.
QString caption(ErrorKind kind);

/// The lines with which the log of a study begins.
QStringList startLines(const StudySettings& settings);

/// The lines that each point adds to it.
QStringList pointLines(const PowerPoint& point);

} // namespace power
