// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of Estad: the classical F test with its table.
#include "stats/words/Estad.h"

#include "base/NumberText.h"
#include "stats/numbers/LatinSquareAnova.h"

#include <limits>

namespace stats {

namespace {

constexpr int degreesWidth = 2;
constexpr int numberWidth = 7;

constexpr QLatin1String afterDegrees("          ");
constexpr QLatin1String afterSum("     ");
constexpr QLatin1String beforeStatistic("      ");

QString rule()
{
    return QString(75, QLatin1Char('-'));
}

/// The digits down to the first decimal that is not shown: rounding looks at none beyond.
base::Decimal decimalOf(const boost::multiprecision::cpp_rational& value)
{
    constexpr int decimals = base::tableDecimals + 1;
    const boost::multiprecision::cpp_int units = abs(numerator(value)) *
                                                 pow(boost::multiprecision::cpp_int(10), decimals) /
                                                 denominator(value);
    base::Decimal decimal;
    decimal.negative = value < 0;
    decimal.digits = units.str();
    if (units != 0)
        decimal.exponent = static_cast<int>(decimal.digits.size()) - 1 - decimals;
    return decimal;
}

/// Right-justified; a number that is too wide pushes the rest of its line.
QString justified(const QString& number)
{
    return number.rightJustified(numberWidth);
}

/// Rounded once, from the exact value.
QString number(const ExactNumber& value)
{
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    return justified(value ? base::tableText(decimalOf(*value)) : base::tableText(notANumber));
}

/// A label and the columns that every line of the table has.
QString lineStart(const QString& label, std::int64_t degrees, const ExactNumber& sumOfSquares)
{
    return label + QString::number(degrees).rightJustified(degreesWidth) + afterDegrees +
           number(sumOfSquares);
}

QString sourceLine(const QString& label, const VarianceSource& source,
                   const LatinSquareAnova& anova)
{
    return lineStart(label, anova.sourceDegrees, source.sumOfSquares) + afterSum +
           number(source.meanSquare) + beforeStatistic + number(source.statistic) +
           beforeStatistic + justified(base::tableText(anova.criticalValue)) +
           (source.significant ? QStringLiteral(" *") : QString());
}

QStringList table(const LatinSquareAnova& anova, double alpha)
{
    return {
        QStringLiteral(
            "Fuentes de    Grados de     Suma de    Varianzas    Estadística     Valor "),
        QStringLiteral("Variación     Libertad     Cuadrados                     F         F(") +
            base::generalText(alpha) + QLatin1Char(')'),
        rule(),
        sourceLine(QStringLiteral("Filas           "), anova.rows, anova),
        sourceLine(QStringLiteral("Columnas        "), anova.columns, anova),
        sourceLine(QStringLiteral("Tratamientos    "), anova.treatments, anova),
        lineStart(QStringLiteral("Error           "), anova.errorDegrees, anova.errorSumOfSquares) +
            afterSum + number(anova.errorMeanSquare),
        rule(),
        lineStart(QStringLiteral(" TOTAL          "), anova.totalDegrees, anova.totalSumOfSquares),
        QString(),
        QStringLiteral(" *  Fuente de Variación determinante por ser su Estadística mayor que el "
                       "valor crítico"),
    };
}

} // namespace

QStringList FTest(const TMatrix& observations, int n, double alpha)
{
    const LatinSquareAnova anova = latinSquareAnova(observations, n, alpha);
    QStringList lines{
        QStringLiteral(
            "                 Análisis de Covarianza (Enfoque Clásico)                 "),
        QStringLiteral(" "),
    };
    if (anova.errorIsZero) {
        lines << QStringLiteral(
            "**** EXCEPCION : La varianza del error es 0, no se pueden calcular "
            "estadísticas. La hipótesis se rechaza con alpha = 0");
        return lines;
    }
    return lines + table(anova, alpha);
}

} // namespace stats
