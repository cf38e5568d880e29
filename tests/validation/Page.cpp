// SPDX-License-Identifier: GPL-3.0-or-later
#include "validation/Page.h"

#include "base/NumberText.h"

#include <cmath>

namespace validation {

namespace {

QString row(const QStringList& cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
}

} // namespace

void Page::heading(const QString& text)
{
    m_text += QStringLiteral("## ") + text + QStringLiteral("\n\n");
}

void Page::paragraph(const QString& text)
{
    m_text += text + QStringLiteral("\n\n");
}

void Page::table(const QStringList& header, const QList<QStringList>& rows)
{
    m_text += row(header);
    m_text += row(QStringList(header.size(), QStringLiteral("---")));
    for (const QStringList& cells : rows)
        m_text += row(cells);
    m_text += QLatin1Char('\n');
}

QString Page::atMost(const QString& what, double figure, double most)
{
    if (!(figure <= most))
        m_failures << QStringLiteral("%1: %2, más de %3")
                          .arg(what, base::generalText(figure), base::generalText(most));
    return twoDigits(figure);
}

QString Page::atLeast(const QString& what, double figure, double least, int decimals)
{
    if (!(figure >= least))
        m_failures << QStringLiteral("%1: %2, menos de %3")
                          .arg(what, base::generalText(figure), base::generalText(least));
    return base::fixedText(figure, decimals);
}

QString Page::exactly(const QString& what, qint64 count, qint64 expected)
{
    if (count != expected)
        m_failures << QStringLiteral("%1: %2 y no %3").arg(what).arg(count).arg(expected);
    return QString::number(count);
}

QString twoDigits(double value)
{
    if (value == 0.0 || !std::isfinite(value))
        return base::generalText(value);
    const double unit = std::pow(10.0, std::floor(std::log10(std::abs(value))) - 1.0);
    return base::generalText(std::round(value / unit) * unit);
}

} // namespace validation
