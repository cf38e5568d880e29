// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/SquareFile.h"

#include "base/NumberText.h"
#include "square/file/SquareBytes.h"

#include <gtest/gtest.h>

#include <QLocale>

using namespace squarebytes;

namespace {

record::SquareData order2()
{
    record::SquareData data(2, 2);
    data.setIdentifier("t");
    data.setValue(1, 1, 1);
    data.setValue(2, 1, 2);
    data.setValue(1, 2, 3);
    data.setValue(2, 2, 4);
    return data;
}

/// Line `number` (from 1) of the written square.
QByteArray line(const record::SquareData& data, int number)
{
    return square::encode(data, utf8("/tmp/a.asc")).bytes.split('\n').value(number - 1).chopped(1);
}

/// How a column name stands in the file.
QByteArray written(const char* name)
{
    record::SquareData data = order2();
    data.setColumnName(1, utf8(name));
    const QByteArray names = line(data, 5);
    EXPECT_TRUE(names.startsWith('\t') && names.endsWith("\tC-2")) << names.toStdString();
    return names.mid(1).chopped(4);
}

/// The name that the grid is given back.
QString handedBack(const QString& name)
{
    record::SquareData data = order2();
    data.setRowName(2, name);
    return square::encode(data, QString()).rowNames.value(1);
}

} // namespace

TEST(Encode, WritesTheLayoutOfTheFile)
{
    record::SquareData data(3, 3);
    data.setIdentifier("Parcelas de prueba");
    const double values[] = {1, -2.5, 30, 4, 512.5, 0.006, 7, 8, 0};
    for (int i = 1; i <= 3; ++i) {
        data.setColumnName(i, utf8("Col %1").arg(i));
        data.setRowName(i, utf8("Fila %1").arg(i));
        for (int column = 1; column <= 3; ++column)
            data.setValue(column, i, values[(i - 1) * 3 + column - 1]);
    }
    EXPECT_EQ(square::encode(data, utf8("/tmp/otro.asc")).bytes, ofOrder3());
}

TEST(Encode, WritesTheSameBytesInEveryLocale)
{
    for (const char* locale : {"C", "es_ES", "es_MX", "de_DE", "ar_EG"}) {
        const QLocale previous;
        QLocale::setDefault(QLocale(utf8(locale)));
        EXPECT_EQ(square::encode(*square::decode(ofOrder3()).data, QString()).bytes, ofOrder3())
            << locale;
        QLocale::setDefault(previous);
    }
}

TEST(Encode, AnEmptyTitleIsReplacedByTheFileName)
{
    record::SquareData data = order2();
    data.setIdentifier(QByteArray());
    EXPECT_EQ(square::encode(data, utf8("/home/ana/año 1.asc")).bytes.split('\r').constFirst(),
              QByteArray("Exported by NTabED component: /home/ana/a\xC3\xB1o 1.asc"));
    // Once it was read from a file it stays, old file name and all.
    const record::SquareData read = *square::decode(ofOrder5()).data;
    EXPECT_EQ(line(read, 1), QByteArray("Exported by NTabED component: /tmp/propelente.asc"));
}

TEST(Encode, ATitleThatWasReadSurvivesByteForByte)
{
    const QByteArray title("  A\xF1o \x01\t\0 \xEF\xBB\xBF \x7F  ", 16);
    const square::DecodedSquare read =
        square::decode(title + "\r\n1\r\n1\r\nFALSE FALSE FALSE\r\n5");
    EXPECT_EQ(line(*read.data, 1), title);
}

TEST(Encode, NoLineEndGetsIntoTheFirstLine)
{
    record::SquareData data = order2();
    data.setIdentifier("uno\r\ndos\n");
    EXPECT_EQ(line(data, 1), QByteArray("unodos"));
    data.setIdentifier("\r\n");
    EXPECT_EQ(square::encode(data, utf8("/tmp/a\n\x01.asc")).bytes.split('\r').constFirst(),
              QByteArray("Exported by NTabED component: /tmp/a.asc"));
}

TEST(Encode, WritesAttributes)
{
    record::SquareData data = order2();
    data.setRowAttribute(1, 255);
    data.setRowAttribute(2, 7);
    EXPECT_TRUE(line(data, 6).startsWith("255\tR-1\t "));
    EXPECT_TRUE(line(data, 7).startsWith("7\tR-2\t "));
}

TEST(Encode, OnlyNamesWithABlankAreQuoted)
{
    EXPECT_EQ(written("Col 1"), QByteArray("\"Col 1\""));
    EXPECT_EQ(written("Col-1"), QByteArray("Col-1"));
    EXPECT_EQ(written("Año 1"), QByteArray("\"A\xC3\xB1o 1\""));
    EXPECT_EQ(written("a;b"), QByteArray("a;b"));
    EXPECT_EQ(written("a\u00A0b"), QByteArray("a\xC2\xA0"
                                              "b")); // a hard blank is none
}

TEST(Encode, BlanksAtTheEndsAndControlCharactersAreDropped)
{
    EXPECT_EQ(written("  Col 1 "), QByteArray("\"Col 1\""));
    EXPECT_EQ(written(" Col "), QByteArray("Col"));
    EXPECT_EQ(written("a\tb\r\n\x01 c"), QByteArray("\"ab c\""));
    EXPECT_EQ(handedBack(utf8(" \t Col\x7F 1\u0085 ")), utf8("Col 1"));
}

TEST(Encode, QuotesAreDoubled)
{
    EXPECT_EQ(written("a\"b"), QByteArray("a\"\"b"));
    EXPECT_EQ(written("\""), QByteArray("\"\""));
    EXPECT_EQ(written("\"a\""), QByteArray("\"\"a\"\""));
    EXPECT_EQ(written("5\"x 3"), QByteArray("\"5\"\"x 3\""));
    EXPECT_EQ(handedBack(utf8("5\"x 3")), utf8("5\"x 3"));
}

TEST(Encode, QuotesThatWouldEndTheNameEarlyAreDropped)
{
    EXPECT_EQ(written("a\" b"), QByteArray("\"a b\""));
    EXPECT_EQ(written("\" a\""), QByteArray("a"));
    EXPECT_EQ(written("Ensayo \"A\" de \"B\""), QByteArray("\"Ensayo A de B\""));
    EXPECT_EQ(handedBack(utf8("a\" b")), utf8("a b"));
}

TEST(Encode, ANameOfWhichNothingIsLeftIsTheDefaultName)
{
    for (const char* name : {"", " ", "    ", "\t\r\n", "\" \"", " \"\" \"", "\x7F"}) {
        EXPECT_EQ(written(name), QByteArray("C-1")) << name;
        EXPECT_EQ(handedBack(utf8(name)), utf8("R-2")) << name;
    }
}

TEST(Encode, NamesAreCutToFiftyCharactersAndHandedBack)
{
    EXPECT_EQ(handedBack(QString(60, u'x')), QString(50, u'x'));
    EXPECT_EQ(handedBack(QString(49, u'x') + utf8("🌾")), QString(49, u'x'));
    EXPECT_EQ(handedBack(utf8("  ") + QString(48, u'x')), QString(48, u'x'));
    EXPECT_EQ(handedBack(QString(49, u'x') + utf8(" y")), QString(49, u'x'));
}

TEST(Encode, WhatUtf8CannotCarryIsNotHandedBackEither)
{
    for (const QString& name :
         {QString(QChar(0xD83C)), QString(QChar(0xDF3E)) + u'a', utf8("\uFEFFmarca"),
          utf8("\uFEFF"), utf8("\uFEFF\uFEFFdos"), utf8(" \uFEFFtras un blanco")}) {
        record::SquareData data = order2();
        data.setColumnName(1, name);
        const square::EncodedSquare encoded = square::encode(data, QString());
        const square::DecodedSquare read = square::decode(encoded.bytes);
        ASSERT_EQ(read.code, square::Usable);
        EXPECT_EQ(columnNames(*read.data), encoded.columnNames);
        EXPECT_EQ(observations(*read.data), observations(data));
    }
}

TEST(Encode, ObservationsHaveEightDigits)
{
    record::SquareData data = order2();
    data.setValue(1, 1, 123456789.0);
    data.setValue(2, 1, -1.0 / 3.0);
    EXPECT_EQ(line(data, 6), QByteArray("0\tR-1\t 1.2345679E+0008\t-3.3333333E-0001"));
    EXPECT_EQ(square::encode(data, QString(), 4).bytes.split('\n').value(5),
              QByteArray("0\tR-1\t 1.235E+0008\t-3.333E-0001\r"));
}

TEST(Encode, TheEndsOfTheDoublesStayReadable)
{
    record::SquareData data = order2();
    data.setValue(1, 1, std::numeric_limits<double>::max());
    data.setValue(2, 1, -std::numeric_limits<double>::max());
    data.setValue(1, 2, std::numeric_limits<double>::denorm_min());
    data.setValue(2, 2, std::numeric_limits<double>::min());
    const square::DecodedSquare read = square::decode(square::encode(data, QString()).bytes);
    ASSERT_EQ(read.code, square::Usable);
    for (std::size_t cell = 0; cell < 4; ++cell) {
        // Rounding to 8 digits moves a value by at most half a unit of its eighth digit.
        const double value = observations(data)[cell];
        EXPECT_NEAR(observations(*read.data)[cell] / value, 1.0, 5e-8);
    }
}

TEST(Encode, TellsWhetherEightDigitsAreEnough)
{
    record::SquareData data = order2();
    EXPECT_FALSE(square::encode(data, QString()).rounded);
    for (const double value : {12345678.0, -0.00012345678, 2.75, 0.1, 1e300, 0.0, -0.0}) {
        data.setValue(2, 2, value);
        EXPECT_FALSE(square::encode(data, QString()).rounded) << value;
    }
    for (const double value : {123456789.0, 1.0 / 3.0, 1000000000.2, 0.1 + 0.2}) {
        data.setValue(2, 2, value);
        EXPECT_TRUE(square::encode(data, QString()).rounded) << value;
    }
    EXPECT_TRUE(square::encode(data, QString(), 16).rounded);
    EXPECT_FALSE(square::encode(data, QString(), 17).rounded);
}

TEST(Encode, AFileThatWasReadIsWrittenUnchanged)
{
    for (const QByteArray& bytes : {ofOrder3(), ofOrder5(), bare()})
        EXPECT_FALSE(square::encode(*square::decode(bytes).data, QString()).rounded);
}
