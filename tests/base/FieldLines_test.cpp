// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FieldLines.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

std::string fieldsOf(const char* line, char separator)
{
    const QString whole = QString::fromUtf8(line);
    QStringList fields;
    for (const QStringView field : base::fieldsOf(whole, QLatin1Char(separator)))
        fields << field.toString();
    return fields.join(QLatin1Char('|')).toStdString();
}

QString reasonOf(const QString& field)
{
    const base::Outcome<double> number = base::numberIn(field, 2, 3);
    EXPECT_FALSE(number.value);
    EXPECT_EQ(number.problem(), number.reason);
    return number.reason;
}

} // namespace

TEST(FieldLines, OnlyBlanksCountOnceHoweverManyThereAre)
{
    EXPECT_EQ(fieldsOf("  1  2 3 ", ' '), "1|2|3");
    EXPECT_EQ(fieldsOf(" 1 ;; 2 3;", ';'), "1||2 3|");
    EXPECT_EQ(fieldsOf("\t1\t", '\t'), "|1|");
}

TEST(FieldLines, ANumberIsReadOrRefusedWithItsPlace)
{
    const base::Outcome<double> number = base::numberIn(QStringLiteral("24,5"), 2, 3);
    EXPECT_EQ(number.value, 24.5);
    EXPECT_EQ(number.problem(), std::nullopt);
    EXPECT_EQ(reasonOf(QStringLiteral("2O")), QStringLiteral("Línea 2, campo 3: «2O» no es un "
                                                             "número."));
    EXPECT_EQ(reasonOf(QString()), QStringLiteral("Línea 2, campo 3: Falta el número."));
}

TEST(FieldLines, ALongFieldIsQuotedByItsFirstFortyCharacters)
{
    const QString forty(40, QLatin1Char('x'));
    EXPECT_EQ(reasonOf(forty),
              QStringLiteral("Línea 2, campo 3: «%1» no es un número.").arg(forty));
    EXPECT_EQ(reasonOf(forty + QLatin1Char('y')),
              QStringLiteral("Línea 2, campo 3: «%1…» no es un número.").arg(forty));
}

TEST(FieldLines, ANumberHasAtMostTwoThousandCharacters)
{
    const QString longest = QStringLiteral("0.") + QString(1998, QLatin1Char('3'));
    EXPECT_EQ(base::numberIn(longest, 1, 1).value, 1.0 / 3.0);
    EXPECT_EQ(
        reasonOf(longest + QLatin1Char('3')),
        QStringLiteral("Línea 2, campo 3: «%1…» tiene más de 2000 caracteres, no es un número.")
            .arg(longest.first(40)));
}

TEST(FieldLines, ALetterBesideADigitIsAskedAfter)
{
    const QString question = QStringLiteral("¿Hay una letra O o l en lugar de un 0 o un 1?");
    for (const char* text : {"2O", "1o", "3l", "4I", "O5", "l.5", "2,O", "I,7"})
        EXPECT_EQ(base::letterQuestion(QString::fromUtf8(text)), question) << text;
    for (const char* text : {"24", "Oro", "2x", "O 5", "", "5 l"})
        EXPECT_EQ(base::letterQuestion(QString::fromUtf8(text)), QString()) << text;
    EXPECT_EQ(base::letterQuestion(QString(40, QLatin1Char('x')) + QStringLiteral("2O")), QString())
        << "what is not quoted is not asked after";
}

TEST(FieldLines, AMissingObservationSendsToTheManual)
{
    const QString notice = QStringLiteral("Sin ese dato no se puede analizar el cuadrado: vea "
                                          "«Datos que faltan» en el manual (F1).");
    EXPECT_EQ(base::adviceOnObservation(u"doce"), notice);
    EXPECT_EQ(base::adviceOnObservation(u"12O"),
              QStringLiteral("¿Hay una letra O o l en lugar de un 0 o un 1? ") + notice);
}

TEST(FieldLines, LinesOfOtherLengthAreCounted)
{
    EXPECT_EQ(base::raggedLine(4, 1, 3),
              QStringLiteral("La línea 4 tiene 1 campo y la primera, 3: los datos no forman un "
                             "rectángulo."));
    EXPECT_EQ(base::raggedLine(2, 0, 3),
              QStringLiteral("La línea 2 tiene 0 campos y la primera, 3: los datos no forman un "
                             "rectángulo."));
    EXPECT_EQ(base::counted(2, QStringLiteral("fila")), QStringLiteral("2 filas"));
}
