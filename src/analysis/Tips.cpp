// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Tips.h"

namespace analysis {

namespace {

/// The second line, and the start of the third, of the approaches that look at the order only.
QString whatOrderingAssumes()
{
    return QStringLiteral(
        "\nNo supone errores normales, pero sí errores de igual dispersión y forma"
        "\nNo quita filas ni columnas; ");
}

/// The second line of every test of those approaches.
QString equalErrorsAndBlocks()
{
    return QStringLiteral("\nSupone errores independientes, de igual dispersión y forma, y que "
                          "filas y columnas no difieran\n");
}

} // namespace

QString tipOf(stats::Approach approach)
{
    switch (approach) {
    case stats::Approach::Classical:
        return QStringLiteral("Compara los promedios de los tratamientos con el error\n"
                              "Quita filas y columnas; supone errores normales");
    case stats::Approach::Ranks:
        return QStringLiteral("Compara el orden de las observaciones, no sus valores") +
               whatOrderingAssumes() + QStringLiteral("los empates estorban");
    case stats::Approach::Sequences:
        break;
    }
    return QStringLiteral("Ordena las observaciones y mira las rachas de cada tratamiento") +
           whatOrderingAssumes() + QStringLiteral("exacto en orden 3");
}

QString tipOf(stats::TestKind test)
{
    switch (test) {
    case stats::TestKind::F:
        return QStringLiteral(
            "Pregunta si los promedios de los tratamientos varían más de lo que deja el error\n"
            "Supone efectos que se suman y errores normales, independientes, de igual varianza\n"
            "Quita filas y columnas, y sirve para decidir en todos los órdenes");
    case stats::TestKind::Zimmerman:
        return QStringLiteral("Pregunta si en cada fila y en cada columna caen los mismos "
                              "tratamientos en los primeros lugares") +
               equalErrorsAndBlocks() +
               QStringLiteral("Con los niveles usuales acepta siempre: describe, no decide");
    case stats::TestKind::Bennett:
        return QStringLiteral("Pregunta si, de menor a mayor, unos tratamientos quedan adelante "
                              "y otros atrás") +
               equalErrorsAndBlocks() +
               QStringLiteral("Con observaciones iguales (empates) rechaza de más: no la use");
    case stats::TestKind::C:
        return QStringLiteral("Pregunta si los tratamientos forman rachas largas en las "
                              "observaciones ordenadas") +
               equalErrorsAndBlocks() +
               QStringLiteral("Exacta en orden 3; de orden 4 a 6 rechaza cerca de 40 de cada "
                              "100 cuadrados sin ningún efecto");
    case stats::TestKind::M:
        break;
    }
    return QStringLiteral("Pregunta lo mismo que C: si las rachas varían más entre los "
                          "tratamientos que dentro de ellos") +
           equalErrorsAndBlocks() +
           QStringLiteral("Exacta en orden 3; de orden 4 a 6 acepta siempre con los niveles "
                          "usuales");
}

QString tipOfLevel()
{
    return QStringLiteral(
        "Alfa es lo que al nivel le falta para 100 %: con 95 %, 5 de cada 100\n"
        "Así de a menudo promete rechazar la prueba cuando los tratamientos no difieren\n"
        "Elija el nivel antes de ver los datos. No use niveles menores de 50 % con F, Zimmerman ni "
        "M");
}

} // namespace analysis
