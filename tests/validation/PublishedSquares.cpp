// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"
#include "stats/numbers/LatinSquareAnova.h"
#include "stats/numbers/Squares.h"
#include "validation/Sections.h"

#include <cmath>

namespace validation {

namespace {

/// A square of a book, its rows and columns in an order that makes the treatments cyclic, and the
/// analysis that the book prints.
struct PublishedSquare {
    QString name;
    QString source;
    stats::TMatrix square;
    int decimals = 0;  ///< of the printed sums of squares
    int fDecimals = 0; ///< of the printed F
    double rows = 0.0;
    double columns = 0.0;
    double treatments = 0.0;
    double error = 0.0;
    double total = 0.0;
    double f = 0.0; ///< of the treatments
};

QString montgomery()
{
    return QStringLiteral("D. C. Montgomery, *Design and Analysis of Experiments*");
}

std::vector<PublishedSquare> publishedSquares()
{
    return {
        {QStringLiteral("propelente de cohete, 5 × 5"),
         montgomery() + QStringLiteral(", ejemplo del cuadrado latino"), propellantSquare(), 0, 2,
         68, 150, 330, 128, 676, 7.73},
        {QStringLiteral("métodos de montaje, 4 × 4"),
         montgomery() + QStringLiteral(", ejercicio del mismo capítulo"), assemblySquare(), 1, 2,
         18.5, 51.5, 72.5, 10.5, 153, 13.81},
        {QStringLiteral("emisiones de automóviles, 4 × 4"),
         QStringLiteral("G. E. P. Box, W. G. Hunter y J. S. Hunter, *Statistics for "
                        "Experimenters*, 1978"),
         squareOf({{21, 26, 20, 25}, {15, 13, 16, 16}, {23, 26, 20, 27}, {17, 15, 20, 20}}), 0, 1,
         216, 24, 40, 16, 296, 5.0},
        {QStringLiteral("el mismo estudio con otros datos, 4 × 4"),
         QStringLiteral("el mismo libro, segunda edición, 2005"),
         squareOf({{19, 24, 23, 26}, {15, 14, 15, 16}, {23, 24, 19, 30}, {19, 18, 19, 16}}), 0, 1,
         216, 24, 40, 32, 312, 2.5},
        {QStringLiteral("rendimiento de maíz, 4 × 4"),
         QStringLiteral("K. A. Gomez y A. A. Gomez, *Statistical Procedures for Agricultural "
                        "Research*, 1984"),
         squareOf({{1.640, 1.425, 1.210, 1.345},
                   {1.475, 1.400, 1.185, 1.290},
                   {1.565, 1.655, 1.290, 0.660},
                   {1.670, 1.665, 0.710, 1.180}}),
         6, 2, 0.030154, 0.827342, 0.426842, 0.129585, 1.413923, 6.59},
        {QStringLiteral("desgaste de llantas, 4 × 4"),
         QStringLiteral("C. R. Hicks, *Fundamental Concepts in the Design of Experiments*"),
         squareOf({{12, 11, 13, 8}, {13, 14, 13, 9}, {17, 14, 10, 9}, {14, 12, 11, 13}}), 2, 1,
         6.19, 38.69, 30.69, 5.37, 80.94, 11.4},
        {QStringLiteral("bioequivalencia, 3 × 3"),
         QStringLiteral("J. Lawson, *Design and Analysis of Experiments with R*, 2015"),
         squareOf({{1186, 642, 1183}, {1135, 1305, 984}, {873, 1426, 1540}}), 0, 4, 114264, 45196,
         15000, 442158, 616618, 0.0339},
    };
}

} // namespace

void writePublishedSquares(Page& page)
{
    page.heading(QStringLiteral("Cuadrados publicados"));
    page.paragraph(QStringLiteral(
        "Sumas de cuadrados y F de los tratamientos como las imprime cada libro y, debajo, como "
        "las "
        "calcula el programa, redondeadas a las mismas cifras. Los cuadrados están en la "
        "disposición "
        "cíclica; donde el libro los da en otro orden se cambiaron de lugar filas y columnas "
        "enteras. Una diferencia de una unidad de la última cifra es del redondeo del libro, que "
        "obtiene una suma restando otras ya redondeadas."));
    QList<QStringList> rows;
    QStringList sources;
    for (const PublishedSquare& book : publishedSquares()) {
        const auto anova = stats::latinSquareAnova(book.square, book.square.NrOfColumns(), 0.05);
        QStringList printed{book.name, QStringLiteral("libro")};
        QStringList computed{QString(), QStringLiteral("programa")};
        const auto compare = [&](const stats::ExactNumber& exact, double published, int decimals) {
            const auto value = exact->convert_to<double>();
            const double unit = std::pow(10.0, -decimals);
            page.atMost(book.name, std::abs(value - published), 1.01 * unit);
            printed << base::fixedText(published, decimals);
            computed << base::fixedText(value, decimals);
        };
        compare(anova.rows.sumOfSquares, book.rows, book.decimals);
        compare(anova.columns.sumOfSquares, book.columns, book.decimals);
        compare(anova.treatments.sumOfSquares, book.treatments, book.decimals);
        compare(anova.errorSumOfSquares, book.error, book.decimals);
        compare(anova.totalSumOfSquares, book.total, book.decimals);
        compare(anova.treatments.statistic, book.f, book.fDecimals);
        rows << printed << computed;
        sources << QStringLiteral("- %1: %2.").arg(book.name, book.source);
    }
    page.table({QStringLiteral("cuadrado"), QString(), QStringLiteral("filas"),
                QStringLiteral("columnas"), QStringLiteral("tratamientos"), QStringLiteral("error"),
                QStringLiteral("total"), QStringLiteral("F")},
               rows);
    page.paragraph(sources.join(QLatin1Char('\n')));
}

} // namespace validation
