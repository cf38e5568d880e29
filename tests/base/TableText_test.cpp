// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TableText.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

/// The fields as "a|b" lines, or the reason in angular brackets.
std::string fieldsIn(const char* text)
{
    const QString whole = QString::fromUtf8(text);
    base::Outcome<base::TableText> table = base::tableIn(whole);
    if (!table.value)
        return "<" + table.reason.toStdString() + ">";
    QStringList lines;
    for (qsizetype line = 0; line < table.value->lines; ++line) {
        QStringList fields;
        for (const QStringView field : base::takeFields(*table.value))
            fields << field.toString();
        lines << fields.join(QLatin1Char('|'));
    }
    EXPECT_TRUE(base::takeFields(*table.value).empty());
    return lines.join(QLatin1Char('\n')).toStdString();
}

const std::string unclear =
    "<No se sabe qué comas separan campos y cuáles son decimales o de miles. "
    "Separe los campos con tabuladores o con punto y coma.>";

bool hasUnclearNumbers(const char* text)
{
    const QString whole = QString::fromUtf8(text);
    return base::tableIn(whole).value.value().unclearNumbers;
}

} // namespace

TEST(TableText, TheFirstSeparatorThatItHasSeparates)
{
    EXPECT_EQ(fieldsIn("a b\tc;d\t1,5\r\n"), "a b|c;d|1,5");
    EXPECT_EQ(fieldsIn("a b;c,d; 1,5 \n;e"), "a b|c,d|1,5\n|e");
    EXPECT_EQ(fieldsIn("a b,c,1.5\n1,2,3"), "a b|c|1.5\n1|2|3");
    EXPECT_EQ(fieldsIn("A 24, B 30"), "A 24|B 30");
    EXPECT_EQ(fieldsIn(" a  b 1,5\n2,5 ,5 -,5 3"), "a|b|1,5\n2,5|,5|-,5|3");
    EXPECT_EQ(fieldsIn("+,5 3"), "+,5|3");
    EXPECT_EQ(fieldsIn("a,5 3"), "a|5 3") << "no decimal: no digit before it";
    EXPECT_EQ(fieldsIn("2,b 3"), "2|b 3") << "no decimal: no digit behind it";
    EXPECT_EQ(fieldsIn(",b,c"), "|b|c");
    EXPECT_EQ(fieldsIn("a,b,"), "a|b");
}

TEST(TableText, WhatIsEmptyAtTheEndDoesNotCount)
{
    EXPECT_EQ(fieldsIn("1\t2\t\t\n3\t4\t\t\n\t\t\t\n\n \r\n"), "1|2\n3|4");
    EXPECT_EQ(fieldsIn("1;2;\n3;4\n;;\n"), "1|2\n3|4");
    EXPECT_EQ(fieldsIn("a,1,\nb,2,\n,,\n"), "a|1\nb|2");
    EXPECT_EQ(fieldsIn("1\t2\t\n3\t\t\n"), "1|2\n3|") << "a hole is no end";
    EXPECT_EQ(fieldsIn("1\n\n2\n"), "1\n\n2");
    EXPECT_EQ(fieldsIn("a,b,\nc,d\ne,f,\n"), "a|b|\nc|d\ne|f|")
        << "commas at the end that only some lines have do count";
    EXPECT_EQ(fieldsIn("\t\n\t\n"), "");
    EXPECT_EQ(fieldsIn(""), "");
}

TEST(TableText, QuotedFieldsHoldAnything)
{
    EXPECT_EQ(fieldsIn("\"Peso\n(t)\"\t\"a\tb\"\r\n\"di\"\"jo\"\t 24 \r\n"),
              "Peso (t)|a b\ndi\"jo|24");
    EXPECT_EQ(fieldsIn("\"a;b\";\"1,5\"\n c ; \"d\" "), "a;b|1,5\nc|d");
    EXPECT_EQ(fieldsIn("\"a,b\",\"24,5\",1.5"), "a,b|24,5|1.5");
    EXPECT_EQ(fieldsIn("\"a b\" 1 \"\"\n c  2 3 "), "a b|1|\nc|2|3");
    EXPECT_EQ(fieldsIn("\"a;b\" 1\nc 2"), "a;b|1\nc|2") << "in quotes it separates nothing";
    EXPECT_EQ(fieldsIn("\"a;\tb\",1,x"), "a; b|1|x");
}

TEST(TableText, AQuoteThatIsNoneIsALetter)
{
    EXPECT_EQ(fieldsIn("tubo 5\"\t24\n\"norte\"-alto\t25\n\"sur\t26"),
              "tubo 5\"|24\n\"norte\"-alto|25\n\"sur|26");
}

TEST(TableText, CommasOfTwoKindsAreRefused)
{
    EXPECT_EQ(fieldsIn("24,5, 20,1, 19"), unclear);
    EXPECT_EQ(fieldsIn("Fila 1, Col 1, A, 24,5"), unclear);
    EXPECT_EQ(fieldsIn("1,1,A,\"1,234\""), unclear) << "thousands to some, 1.234 to others";
    EXPECT_EQ(fieldsIn("1, 1, A, 24.5"), "1|1|A|24.5");
    EXPECT_EQ(fieldsIn("a,b\n24,5,\n"), "a|b\n24|5|")
        << "not 24 and 5: what is behind may be missing";
}

TEST(TableText, CommasBetweenNumbersMayBeUnclear)
{
    for (const char* text : {"24,5,20,1", "24,20,19\n17,24,30", "1,234.5", "12,500,7.5", "1,2,345"})
        EXPECT_TRUE(hasUnclearNumbers(text)) << text;
    for (const char* text : {"24.5,20.1", "24.0,20,19\n17,24,30", "0.5,100.25", "24, 20, 19",
                             "1;2,5", "1 2,5", "1234,500,7.5", "12,5000,7.5", "12,50,7.5"})
        EXPECT_FALSE(hasUnclearNumbers(text)) << text;
}
