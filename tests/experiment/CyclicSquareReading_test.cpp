// SPDX-License-Identifier: GPL-3.0-or-later
// From a clipboard text to the cyclic layout.
#include "experiment/CyclicSquareReading.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

/// The assembly-method exercise in Montgomery, Design and Analysis of Experiments: order of
/// assembly in rows, operators in columns, methods A to D.
const char* const assembly = "C 10\tD 14\tA 7\tB 8\n"
                             "B 7\tC 18\tD 11\tA 8\n"
                             "A 5\tB 10\tC 11\tD 9\n"
                             "D 10\tA 10\tB 12\tC 14\n";

experiment::LatinSquare readSquare(const char* text)
{
    const auto outcome = experiment::readCyclicSquare(QString::fromUtf8(text));
    EXPECT_TRUE(outcome.value) << text << "\n" << outcome.reason.toStdString();
    return outcome.value.value_or(experiment::CyclicSquare()).square;
}

std::string refusalOfSquare(const char* text)
{
    const auto outcome = experiment::readCyclicSquare(QString::fromUtf8(text));
    EXPECT_FALSE(outcome.value) << text;
    return outcome.reason.toStdString();
}

struct SumsOfSquares {
    double rows = 0.0;
    double columns = 0.0;
    double treatments = 0.0;
    double total = 0.0;
};

/// By the cyclic layout alone, as the analysis of the square would take it.
SumsOfSquares sumsOfSquares(const experiment::LatinSquare& square)
{
    const int n = square.order();
    const double cells = static_cast<double>(n) * n;
    const double mean = std::accumulate(square.values.begin(), square.values.end(), 0.0) / cells;
    std::vector<double> rows(static_cast<std::size_t>(n));
    std::vector<double> columns = rows;
    std::vector<double> treatments = rows;
    SumsOfSquares sums;
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            const double deviation = square.values[square.place(column, row)] - mean;
            rows[static_cast<std::size_t>(row)] += deviation;
            columns[static_cast<std::size_t>(column)] += deviation;
            treatments[static_cast<std::size_t>((row + column) % n)] += deviation;
            sums.total += deviation * deviation;
        }
    }
    const auto sumOf = [n](const std::vector<double>& deviations) {
        return std::inner_product(deviations.begin(), deviations.end(), deviations.begin(), 0.0) /
               n;
    };
    sums.rows = sumOf(rows);
    sums.columns = sumOf(columns);
    sums.treatments = sumOf(treatments);
    return sums;
}

/// Sums of some sixteen terms of order 100: well within 1e-12 of a hundred.
constexpr double rounding = 1e-10;

void expectAssemblySums(const experiment::LatinSquare& square)
{
    // The published analysis: order 18.5, operators 51.5, methods 72.5, error 10.5, total 153.
    const SumsOfSquares sums = sumsOfSquares(square);
    EXPECT_NEAR(sums.rows, 18.5, rounding);
    EXPECT_NEAR(sums.columns, 51.5, rounding);
    EXPECT_NEAR(sums.treatments, 72.5, rounding);
    EXPECT_NEAR(sums.total, 153.0, rounding);
}

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

/// The assembly data as lines of four fields, the fields in any order.
QString assemblyList(const char* header, const std::vector<int>& order, QChar separator)
{
    const char* const cells[4][4] = {{"C 10", "D 14", "A 7", "B 8"},
                                     {"B 7", "C 18", "D 11", "A 8"},
                                     {"A 5", "B 10", "C 11", "D 9"},
                                     {"D 10", "A 10", "B 12", "C 14"}};
    QString text = QString::fromUtf8(header);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const QString cell = QString::fromLatin1(cells[row][column]);
            const QStringList fields = {
                QStringLiteral("o%1").arg(row + 1), QStringLiteral("p%1").arg(column + 1),
                cell.section(QLatin1Char(' '), 0, 0), cell.section(QLatin1Char(' '), 1, 1)};
            QStringList line;
            for (const int field : order)
                line += fields[field];
            text += line.join(separator) + QLatin1Char('\n');
        }
    }
    return text;
}

} // namespace

TEST(CyclicSquareReading, BringsTheAssemblySquareIntoTheCyclicLayout)
{
    const experiment::LatinSquare square = readSquare(assembly);
    expectAssemblySums(square);
    EXPECT_EQ(square.rows, list({"R-1", "R-2", "R-3", "R-4"})); // no row had to move
    EXPECT_EQ(square.columns, list({"C-3", "C-2", "C-1", "C-4"}));
    EXPECT_EQ(square.treatments, list({"A", "D", "C", "B"}));
    EXPECT_EQ(square.values,
              (std::vector<double>{7, 14, 10, 8, 11, 18, 7, 8, 11, 10, 5, 9, 12, 10, 10, 14}));
}

TEST(CyclicSquareReading, TellsWhetherRowsOrColumnsHadToMove)
{
    const auto moves = [](const char* text) {
        const auto read = experiment::readCyclicSquare(QString::fromUtf8(text)).value.value();
        return std::pair(read.rowsMoved, read.columnsMoved);
    };
    EXPECT_EQ(moves("A 1\tB 2\tC 3\nB 4\tC 5\tA 6\nC 7\tA 8\tB 9"), std::pair(false, false));
    EXPECT_EQ(moves(assembly), std::pair(false, true));
    // Rows 1, 2, 4, 3 of the cyclic square.
    EXPECT_EQ(moves("A 1\tB 1\tC 1\tD 1\nB 1\tC 1\tD 1\tA 1\nD 1\tA 1\tB 1\tC 1\n"
                    "C 1\tD 1\tA 1\tB 1"),
              std::pair(true, false));
}

TEST(CyclicSquareReading, ReadsTheOtherFormsOfASquare)
{
    const char* const texts[] = {
        "C10;D14;A7;B8\r\nB7;C18;D11;A8\r\nA5;B10;C11;D9\r\nD10;A10;B12;C14",
        "C10 D14 A7 B8\nB7 C18 D11 A8\nA5 B10 C11 D9\nD10 A10 B12 C14\n",
        "10 C\t14 D\t7 A\t8 B\n7 B\t18 C\t11 D\t8 A\n5 A\t10 B\t11 C\t9 D\n10 D\t10 A\t12 B\t14 "
        "C\n",
        "10C\t14D\t7A\t8B\n7B\t18C\t11D\t8A\n5A\t10B\t11C\t9D\n10D\t10A\t12B\t14C\n",
        "3 10\t4 14\t1 7\t2 8\n2 7\t3 18\t4 11\t1 8\n1 5\t2 10\t3 11\t4 9\n4 10\t1 10\t2 12\t3 14",
        "Met C  10;Met D 14;Met A 7;Met B 8\nMet B 7;Met C 18;Met D 11;Met A 8\n"
        "Met A 5;Met B 10;Met C 11;Met D 9\nMet D 10;Met A 10;Met B 12;Met C 14",
        "C 10,0\tD 14.0\tA 7\tB 8\nB 7\tC 1.8e1\tD 11\tA 8\nA 5\tB 10\tC 11\tD 9\nD 10\tA 10\tB "
        "12\tC 14"};
    for (const char* text : texts)
        expectAssemblySums(readSquare(text));
}

TEST(CyclicSquareReading, TakesTheNamesOfRowsAndColumns)
{
    const QStringList rows = list({"orden 1", "orden 2", "orden 3", "orden 4"});
    const QStringList columns = list({"Luz", "Pía", "Ana", "Eva"}); // as the columns were arranged
    const char* const lines[] = {"C 10\tD 14\tA 7\tB 8", "B 7\tC 18\tD 11\tA 8",
                                 "A 5\tB 10\tC 11\tD 9", "D 10\tA 10\tB 12\tC 14"};
    for (const char* header : {"\tAna\tPía\tLuz\tEva\n", "Ana\tPía\tLuz\tEva\n",
                               "Orden\\Operario\tAna\tPía\tLuz\tEva\n"}) {
        QString text = QString::fromUtf8(header);
        for (int i = 0; i < 4; ++i)
            text += rows[i] + QLatin1Char('\t') + QString::fromLatin1(lines[i]) + QLatin1Char('\n');
        const experiment::LatinSquare square = readSquare(text.toUtf8().constData());
        expectAssemblySums(square);
        EXPECT_EQ(square.rows, rows);
        EXPECT_EQ(square.columns, columns);
    }

    QString onlyColumns = QStringLiteral("Ana\tPía\tLuz\tEva\n");
    QString onlyRows;
    for (int i = 0; i < 4; ++i) {
        onlyColumns += QString::fromLatin1(lines[i]) + QLatin1Char('\n');
        onlyRows += rows[i] + QLatin1Char('\t') + QString::fromLatin1(lines[i]) + QLatin1Char('\n');
    }
    EXPECT_EQ(readSquare(onlyColumns.toUtf8().constData()).columns, columns);
    EXPECT_EQ(readSquare(onlyColumns.toUtf8().constData()).rows,
              list({"R-1", "R-2", "R-3", "R-4"}));
    EXPECT_EQ(readSquare(onlyRows.toUtf8().constData()).rows, rows);
    EXPECT_EQ(readSquare(onlyRows.toUtf8().constData()).columns,
              list({"C-3", "C-2", "C-1", "C-4"}));
}

TEST(CyclicSquareReading, NamesThatLookLikeCellsAreStillNames)
{
    const experiment::LatinSquare square =
        readSquare("X1\tC1\tC2\tC3\nF1\tA 1\tB 2\tC 3\nF2\tB 4\tC 5\tA 6\n"
                   "F3\tC 7\tA 8\tB 9\n");
    EXPECT_EQ(square.rows, list({"F1", "F2", "F3"}));
    EXPECT_EQ(square.columns, list({"C1", "C2", "C3"}));
    EXPECT_EQ(square.values, (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(CyclicSquareReading, ReadsListsOfObservationsWithAndWithoutAHeader)
{
    const std::vector<int> usual = {0, 1, 2, 3};
    for (const QChar separator : {QLatin1Char('\t'), QLatin1Char(';'), QLatin1Char(' ')}) {
        const QString text = assemblyList("", usual, separator);
        const experiment::LatinSquare square = readSquare(text.toUtf8().constData());
        expectAssemblySums(square);
        EXPECT_EQ(square.rows, list({"o1", "o2", "o3", "o4"}));
        EXPECT_EQ(square.columns, list({"p3", "p2", "p1", "p4"}));
        EXPECT_EQ(square.treatments, list({"A", "D", "C", "B"}));
    }
    for (const char* header : {"Orden;Operario;Método;Tiempo\n", "Fila;Columna;Tratamiento;Dato\n",
                               "FILA;columna;Trat;observación\n"})
        expectAssemblySums(
            readSquare(assemblyList(header, usual, QLatin1Char(';')).toUtf8().constData()));
}

TEST(CyclicSquareReading, AHeaderMayNameTheFieldsInAnotherOrder)
{
    const struct {
        const char* header;
        std::vector<int> order;
    } cases[] = {{"Observación;Tratamiento;Columna;Fila\n", {3, 2, 1, 0}},
                 {"Tratamiento;Fila;Columna;Respuesta\n", {2, 0, 1, 3}},
                 {"row;value;col;treatment\n", {0, 3, 1, 2}}};
    for (const auto& [header, order] : cases) {
        const QString text = assemblyList(header, order, QLatin1Char(';'));
        const experiment::LatinSquare square = readSquare(text.toUtf8().constData());
        expectAssemblySums(square);
        EXPECT_EQ(square.rows, list({"o1", "o2", "o3", "o4"}));
    }
    // Half a header in another order: the roles could only be guessed at.
    EXPECT_EQ(refusalOfSquare(assemblyList("Tratamiento;Orden;Operario;Tiempo\n", {2, 0, 1, 3},
                                           QLatin1Char(';'))
                                  .toUtf8()
                                  .constData()),
              "La primera línea da los campos en otro orden. Nombre los cuatro (Fila, Columna, "
              "Tratamiento, Observación) o póngalos en este orden.");
}

TEST(CyclicSquareReading, ANamedListMayHaveFurtherColumns)
{
    const QString lines = assemblyList("", {0, 1, 2, 3}, QLatin1Char('\t'));
    QString wide = QStringLiteral("Parcela\tFila\tNota\tColumna\tTratamiento\tPeso\tValor\n");
    for (const QString& line : lines.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        wide += QStringLiteral("101\t%1\t\t%2\t%3\t7,5\t%4\n")
                    .arg(fields[0], fields[1], fields[2], fields[3]);
    }
    expectAssemblySums(readSquare(wide.toUtf8().constData()));

    const auto refusalWith = [&wide](const char* header) {
        return refusalOfSquare(
            (QString::fromUtf8(header) + wide.section(QLatin1Char('\n'), 1)).toUtf8());
    };
    EXPECT_EQ(refusalWith("Parcela\tFila\tNota\tColumna\tTratamiento\tDato\tValor\n"),
              "La primera línea nombra dos veces la observación: «Dato» y «Valor». Cambie el "
              "encabezado de la que no se debe leer.");
    EXPECT_EQ(
        refusalWith("Parcela\tFila\tNota\tColumna\tTratamiento\tPeso\tAltura\n"),
        "La primera línea no nombra la observación. Con más de cuatro columnas hacen falta los "
        "nombres de las que se leen: Fila, Columna, Tratamiento y Observación.");
    EXPECT_EQ(refusalWith("Parcela\tFila\tNota\tColumna\tTratamiento\tPeso\tValor\tAltura\n"),
              "La línea 2 tiene 7 campos y la primera, 8: los datos no forman un rectángulo.");
}

TEST(CyclicSquareReading, ReadsWhatSpreadsheetsAddAndCommasWithDecimalPoints)
{
    QString commas =
        assemblyList("Fila,Columna,Tratamiento,Tiempo\n", {0, 1, 2, 3}, QLatin1Char(','));
    expectAssemblySums(readSquare(commas.toUtf8().constData()));
    expectAssemblySums(readSquare(
        commas.replace(QStringLiteral("14\n"), QStringLiteral("14.0\n")).toUtf8().constData()));
    expectAssemblySums(readSquare(
        "C 10,D 14.0,A 7,B 8\nB 7,C 18,D 11,A 8\nA 5,B 10,C 11,D 9\nD 10,A 10,B 12,C 14"));
    expectAssemblySums(
        readSquare("\"C\n10\"\t\"D 14\"\tA 7\tB 8\t\nB 7\tC 18\tD 11\tA 8\t\n"
                   "A 5\tB 10\tC 11\tD 9\t\nD 10\tA 10\tB 12\tC 14\t\n\t\t\t\t\n\n"));
    expectAssemblySums(readSquare(assemblyList("Fila;\"Columna\";Tratamiento;\"Tiempo\n(min)\"\n",
                                               {0, 1, 2, 3}, QLatin1Char(';'))
                                      .toUtf8()
                                      .constData()));
    EXPECT_EQ(readSquare("\tx\t\"y \"\"2\"\"\"\nf\tA 1\tB 2\ng\tB 3\tA 4").columns,
              list({"x", "y \"2\""}));
    // What is behind the observation could be another column or its decimals.
    const auto wide = [](const char* header, const char* behind) {
        QStringList lines = assemblyList(header, {0, 1, 2, 3}, QLatin1Char(','))
                                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (qsizetype i = 1; i < lines.size(); ++i)
            lines[i] += QString::fromUtf8(behind);
        return lines.join(QLatin1Char('\n')).toUtf8();
    };
    const char* const noted = "Fila,Columna,Tratamiento,Valor,Nota\n";
    expectAssemblySums(readSquare(wide(noted, ",lluvia 3").constData()));
    EXPECT_EQ(refusalOfSquare(wide(noted, ",5").constData()),
              "No se sabe qué comas separan campos y cuáles son decimales o de miles. Separe los "
              "campos con tabuladores o con punto y coma.");
    EXPECT_EQ(
        readSquare("Fila,Valor,Columna,Tratamiento\n1,5,1,A\n1,6,2,B\n2,7,1,B\n2,8,2,A").values,
        (std::vector<double>{5, 6, 7, 8}));
    // A decimal comma among commas: the number would lose what is behind it.
    EXPECT_EQ(
        refusalOfSquare("1,1,A,24,5\n1,2,B,20\n2,1,B,19\n2,2,A,30"),
        "La línea 1 no tiene cuatro campos (fila, columna, tratamiento y observación), sino 5.");
    EXPECT_EQ(refusalOfSquare("1, 1, A, 24,5\n1, 2, B, 20\n2, 1, B, 19\n2, 2, A, 30"),
              "No se sabe qué comas separan campos y cuáles son decimales o de miles. Separe los "
              "campos con tabuladores o con punto y coma.");
}

TEST(CyclicSquareReading, ReadsListsInAnyOrderOfLines)
{
    QStringList lines = assemblyList("", {0, 1, 2, 3}, QLatin1Char('\t'))
                            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    std::reverse(lines.begin(), lines.end());
    expectAssemblySums(readSquare(lines.join(QLatin1Char('\n')).toUtf8().constData()));
}

TEST(CyclicSquareReading, SaysWhatKeepsADesignFromBeingALatinSquare)
{
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {"A 1\tB 2\tC 3\nB 4\tC 5\tA 6\nC 7\tB 8\tA 9",
         "No es un cuadrado latino: el tratamiento «B» aparece dos veces en la columna «C-2»."},
        {"\tx\ty\tz\nf1\tA 1\tB 2\tC 3\nf2\tB 4\tC 5\tB 6\nf3\tC 7\tA 8\tA 9",
         "No es un cuadrado latino: el tratamiento «B» aparece dos veces en la fila «f2»."},
        {"A 1\tB 2\tC 3\nB 4\tC 5\tD 6\nC 7\tA 8\tB 9",
         "No es un cuadrado latino: hay 3 filas, 3 columnas y 4 tratamientos; el tratamiento «D» "
         "aparece una sola vez."},
        {"A 1\tA 2\tA 3\nA 4\tA 5\tA 6\nA 7\tA 8\tA 9",
         "No es un cuadrado latino: hay 3 filas, 3 columnas y 1 tratamiento; el tratamiento «A» "
         "aparece 9 veces."},
        {"1;1;A;1\n1;2;B;2\n2;1;B;3\n1;2;A;4",
         "La fila «1» y la columna «2» tienen dos observaciones (líneas 2 y 4)."},
        {"1;1;A;1\n1;2;B;2\n2;1;B;3\n%3;2;A;4\n%3;2;A;5",
         "La fila «%3» y la columna «2» tienen dos observaciones (líneas 4 y 5)."},
        {"1;1;A;1\n1;2;B;2\n2;1;B;3",
         "Falta la observación de la fila «2» y la columna «2». Sin ese dato no se puede analizar "
         "el cuadrado: vea «Datos que faltan» en el manual (F1)."},
        {"1;1;A;1\n1;2;B;2\n2;1;B;3\n3;2;A;4",
         "No es un cuadrado latino: hay 3 filas, 2 columnas y 2 tratamientos; la fila «2» aparece "
         "una sola vez."},
        {"1;1;A;1",
         "Un cuadrado latino tiene al menos dos filas, dos columnas y dos tratamientos."},
    };
    for (const auto& [text, reason] : cases)
        EXPECT_EQ(refusalOfSquare(text), reason) << text;
}

TEST(CyclicSquareReading, SaysThatALatinSquareCannotBeMadeCyclic)
{
    // The Klein four-group.
    EXPECT_EQ(
        refusalOfSquare("A 1\tB 2\tC 3\tD 4\nB 5\tA 6\tD 7\tC 8\nC 9\tD 10\tA 11\tB 12\nD 13\tC "
                        "14\tB 15\tA 16\n"),
        "Los datos forman un cuadrado latino, pero ningún cambio de orden de sus filas, "
        "columnas y tratamientos lo convierte en el cuadrado cíclico que el programa analiza.\n\n"
        "No lo escriba ni lo pegue como números: el programa daría a las celdas los tratamientos "
        "de REFERENCIA: TRATAMIENTOS, que no son los que se sembraron, y el reporte sería falso."
        "\n\n"
        "Para que el próximo sirva, sortéelo a partir del cuadrado cíclico: ponga al azar el orden "
        "de sus filas, el de sus columnas y qué tratamiento lleva cada número. Vea «Un cuadrado "
        "que no se vuelve cíclico» en el manual (F1).");
}

TEST(CyclicSquareReading, NamesTheLineAndFieldThatCannotBeRead)
{
    const std::string noCell =
        "» no es un tratamiento con su observación, como «A 24». Es la celda "
        "de la fila ";
    const std::string noForm =
        "» no es un tratamiento con su observación, como «A 24». El número va "
        "sin unidades, signos sueltos ni separador de miles. Es la celda de la fila ";
    const std::string missing =
        " Sin ese dato no se puede analizar el cuadrado: vea «Datos que faltan» en el manual (F1).";
    const std::string letter = " ¿Hay una letra O o l en lugar de un 0 o un 1?" + missing;
    const std::string first = "«R-1» y la columna «C-1».";
    const struct {
        const char* text;
        std::string reason;
    } cases[] = {
        {"A 1\tB x\nB 3\tA 4",
         "Línea 1, campo 2: «B x" + noCell + "«R-1» y la columna «C-2»." + missing},
        {"A 1\tB\nB 3\tA 4",
         "Línea 1, campo 2: «B" + noCell + "«R-1» y la columna «C-2»." + missing},
        {"A 1\tB 2\nB 3\t", "Línea 2, campo 2: «" + noCell + "«R-2» y la columna «C-2»." + missing},
        {"\tEva\tAna\nf1\tA 1\tB 2\nf2\tB 3\tA 2O",
         "Línea 3, campo 3: «A 2O" + noCell + "«f2» y la columna «Ana»." + letter},
        // A sign or thousands that a blank sets apart would be lost to the treatment.
        {"A - 1\tB - 2\nB - 3\tA - 4", "Línea 1, campo 1: «A - 1" + noForm + first + missing},
        {"A 1 024\tB 2\nB 3\tA 4", "Línea 1, campo 1: «A 1 024" + noForm + first + missing},
        {"1 024 A\tB 2\nB 3\tA 4", "Línea 1, campo 1: «1 024 A" + noForm + first + missing},
        {"24 T 1\tB 2\nB 3\tA 4", "Línea 1, campo 1: «24 T 1" + noForm + first + missing},
        {"A\tB 2\nB 3\tA 4",
         "Línea 1, campo 1: «A" + noCell + "«R-1» y la columna «C-1»." + missing},
        {"A-1\tB 2\nB 3\tA 4", "Línea 1, campo 1: «A-1" + noForm + first + missing},
        {"\tEva\tAna\nNorte\tA 1\tB 2\nSur\tB 3\tA 4\nTotal\t4\t6",
         "Línea 2, campo 1: «Norte» no es un tratamiento con su observación, como «A 24». Si es el "
         "nombre de la fila, sobra o falta una línea: copie tantas filas como columnas, sin "
         "títulos, "
         "totales ni promedios."},
        {"1;1;A;1\n1;2;B;2\n2;1;B;x\n2;2;A;4",
         "Línea 3, campo 4: «x» no es un número. Es la celda de la fila «2» y la columna «1»." +
             missing},
        {"1;1;A;1\n1;2;B;2\n2;1;B;2O\n2;2;A;4",
         "Línea 3, campo 4: «2O» no es un número. Es la celda de la fila «2» y la columna «1»." +
             letter},
        {"1;1;A;1\n1;2;B;2\n2;1;B;\n2;2;A;4",
         "Línea 3, campo 4: Falta el número. Es la celda de la fila «2» y la columna «1»." +
             missing},
        {"1;1;A;1\n1;2;;2\n2;1;B;3\n2;2;A;4", "En la línea 2 falta el tratamiento."},
        {"1;1;A;1\n;2;B;2\n2;1;B;3\n2;2;A;4", "En la línea 2 falta la fila."},
        {"1;1;A;1\n1;2;B;2\n2;1;B\n2;2;A;4",
         "La línea 3 no tiene cuatro campos (fila, columna, tratamiento y observación), sino 3."},
        {"", "El portapapeles no contiene ningún texto."},
        {" \n\t\n", "El portapapeles no contiene ningún texto."},
        {"A 1\tB 2\n\nB 3\tA 4", "La línea 2 está vacía."},
    };
    for (const auto& [text, reason] : cases)
        EXPECT_EQ(refusalOfSquare(text), reason) << text;
    for (const char* shapeless :
         {"hola", "1\t2\t3", "A 1\tB 2\nB 3", "A 1\tB 2\tC 3\tD 4\nA 1\tB 2\tC 3\tD 4"})
        EXPECT_NE(refusalOfSquare(shapeless).find("no tiene forma de experimento"),
                  std::string::npos)
            << shapeless;
}

TEST(CyclicSquareReading, AListOfSixLinesOrMoreIsToldItsBadNumbers)
{
    EXPECT_EQ(
        refusalOfSquare("1;1;A;1 kg\n1;2;B;2 kg\n1;3;C;3 kg\n2;1;B;4 kg\n2;2;C;5 kg\n2;3;A;6 kg"),
        "Línea 2, campo 4: «2 kg» no es un número. Es la celda de la fila «1» y la columna "
        "«2». Sin ese dato no se puede analizar el cuadrado: vea «Datos que faltan» en el "
        "manual (F1).");
}

TEST(CyclicSquareReading, NumbersWithoutTreatmentsAreToPaste)
{
    const std::string paste = "Los números sin tratamientos no se extraen: péguelos con «Paste» "
                              "(Ctrl+V).";
    // Lines of four fields could be a list; others, with names or without, only a square.
    for (const char* text : {"24\t20\t19\t24\n17\t24\t30\t27\n18\t38\t26\t27\n26\t31\t26\t23",
                             "Día\tEva\tAna\tLuz\nf1\t24\t20\t19\nf2\t17\t24\t30\nf3\t18\t38\t26"})
        EXPECT_EQ(refusalOfSquare(text), paste) << text;
    const std::string noCell = "» no es un tratamiento con su observación, como «A 24». ";
    EXPECT_EQ(refusalOfSquare("24\t20\t19\n17\t24\t30\n18\t38\t26"),
              "Línea 2, campo 2: «24" + noCell + paste);
    EXPECT_EQ(refusalOfSquare("A 1\tB 2\nB 3\t24"),
              "Línea 2, campo 2: «24" + noCell + "Le falta el tratamiento.");
}

TEST(CyclicSquareReading, AListOfLabelsThatNeverRepeatTakesNoMoreRoomThanItsLines)
{
    // Twenty thousand labels of each kind: a place for each of their cells would be 400 million.
    QString text;
    for (int i = 0; i < 20'000; ++i)
        text += QStringLiteral("r%1;c%1;t%1;7\n").arg(i);
    EXPECT_EQ(refusalOfSquare(text.toUtf8()),
              "Falta la observación de la fila «r0» y la columna «c1». Sin ese dato no se puede "
              "analizar el cuadrado: vea «Datos que faltan» en el manual (F1).");
}

TEST(CyclicSquareReading, ATextTooLongForAnExperimentIsRefusedUnread)
{
    const QByteArray line = "r;c;t;7\n";
    EXPECT_EQ(refusalOfSquare(line.repeated(125'001)),
              "El portapapeles tiene 1000008 caracteres. De un experimento se leen hasta 1000000.");
    EXPECT_EQ(refusalOfSquare(line.repeated(125'000)),
              "La fila «r» y la columna «c» tienen dos observaciones (líneas 1 y 2).");
}

TEST(CyclicSquareReading, AnyTextIsReadOrRefusedWithAReason)
{
    const char* const pieces[] = {"A",  "B", "C",  "1",    "2",    "24", ".",  ",",   "-", " ",
                                  "\t", ";", "\n", "\r\n", "Fila", "ñ",  "%1", "1e5", "\""};
    unsigned state = 12345;
    for (int i = 0; i < 30'000; ++i) {
        QString text;
        const unsigned length = i % 40;
        for (unsigned k = 0; k < length; ++k) {
            state = state * 1664525U + 1013904223U;
            text += QString::fromUtf8(pieces[(state >> 16U) % std::size(pieces)]);
        }
        const auto outcome = experiment::readCyclicSquare(text);
        EXPECT_NE(outcome.value.has_value(), !outcome.reason.isEmpty());
    }
}
