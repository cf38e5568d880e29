// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ForeignMarks.h"

#include "base/NumberText.h"

namespace base {

namespace {

constexpr qsizetype groupLength = 3;

/// Whether a number looks like one group of one to three digits and another of three, with the
/// mark between them that is not the user's decimal sign.
bool looksGrouped(QStringView number)
{
    if (number.startsWith(QLatin1Char('-')) || number.startsWith(QLatin1Char('+')))
        number = number.sliced(1);
    const QChar mark =
        decimalSeparator() == QLatin1String(",") ? QLatin1Char('.') : QLatin1Char(',');
    const qsizetype place = number.indexOf(mark);
    if (place < 1 || place > groupLength || number.size() != place + 1 + groupLength)
        return false;
    return number.front() != QLatin1Char('0') && areDigits(number.last(groupLength));
}

} // namespace

void ForeignMarks::look(QStringView typed, double value)
{
    const QStringView number = typed.trimmed();
    if (!looksGrouped(number))
        return;
    if (++m_count == 1)
        m_first = QStringLiteral("«%1» se leyó como %2").arg(number, fullText(value));
}

QString ForeignMarks::notice() const
{
    if (m_count < 2)
        return m_first;
    return m_first + QStringLiteral(" (el primero de %1 números así)").arg(m_count);
}

} // namespace base
