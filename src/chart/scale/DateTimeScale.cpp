// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/DateTimeScale.h"

#include <QDateTime>
#include <QLocale>

#include <cmath>

namespace chart {

namespace {

constexpr long double firstDay = -693593.0L; // 1 January of the year 1
constexpr long double lastDay = 2958466.0L;  // the end of the year 9999
constexpr long double secondsPerDay = 86400.0L;

bool isDate(long double days)
{
    return days >= firstDay && days < lastDay;
}

} // namespace

void requireDateTimeRange(const AxisRange& range)
{
    if (range.isLogarithmic() || !isDate(range.low()) || !isDate(range.high()))
        throw ChartError("invalid DateTime scale");
    // A second between two dates of our time is not exact; half a microsecond is below its digits.
    constexpr long double rounding = 5e-7L;
    if (std::abs(range.high() - range.low()) * secondsPerDay < 1.0L - rounding)
        throw ChartError("DateTime range is below 1 second");
}

QString dateTimeText(long double days, const QString& format)
{
    if (!isDate(days))
        return {};
    const QDateTime dayZero(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
    const auto seconds = static_cast<qint64>(std::llround(days * secondsPerDay));
    return QLocale().toString(dayZero.addSecs(seconds), format);
}

} // namespace chart
