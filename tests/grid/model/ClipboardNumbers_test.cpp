// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/ClipboardNumbers.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <bit>
#include <random>

namespace {

using Values = std::vector<double>;

const record::SquareData target(50, 50);
const grid::Room room{target};
const std::string toR1C1 = " Iba a la fila «R-1», columna «C-1».";
const std::string toR1C2 = " Iba a la fila «R-1», columna «C-2».";
const std::string toR2C2 = " Iba a la fila «R-2», columna «C-2».";
const std::string missing =
    " Sin ese dato no se puede analizar el cuadrado: vea «Datos que faltan» en el manual (F1).";
const std::string extract =
    " Copie solo números, sin nombres; los datos con su tratamiento, como «A 24», van por «Extract "
    "from Clpbrd», del menú de la tabla.";

grid::NumberBlock read(const char* text)
{
    const auto outcome = grid::readNumberBlock(QString::fromUtf8(text), room);
    EXPECT_TRUE(outcome.value) << outcome.reason.toStdString();
    return outcome.value.value_or(grid::NumberBlock());
}

std::string refusalOf(const QString& text)
{
    const auto outcome = grid::readNumberBlock(text, room);
    EXPECT_FALSE(outcome.value) << text.toStdString();
    return outcome.reason.toStdString();
}

std::string refusalOf(const char* text)
{
    return refusalOf(QString::fromUtf8(text));
}

class ClipboardNumbers : public ::testing::Test {
protected:
    ClipboardNumbers() { QLocale::setDefault(QLocale::c()); }
    ~ClipboardNumbers() override { QLocale::setDefault(QLocale::c()); }
};

} // namespace

TEST_F(ClipboardNumbers, CopiesARectangleWithTheUsersDecimalSign)
{
    record::SquareData table(3, 2);
    table.setValue(2, 1, 24);
    table.setValue(3, 1, 0.1 + 0.2);
    table.setValue(2, 2, -1.5);
    table.setValue(3, 2, 1e20);
    EXPECT_EQ(grid::copiedText(table, {2, 1, 2, 2}),
              QStringLiteral("24\t0.30000000000000004\n-1.5\t1E20"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    EXPECT_EQ(grid::copiedText(table, {2, 1, 2, 2}),
              QStringLiteral("24\t0,30000000000000004\n-1,5\t1E20"));
    EXPECT_EQ(grid::copiedText(table, {2, 1, 1, 1}), QStringLiteral("24"));
}

TEST_F(ClipboardNumbers, ReadsTabsSemicolonsAndBlanksWithEitherDecimalSign)
{
    const Values expected = {1, 2.5, 3, -4, 5000, 6};
    for (const char* text :
         {"1\t2.5\t3\n-4\t5e3\t6", "1\t2,5\t3\r\n-4\t5E3\t6\r\n", "1;2,5;3\n-4;5e3;6\n",
          " 1 ; 2.5 ;3\n -4;5e+3; +6", "1 2.5 3\n-4 5e3 6", "  1   2,5 3  \n -4 5e3   6.0\n",
          " 1 \t 2,5\t3\n-4\t5e3\t 6 "}) {
        const grid::NumberBlock block = read(text);
        EXPECT_EQ(block.columns, 3) << text;
        EXPECT_EQ(block.rows, 2) << text;
        EXPECT_EQ(block.values, expected) << text;
    }
    EXPECT_EQ(read("24").values, Values{24});
    EXPECT_EQ(read("24\n").rows, 1);
    EXPECT_EQ(read("1\n2\n3").rows, 3);
}

TEST_F(ClipboardNumbers, ForgivesWhatSpreadsheetsAdd)
{
    const Values expected = {1, 2.5, 3, 4};
    for (const char* text : {"1\t2,5\t\n3\t4\t\n\t\t\n\n", "\"1\"\t\"2,5\"\n3\t\" 4\"\n",
                             "1;\"2.5\";\n3;4;\n", "1,2.5\n3,4\n,\n", "1, 2.5\n3, 4"}) {
        const grid::NumberBlock block = read(text);
        EXPECT_EQ(block.columns, 2) << text;
        EXPECT_EQ(block.values, expected) << text;
    }
    EXPECT_EQ(read("24, 20, 19\n17, 24, 30\n").values, (Values{24, 20, 19, 17, 24, 30}));
    for (const char* text :
         {"24,5,20,1\n17,2,30,4", "24,20,19\n17,24,30", "24,5, 20,1", "1,234.5", "1.5,120,134"})
        EXPECT_EQ(
            refusalOf(text),
            "No se sabe qué comas separan campos y cuáles son decimales o de miles. Separe los "
            "campos con tabuladores o con punto y coma.")
            << text;
}

TEST_F(ClipboardNumbers, RefusesWhatIsNoNumberNamingLineAndField)
{
    EXPECT_EQ(refusalOf("1\t2\n3\tx4\n"),
              "Línea 2, campo 2: «x4» no es un número." + toR2C2 + extract);
    // The corner of a table with its names.
    EXPECT_EQ(refusalOf("\tEva\nf1\t2"), "Línea 1, campo 1: Falta el número." + toR1C1 + extract);
    EXPECT_EQ(refusalOf("1\t\t3"), "Línea 1, campo 2: Falta el número." + toR1C2 + missing);
    EXPECT_EQ(refusalOf("1\t2\n3\t"), "Línea 2, campo 2: Falta el número." + toR2C2 + missing);
    EXPECT_EQ(refusalOf("\t1"), "Línea 1, campo 1: Falta el número." + toR1C1 + missing);
    EXPECT_EQ(refusalOf("1\t2\n3\t."), "Línea 2, campo 2: «.» no es un número." + toR2C2 + missing);
    EXPECT_EQ(refusalOf("1\t2\n3\t2O"), "Línea 2, campo 2: «2O» no es un número." + toR2C2 +
                                            " ¿Hay una letra O o l en lugar de un 0 o un 1?" +
                                            missing);
    EXPECT_EQ(refusalOf("1;2\n3;nan"),
              "Línea 2, campo 2: «nan» no es un número." + toR2C2 + extract);
    EXPECT_EQ(refusalOf("1 inf"), "Línea 1, campo 2: «inf» no es un número." + toR1C2 + extract);
    EXPECT_EQ(refusalOf("1 1e999"),
              "Línea 1, campo 2: «1e999» es demasiado grande." + toR1C2 + missing);
    EXPECT_NE(refusalOf("1;1.234,5").find("Línea 1, campo 2: «1.234,5» tiene más de un separador"),
              std::string::npos);
    // A blank inside a tab-separated field is no separator: "1 000" must not become 1 and 0.
    EXPECT_EQ(refusalOf("1 000\t2"),
              "Línea 1, campo 1: «1 000» no es un número." + toR1C1 + missing);
    EXPECT_EQ(refusalOf("1;2\t3"), "Línea 1, campo 1: «1;2» no es un número." + toR1C1 + missing);
}

TEST_F(ClipboardNumbers, RefusesEmptyAndRaggedTexts)
{
    EXPECT_EQ(refusalOf(""), "El portapapeles no contiene ningún texto.");
    EXPECT_EQ(refusalOf("\n"), "El portapapeles no contiene ningún texto.");
    EXPECT_EQ(refusalOf("  \t "), "El portapapeles no contiene ningún texto.");
    EXPECT_EQ(refusalOf("1\n\n2"), "La línea 2 está vacía.");
    EXPECT_EQ(refusalOf("\n1\n2"), "La línea 1 está vacía.");
    EXPECT_EQ(refusalOf("1\t2\n3\n"),
              "La línea 2 tiene 1 campo y la primera, 2: los datos no forman un rectángulo.");
    EXPECT_EQ(refusalOf("1 2\n3 4 5"),
              "La línea 2 tiene 3 campos y la primera, 2: los datos no forman un rectángulo.");
}

TEST_F(ClipboardNumbers, QuotesALongFieldShortened)
{
    const std::string reason = refusalOf(QString(100'000, QLatin1Char('x')));
    EXPECT_LT(reason.size(), 300U);
    EXPECT_NE(reason.find("xxx…»"), std::string::npos);
}

TEST_F(ClipboardNumbers, ALongFieldThatIsTooLargeIsToldAsTooLarge)
{
    const std::string tooLarge =
        "Línea 1, campo 1: «" + std::string(40, '9') + "…» es demasiado grande." + toR1C1 + missing;
    for (const int digits : {41, 400, 3000, 1'000'000}) {
        const QString nines(digits, QLatin1Char('9'));
        EXPECT_EQ(refusalOf(nines + QStringLiteral("e999")), tooLarge) << digits;
        if (digits > 308) {
            EXPECT_EQ(refusalOf(nines), tooLarge) << digits;
        }
    }
}

TEST_F(ClipboardNumbers, WhatIsCopiedIsReadBackBitForBit)
{
    std::mt19937_64 random(20240611);
    for (const char* locale : {"C", "es_ES"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        record::SquareData table(5, 40);
        Values values;
        while (values.size() < 200) {
            const auto value = std::bit_cast<double>(random());
            if (!std::isfinite(value))
                continue;
            table.setValue(static_cast<int>(values.size() % 5) + 1,
                           static_cast<int>(values.size() / 5) + 1, value);
            values.push_back(value);
        }
        const auto outcome = grid::readNumberBlock(grid::copiedText(table, {1, 1, 5, 40}), room);
        ASSERT_TRUE(outcome.value) << outcome.reason.toStdString();
        EXPECT_EQ(outcome.value->columns, 5);
        EXPECT_EQ(outcome.value->values, values);
    }
}

TEST_F(ClipboardNumbers, WhatIsTooLargeIsCountedAndOnlyItsHeadIsRead)
{
    const record::SquareData order3(3, 3);
    const grid::Room small{order3, 2, 2};
    const auto reasonOf = [&small](const QString& text) {
        return grid::readNumberBlock(text, small).reason;
    };
    EXPECT_EQ(
        reasonOf(QStringLiteral("1\t2\n").repeated(12) + QStringLiteral("huevos\tjamón")),
        QStringLiteral("Los datos del portapapeles ocupan 2 columnas y 13 filas. Desde la fila "
                       "«R-2», columna «C-2» solo hay sitio para 2 columnas y 2 filas."));
    // Of names or blank lines, which make it too large, it is better told.
    EXPECT_EQ(reasonOf(QStringLiteral("1 2 3 huevos")).toStdString(),
              "Línea 1, campo 4: «huevos» no es un número." + extract);
    EXPECT_EQ(reasonOf(QStringLiteral("1 2\n\n3 4")), QStringLiteral("La línea 2 está vacía."));
    EXPECT_EQ(reasonOf(QStringLiteral("1 2\nhuevos 4")).toStdString(),
              "Línea 2, campo 1: «huevos» no es un número. Iba a la fila «R-3», columna «C-2»." +
                  extract);

    constexpr int million = 1'000'000;
    EXPECT_EQ(reasonOf(QStringLiteral("7\n").repeated(million)).section(QLatin1Char('.'), 0, 0),
              QStringLiteral("Los datos del portapapeles ocupan 1 columna y 1000000 filas"));
    EXPECT_EQ(reasonOf(QStringLiteral("7 ").repeated(million)).section(QLatin1Char('.'), 0, 0),
              QStringLiteral("Los datos del portapapeles ocupan 1000000 columnas y 1 fila"));
}

TEST_F(ClipboardNumbers, WhatIsTooLargeIsToldWhereItFits)
{
    const record::SquareData order3(3, 3);
    const auto adviceFor = [&order3](const char* text, int column) {
        const grid::Room here{
            order3, column, 1, [](int columns, int rows) {
                return columns > 6 || rows > 6
                           ? QString()
                           : QStringLiteral("suba a %1").arg(std::max(columns, rows));
            }};
        const QString reason = grid::readNumberBlock(QString::fromUtf8(text), here).reason;
        return reason.section(QStringLiteral(" filas."), 2).toStdString();
    };
    const char* const four = "1 2 3 4\n5 6 7 8";
    EXPECT_EQ(adviceFor(four, 1), " Para que quepan, suba a 4.");
    EXPECT_EQ(adviceFor(four, 2),
              " Para que quepan, suba a 4 y ponga el cursor en la primera celda.");
    EXPECT_EQ(adviceFor("1 2 3\n4 5 6", 2),
              " Para que quepan, ponga el cursor en la primera celda.");
    EXPECT_EQ(adviceFor("1 2\n3 4\n5 6\n7 8\n9 10", 1), " Para que quepan, suba a 5.");
    EXPECT_EQ(adviceFor("1 2 3 4 5 6 7\n1 2 3 4 5 6 7", 2), "");
}

TEST_F(ClipboardNumbers, AFieldAsLongAsANovelIsNoNumber)
{
    EXPECT_EQ(refusalOf(QString(2001, QLatin1Char('0'))),
              "Línea 1, campo 1: «" + std::string(40, '0') +
                  "…» tiene más de 2000 caracteres, no es un número." + toR1C1 + missing);
    EXPECT_EQ(read(QString(1999, QLatin1Char('0')).append(QLatin1Char('7')).toUtf8()).values,
              Values{7.0});
}

TEST_F(ClipboardNumbers, AnyTextIsReadOrRefusedWithAReason)
{
    const std::string alphabet = "0123456789.,;\t \n\r-+eEx\"";
    std::mt19937 random(7);
    for (int i = 0; i < 20'000; ++i) {
        QString text;
        const auto length = random() % 24;
        for (unsigned k = 0; k < length; ++k)
            text += QLatin1Char(alphabet[random() % alphabet.size()]);
        const auto outcome = grid::readNumberBlock(text, room);
        if (outcome.value) {
            EXPECT_EQ(outcome.value->values.size(),
                      static_cast<std::size_t>(outcome.value->columns) *
                          static_cast<std::size_t>(outcome.value->rows));
        } else {
            EXPECT_FALSE(outcome.reason.isEmpty());
        }
    }
}
