// SPDX-License-Identifier: GPL-3.0-or-later
#include "distribution/DistributionTable.h"

#include "base/NumberText.h"

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

std::vector<double> ShownDistribution::Values() const
{
    std::vector<double> values;
    for (const stats::ExactFigures& of : figures)
        values.push_back(of.value);
    for (const stats::ExactFigures& of : figures)
        values.push_back(of.probability);
    return values;
}

QByteArray distributionTable(const ShownDistribution& distribution)
{
    QString text = distribution.Title + lineEnd();
    // The labels of the last two columns carry six blanks of their own.
    text += field(QStringLiteral("Valor ") + distribution.StatName) +
            field(QStringLiteral("p(x)      ")) + field(QStringLiteral("F(x)      ")) + lineEnd();
    for (const stats::ExactFigures& of : distribution.figures)
        text += field(of.value) + field(of.probability) + field(of.cumulative) + lineEnd();
    return text.toUtf8();
}

} // namespace distribution
