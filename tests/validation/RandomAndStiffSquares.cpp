// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"
#include "stats/numbers/LatinSquareAnova.h"
#include "stats/numbers/Treatments.h"
#include "validation/Sections.h"

#include <algorithm>
#include <cmath>

namespace validation {

namespace {

using Fraction = boost::multiprecision::cpp_rational;
using ExactNumbers = std::array<Fraction, 7>;

/// What NIST counts at most: the digits that every double has.
constexpr double allDigits = 15.0;

ExactNumbers exactNumbers(const TypedSquare& square)
{
    const ExactAnova exact(square);
    const Fraction f = Fraction(square.n - 2) / exact.error;
    return {exact.rows,     exact.columns,     exact.treatments,    exact.error,
            f * exact.rows, f * exact.columns, f * exact.treatments};
}

/// The program's numbers, each rounded once, to a double.
DoubleAnova anovaOfTheProgram(const TypedSquare& square)
{
    const stats::LatinSquareAnova anova = stats::latinSquareAnova(square.doubles, square.n, 0.05);
    const auto rounded = [](const stats::ExactNumber& number) {
        return number ? number->convert_to<double>() : std::nan("");
    };
    return {{rounded(anova.rows.sumOfSquares), rounded(anova.columns.sumOfSquares),
             rounded(anova.treatments.sumOfSquares), rounded(anova.errorSumOfSquares),
             rounded(anova.rows.statistic), rounded(anova.columns.statistic),
             rounded(anova.treatments.statistic)}};
}

/// The textbook's formulas, (sum of squares) - (correction term), step by step in doubles.
DoubleAnova plainAnova(const TypedSquare& square)
{
    const int n = square.n;
    std::array<std::vector<double>, 3> totals;
    totals.fill(std::vector<double>(static_cast<std::size_t>(n)));
    double all = 0.0;
    double squares = 0.0;
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column) {
            const double x = square.doubles.Elem(column, row);
            totals[0][static_cast<std::size_t>(row - 1)] += x;
            totals[1][static_cast<std::size_t>(column - 1)] += x;
            totals[2][static_cast<std::size_t>(stats::treatmentOf(column, row, n) - 1)] += x;
            all += x;
            squares += x * x;
        }
    }
    const double correction = all * all / (n * n);
    DoubleAnova anova;
    double error = squares - correction;
    for (std::size_t source = 0; source < totals.size(); ++source) {
        double sum = 0.0;
        for (const double total : totals[source])
            sum += total * total;
        anova.numbers[source] = sum / n - correction;
        error -= anova.numbers[source];
    }
    anova.numbers[3] = error;
    const double errorMean = error / ((n - 1) * (n - 2));
    for (std::size_t source = 0; source < totals.size(); ++source)
        anova.numbers[source + 4] = anova.numbers[source] / (n - 1) / errorMean;
    return anova;
}

/// |value - exact| / |exact|; the value itself where the exact one is 0.
double relativeError(double value, const Fraction& exact)
{
    if (!std::isfinite(value))
        return 1.0;
    if (exact == 0)
        return std::abs(value);
    return Fraction(abs((Fraction(value) - exact) / exact)).convert_to<double>();
}

/// The right digits of the worst of an analysis' numbers, from 0 to allDigits.
double rightDigits(const DoubleAnova& anova, const ExactNumbers& exact)
{
    double digits = allDigits;
    for (std::size_t k = 0; k < exact.size(); ++k) {
        const double error = relativeError(anova.numbers[k], exact[k]);
        if (error > 0.0)
            digits = std::min(digits, -std::log10(error));
    }
    return std::max(digits, 0.0);
}

/// The right digits of many analyses: "fewest (median)".
class Digits {
public:
    void add(const DoubleAnova& anova, const ExactNumbers& exact)
    {
        m_digits.push_back(rightDigits(anova, exact));
    }
    double fewest() const { return *std::min_element(m_digits.begin(), m_digits.end()); }
    QString text() const
    {
        std::vector<double> sorted = m_digits;
        std::sort(sorted.begin(), sorted.end());
        return QStringLiteral("%1 (%2)").arg(base::fixedText(fewest(), 1),
                                             base::fixedText(sorted.at(sorted.size() / 2), 1));
    }

private:
    std::vector<double> m_digits;
};

/// The largest relative error of each kind of number among many analyses.
struct LargestErrors {
    double ofSums = 0.0;
    double ofF = 0.0;

    void add(const DoubleAnova& anova, const ExactNumbers& exact)
    {
        for (std::size_t k = 0; k < exact.size(); ++k) {
            double& largest = k < 4 ? ofSums : ofF;
            largest = std::max(largest, relativeError(anova.numbers[k], exact[k]));
        }
    }
};

} // namespace

void writeRandomSquares(Page& page, const std::optional<AnovasOfR>& ofR)
{
    const std::vector<NamedSquare> squares = randomSquares();
    LargestErrors program;
    LargestErrors plain;
    LargestErrors r;
    for (const NamedSquare& named : squares) {
        const ExactNumbers exact = exactNumbers(named.square);
        program.add(anovaOfTheProgram(named.square), exact);
        plain.add(plainAnova(named.square), exact);
        if (ofR)
            r.add(ofR->at(named.name), exact);
    }
    page.heading(QStringLiteral("Cuadrados al azar y R"));
    page.paragraph(
        QStringLiteral("%1 cuadrados de orden 3 a 6 con cero, uno o dos decimales. Mayor error "
                       "relativo de las sumas de cuadrados (filas, columnas, tratamientos, error) "
                       "y de las tres F, frente a fracciones exactas de los decimales escritos. "
                       "Los números del programa son fracciones exactas; aquí están redondeados "
                       "al número de 53 bits más próximo, cuyo error no pasa de 1,2E-16.")
            .arg(squares.size()));
    constexpr double halfUnit = 1.12e-16; // 2^-53 = 1.11e-16
    constexpr double ofDoubles = 1e-9;
    QList<QStringList> rows{
        {QStringLiteral("programa"),
         page.atMost(QStringLiteral("sumas de cuadrados"), program.ofSums, halfUnit),
         page.atMost(QStringLiteral("F"), program.ofF, halfUnit)},
        {QStringLiteral("fórmulas en dobles"),
         page.atMost(QStringLiteral("sumas en dobles"), plain.ofSums, ofDoubles),
         page.atMost(QStringLiteral("F en dobles"), plain.ofF, ofDoubles)}};
    if (ofR) {
        rows.insert(1, {QStringLiteral("R, `aov`"),
                        page.atMost(QStringLiteral("sumas de R"), r.ofSums, ofDoubles),
                        page.atMost(QStringLiteral("F de R"), r.ofF, ofDoubles)});
    }
    page.table({QString(), QStringLiteral("sumas de cuadrados"), QStringLiteral("F")}, rows);
}

void writeStiffSquares(Page& page, const std::optional<AnovasOfR>& ofR)
{
    page.heading(QStringLiteral("Cuadrados con cifras constantes"));
    page.paragraph(QStringLiteral(
        "Observaciones con las mismas primeras cifras y un decimal que varía, como los conjuntos "
        "SmLs de NIST: con 13 cifras constantes son valores como 1000000000000,4. Cifras correctas "
        "del peor de los siete números de la tabla (cuatro sumas de cuadrados y tres F), de 15 que "
        "se cuentan: el peor de 100 cuadrados de orden 3 a 6 y, entre paréntesis, la mediana."));
    QStringList header{QStringLiteral("cifras constantes"), QStringLiteral("programa"),
                       QStringLiteral("fórmulas en dobles")};
    if (ofR)
        header.insert(2, QStringLiteral("R, `aov`"));
    QList<QStringList> rows;
    for (const StiffSquares& stiff : stiffSquares()) {
        Digits program;
        Digits plain;
        Digits r;
        for (const NamedSquare& named : stiff.squares) {
            const ExactNumbers exact = exactNumbers(named.square);
            program.add(anovaOfTheProgram(named.square), exact);
            plain.add(plainAnova(named.square), exact);
            if (ofR)
                r.add(ofR->at(named.name), exact);
        }
        page.atLeast(QStringLiteral("cifras con %1 constantes").arg(stiff.constantDigits),
                     program.fewest(), allDigits, 1);
        QStringList row{QString::number(stiff.constantDigits), program.text(), plain.text()};
        if (ofR)
            row.insert(2, r.text());
        rows << row;
    }
    page.table(header, rows);
}

} // namespace validation
