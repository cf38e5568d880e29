// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/Aleatorio.h"
#include "stats/numbers/STATIS.h"
#include "validation/Sections.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/normal.hpp>
#include <gsl/gsl_cdf.h>
#include <gsl/gsl_rng.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace validation {

namespace {

/// The larger error; what is no number stays, and no report takes it.
double larger(double worst, double error)
{
    return std::isnan(error) ? error : std::max(worst, error);
}

/// The largest errors beside the two references.
struct Errors {
    double besideBoost = 0.0;
    double besideGsl = 0.0;
    double ofQuantile = 0.0; ///< relative, of the point itself

    void add(double value, double boost, double gsl)
    {
        besideBoost = larger(besideBoost, std::abs(value - boost));
        besideGsl = larger(besideGsl, std::abs(value - gsl));
    }
    void addPoint(double point, double reference)
    {
        ofQuantile = larger(ofQuantile, std::abs(point / reference - 1.0));
    }
};

/// The degrees of freedom of all tests on squares of order 3 to 6.
std::vector<std::pair<int, int>> fDegrees()
{
    std::vector<std::pair<int, int>> all;
    for (int n = 3; n <= 6; ++n) {
        all.emplace_back(n - 1, (n - 1) * (n - 2));
        all.emplace_back(n - 1, n * (n - 1));
    }
    return all;
}

Errors errorsOfNormalCdf()
{
    Errors errors;
    for (double x = -8.0; x <= 8.0; x += 0.001)
        errors.add(stats::NormalCdf(x), boost::math::cdf(boost::math::normal(), x),
                   gsl_cdf_ugaussian_P(x));
    return errors;
}

Errors errorsOfChiSquareCdf()
{
    Errors errors;
    for (int df = 2; df <= 5; ++df) {
        for (double x = 0.001; x < 200.0; x *= 1.01)
            errors.add(stats::ChiSquareCdf(df, x),
                       boost::math::cdf(boost::math::chi_squared(df), x), gsl_cdf_chisq_P(x, df));
    }
    return errors;
}

Errors errorsOfFCdf()
{
    Errors errors;
    for (const auto& [df1, df2] : fDegrees()) {
        for (double x = 0.001; x < 5000.0; x *= 1.01)
            errors.add(stats::FCdf(df1, df2, x),
                       boost::math::cdf(boost::math::fisher_f(df1, df2), x),
                       gsl_cdf_fdist_P(x, df1, df2));
    }
    return errors;
}

/// The levels of the bar from `first` to 99 %.
template <typename Add>
void forLevels(int first, const Add& add)
{
    for (int level = first; level <= 99; ++level)
        add(level / 100.0);
}

/// Of quantiles: the probability of the point that was found, beside the one asked for.
Errors errorsOfNormalQuantile()
{
    Errors errors;
    forLevels(1, [&](double p) {
        const boost::math::normal reference;
        const double z = stats::NormalQuantile(p);
        errors.besideBoost = larger(errors.besideBoost, std::abs(cdf(reference, z) - p));
        errors.besideGsl = larger(errors.besideGsl, std::abs(gsl_cdf_ugaussian_P(z) - p));
        if (p != 0.5)
            errors.addPoint(z, quantile(reference, p));
    });
    return errors;
}

Errors errorsOfChiSquareQuantile()
{
    Errors errors;
    for (int df = 2; df <= 5; ++df) {
        forLevels(1, [&](double p) {
            const boost::math::chi_squared reference(df);
            const double x = stats::ChiSquareQuantile(df, p);
            errors.besideBoost = larger(errors.besideBoost, std::abs(cdf(reference, x) - p));
            errors.besideGsl = larger(errors.besideGsl, std::abs(gsl_cdf_chisq_P(x, df) - p));
            errors.addPoint(x, quantile(reference, p));
        });
    }
    return errors;
}

/// From 50 % on; below, the routine follows another rule.
Errors errorsOfFQuantile(int lastLevel)
{
    Errors errors;
    for (const auto& [df1, df2] : fDegrees()) {
        forLevels(50, [&, df1 = df1, df2 = df2](double p) {
            if (p > lastLevel / 100.0)
                return;
            const boost::math::fisher_f reference(df1, df2);
            const double x = stats::FQuantile(p, df1, df2);
            errors.besideBoost = larger(errors.besideBoost, std::abs(cdf(reference, x) - p));
            errors.besideGsl = larger(errors.besideGsl, std::abs(gsl_cdf_fdist_P(x, df1, df2) - p));
            errors.addPoint(x, quantile(reference, p));
        });
    }
    return errors;
}

int differentNumbers(int numbers)
{
    const std::unique_ptr<gsl_rng, void (*)(gsl_rng*)> reference(
        gsl_rng_alloc(gsl_rng_mt19937_1998), gsl_rng_free);
    gsl_rng_set(reference.get(), power::Aleatorio::defaultSeed);
    power::Aleatorio generator;
    int different = 0;
    for (int k = 0; k < numbers; ++k) {
        const auto expected = static_cast<std::uint32_t>(gsl_rng_get(reference.get()));
        different += generator.NextUniform() == power::Aleatorio::uniformOf(expected) ? 0 : 1;
    }
    return different;
}

} // namespace

void writeDistributions(Page& page)
{
    constexpr double cdfBound = 3e-9;
    constexpr double quantileBound = 1.2e-8;
    QList<QStringList> rows;
    const auto write = [&](const QString& name, const Errors& errors, double bound,
                           double pointBound) {
        rows << QStringList{
            name, page.atMost(name + QStringLiteral(", Boost"), errors.besideBoost, bound),
            page.atMost(name + QStringLiteral(", GSL"), errors.besideGsl, bound),
            pointBound > 0.0
                ? page.atMost(name + QStringLiteral(", valor"), errors.ofQuantile, pointBound)
                : QString()};
    };
    write(QStringLiteral("normal, acumulada, −8 a 8"), errorsOfNormalCdf(), cdfBound, 0.0);
    write(QStringLiteral("chi-cuadrado, acumulada, 2 a 5 grados"), errorsOfChiSquareCdf(), cdfBound,
          0.0);
    write(QStringLiteral("F, acumulada, grados de las pruebas"), errorsOfFCdf(), cdfBound, 0.0);
    write(QStringLiteral("normal, cuantil, 1 a 99 %"), errorsOfNormalQuantile(), quantileBound,
          2e-6);
    write(QStringLiteral("chi-cuadrado, cuantil, 1 a 99 %"), errorsOfChiSquareQuantile(),
          quantileBound, 2e-6);
    write(QStringLiteral("F, cuantil, 50 a 95 %"), errorsOfFQuantile(95), quantileBound, 5e-7);
    write(QStringLiteral("F, cuantil, 50 a 99 %"), errorsOfFQuantile(99), quantileBound, 2e-6);

    page.heading(QStringLiteral("Distribuciones, cuantiles y generador"));
    page.paragraph(QStringLiteral(
        "Mayor error de las acumuladas, y de los cuantiles la mayor diferencia entre la "
        "probabilidad "
        "pedida y la del punto hallado; en la última columna, el mayor error relativo del punto "
        "mismo. La búsqueda de un cuantil termina cuando su probabilidad está a menos de 1E-8 de "
        "la "
        "pedida: los valores críticos son correctos hasta ahí y no hasta la última cifra que se "
        "imprime. Por debajo de 50 % los valores críticos de F siguen otra regla (el recíproco del "
        "punto de 1 − p con los mismos grados de libertad) y no son cuantiles."));
    page.table({QString(), QStringLiteral("frente a Boost.Math"), QStringLiteral("frente a GSL"),
                QStringLiteral("error relativo del punto")},
               rows);
    constexpr int numbers = 1000000;
    page.paragraph(QStringLiteral("El generador del estudio de potencia (MT19937 de 1998, semilla "
                                  "4357) y el de GSL: %1 números, %2 distintos.")
                       .arg(numbers)
                       .arg(page.exactly(QStringLiteral("números del generador"),
                                         differentNumbers(numbers), 0)));
}

} // namespace validation
