// SPDX-License-Identifier: GPL-3.0-or-later
#include "distribution/ExactDistribution.h"

#include "base/NumberText.h"
#include "chart/scale/CompensatedSum.h"

namespace distribution {

namespace {

constexpr qsizetype columnWidth = 23;

QString field(const QString& text)
{
    return text.rightJustified(columnWidth);
}

QString field(double value)
{
    return field(base::generalText(value));
}

QString lineEnd()
{
    return QStringLiteral("\r\n");
}

} // namespace

std::span<const double> ExactDistribution::values() const
{
    return std::span(Values).first(static_cast<std::size_t>(Count));
}

std::span<const double> ExactDistribution::probabilities() const
{
    return std::span(Values).subspan(static_cast<std::size_t>(Count),
                                     static_cast<std::size_t>(Count));
}

std::vector<double> ExactDistribution::cumulative() const
{
    std::vector<double> sums;
    sums.reserve(probabilities().size());
    chart::CompensatedSum sum;
    for (const double probability : probabilities()) {
        sum.add(probability);
        sums.push_back(sum.value());
    }
    return sums;
}

QByteArray distributionTable(const ExactDistribution& distribution)
{
    const auto values = distribution.values();
    const auto probabilities = distribution.probabilities();
    const std::vector<double> cumulative = distribution.cumulative();
    QString text = distribution.Title + lineEnd();
    // The labels of the last two columns carry six blanks of their own.
    text += field(QStringLiteral("Valor ") + distribution.StatName) +
            field(QStringLiteral("p(x)      ")) + field(QStringLiteral("F(x)      ")) + lineEnd();
    for (std::size_t i = 0; i < values.size(); ++i)
        text += field(values[i]) + field(probabilities[i]) + field(cumulative[i]) + lineEnd();
    return text.toUtf8();
}

} // namespace distribution
