// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/scale/AxisRange.h"

#include <QString>

#include <stdexcept>

namespace chart {

/// What a chart refuses: a date-time axis without dates, or data that it may not share.
class ChartError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Dates and times on an axis: a value is a number of days, day 0 is 30 December 1899 at midnight,
/// as in spreadsheets. Years 1 to 9999.

/// @throws ChartError "invalid DateTime scale" for a logarithmic axis and for a bound outside those
///         years; "DateTime range is below 1 second"
void requireDateTimeRange(const AxisRange& range);

/// The value, to the nearest second, in the form of QLocale::toString(); empty outside the years.
QString dateTimeText(long double days, const QString& format);

} // namespace chart
