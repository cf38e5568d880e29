// SPDX-License-Identifier: GPL-3.0-or-later

// Measures the program's numbers against other means and writes docs/validacion.md:
//   validation squares FILE            the squares that R is to analyse
//   validation document RESULTS VERSION FILE
//                                      the document, from full runs and the results of R
//   validation check DOCUMENT          shorter runs, without R, against the document's figures
// Ends with 1, after saying which on standard error, when a figure is outside its range.

#include "base/SafeFile.h"
#include "validation/RejectionShares.h"
#include "validation/Sections.h"

#include <boost/version.hpp>
#include <gsl/gsl_version.h>

#include <QDate>
#include <QLocale>

#include <cstdio>
#include <initializer_list>

namespace {

using validation::Page;

struct Extent {
    int squares;        ///< of noise, of each order
    int studies;        ///< of each order and level
    int runsOfC;        ///< of one square
    std::uint32_t seed; ///< of the noise
};

constexpr Extent whole{100000, 100, 1000, 2026};
constexpr Extent brief{3000, 20, 200, 7};

void complain(const QStringList& problems)
{
    for (const QString& problem : problems)
        std::fputs((problem + QLatin1Char('\n')).toUtf8().constData(), stderr);
}

/// The sections that do not draw noise. Without R's results they leave its columns out.
void writeNumbers(Page& page, const std::optional<validation::AnovasOfR>& ofR)
{
    validation::writePublishedSquares(page);
    validation::writeRandomSquares(page, ofR);
    validation::writeStiffSquares(page, ofR);
    validation::writeSequences(page);
    validation::writeDistributions(page);
}

QString compiler()
{
#if defined(__clang__)
    return QStringLiteral("clang " __clang_version__).trimmed();
#else
    return QStringLiteral("gcc " __VERSION__);
#endif
}

void writeStart(Page& page, const QString& versionOfR)
{
    page.paragraph(QStringLiteral("# Validación"));
    page.paragraph(QStringLiteral(
        "Con qué se comprobaron los números de Cuadrado Latino. Este documento lo escribe entero "
        "`tools/validation`, que instala lo que falta (también R), compila, corre cada comparación "
        "y simulación y tarda unos minutos; `./test` corre una forma breve, sin R, y falla si una "
        "cifra sale de su intervalo o un porcentaje se aparta de los de aquí más de lo que explica "
        "el azar."));
    page.paragraph(
        QStringLiteral("%1. %2, Boost %3, GSL %4, %5.")
            .arg(QDate::currentDate().toString(Qt::ISODate), compiler(),
                 QStringLiteral(BOOST_LIB_VERSION).replace(QLatin1Char('_'), QLatin1Char('.')),
                 QStringLiteral(GSL_VERSION), versionOfR));
}

int writeDocument(const QString& resultsOfR, const QString& versionOfR, const QString& fileName)
{
    const auto ofR = validation::readAnovasOfR(resultsOfR);
    if (!ofR) {
        complain({QStringLiteral("no hay resultados de R en ") + resultsOfR});
        return 1;
    }
    Page page;
    writeStart(page, versionOfR);
    writeNumbers(page, ofR);
    validation::writeShares(page, validation::sharesOfTheAnalysis(whole.squares, whole.seed),
                            validation::sharesOfTheStudy(whole.studies, whole.seed), whole.squares,
                            whole.studies);
    validation::writeSpreadOfC(page, whole.runsOfC);
    complain(page.failures());
    if (const auto reason = base::writeFile(fileName, page.text().trimmed().toUtf8() + '\n')) {
        complain({*reason});
        return 1;
    }
    return page.failures().isEmpty() ? 0 : 1;
}

int check(const QString& document)
{
    const auto bytes = base::readFile(document);
    if (!bytes) {
        complain({QStringLiteral("no se pudo leer ") + document});
        return 1;
    }
    Page page;
    writeNumbers(page, std::nullopt);
    validation::writeSpreadOfC(page, brief.runsOfC);
    const auto documented = validation::readShares(QString::fromUtf8(*bytes));
    const QStringList problems =
        page.failures() +
        differences(validation::sharesOfTheAnalysis(brief.squares, brief.seed), documented) +
        differences(validation::sharesOfTheStudy(brief.studies, brief.seed), documented);
    complain(problems);
    return problems.isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    QStringList words;
    for (int k = 1; k < argc; ++k)
        words << QString::fromLocal8Bit(argv[k]);
    if (words.size() == 2 && words[0] == QStringLiteral("squares")) {
        const auto reason = base::writeFile(words[1], validation::squaresForR());
        complain(reason ? QStringList{*reason} : QStringList());
        return reason ? 1 : 0;
    }
    if (words.size() == 4 && words[0] == QStringLiteral("document"))
        return writeDocument(words[1], words[2], words[3]);
    if (words.size() == 2 && words[0] == QStringLiteral("check"))
        return check(words[1]);
    std::fputs("validation squares FILE | document R-RESULTS R-VERSION FILE | check DOCUMENT\n",
               stderr);
    return 2;
}
