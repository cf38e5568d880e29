// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisTicks.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace chart {

/// What stands at the ticks of an axis.
enum class LabelType {
    ftNum,      ///< The value.
    ftDateTime, ///< The value as a date and time, see DateTimeScale.h.
    ftNoFigs,   ///< Nothing.
    ftUserText, ///< The program's own texts.
};

/// Decimals of a label are kept within these; a negative count rounds to tens, hundreds, thousands.
inline constexpr int leastDecimals = -3;
inline constexpr int mostDecimals = 12;

struct LabelFormat {
    LabelType type = LabelType::ftNum;
    int decimals = 2; ///< At least: labels that would read alike get more.
    QString dateTimeFormat = QStringLiteral("dd/MM/yyyy"); ///< In Qt's letters.
    QStringList userTexts;                                 ///< The first one for the first tick.
};

/// A number at a tick, in the user's decimal separator, cut to 14 characters.
///
/// What is 0 but for rounding on an axis of so great a width reads "0.0", or "0" without decimals.
QString numberLabel(long double value, long double axisWidth, int decimals);

/// The text of every main tick, in their order; empty where there is none.
std::vector<QString> tickLabels(const AxisTicks& ticks, const AxisRange& range,
                                const LabelFormat& format);

} // namespace chart
