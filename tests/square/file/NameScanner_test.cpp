// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/NameScanner.h"

#include <gtest/gtest.h>

#include <QByteArrayList>

namespace {

/// The names that a text gives, ended or not.
QByteArrayList namesOf(const QByteArray& text)
{
    square::NameScanner scanner;
    QByteArrayList names;
    for (const char character : text) {
        if (scanner.take(character))
            names += scanner.text();
    }
    if (scanner.insideName())
        names += scanner.text();
    return names;
}

using Words = QByteArrayList;

} // namespace

TEST(NameScanner, BareNamesEndAtAnySpace)
{
    EXPECT_EQ(namesOf("uno dos\ttres\r\ncuatro\x01"
                      "cinco"),
              Words({"uno", "dos", "tres", "cuatro", "cinco"}));
    EXPECT_EQ(namesOf(" \t\r\n"), Words());
    EXPECT_EQ(namesOf("\t a \t"), Words({"a"}));
}

TEST(NameScanner, QuotedNamesKeepTheirSpaces)
{
    EXPECT_EQ(namesOf("\t\"Col 1\"\t\"Col 2\"\r\n"), Words({"Col 1", "Col 2"}));
    EXPECT_EQ(namesOf("\"a\tb\nc\" d"), Words({"a\tb\nc", "d"}));
}

TEST(NameScanner, DoubledQuotesReadAsOneInABareNameAndAsNoneInAQuotedOne)
{
    EXPECT_EQ(namesOf("a\"\"b"), Words({"a\"b"}));
    EXPECT_EQ(namesOf("\"\"a\"\" b"), Words({"\"a\"", "b"}));
    EXPECT_EQ(namesOf("\"\" \"\"\"\" "), Words({"\"", "\"\""}));
    EXPECT_EQ(namesOf("\"a b\"\"c\""), Words({"a bc"}));
}

TEST(NameScanner, ASpaceRightAfterAnOpeningQuoteEndsTheName)
{
    EXPECT_EQ(namesOf("\" a"), Words({"", "a"}));
    EXPECT_EQ(namesOf("\"a\"\" b\""), Words({"a", "b"}));
}

TEST(NameScanner, AQuoteInABareNameOpensAQuotedPart)
{
    EXPECT_EQ(namesOf("a\"b c\"d e"), Words({"ab cd", "e"}));
    EXPECT_EQ(namesOf("\"a b\"c d"), Words({"a bc", "d"}));
}

TEST(NameScanner, BytesAbove127AreNoSpaces)
{
    EXPECT_EQ(namesOf("A\xC3\xB1o\xC2\xA0"
                      "1\xFF fin"),
              Words({"A\xC3\xB1o\xC2\xA0"
                     "1\xFF",
                     "fin"}));
}

TEST(NameScanner, TheTextSoFarIsThereAfterEveryCharacter)
{
    square::NameScanner scanner;
    const QByteArray text = "\"a b\"";
    const QByteArrayList soFar = {"", "a", "a ", "a b", "a b"};
    for (qsizetype i = 0; i < text.size(); ++i) {
        EXPECT_FALSE(scanner.take(text.at(i)));
        EXPECT_EQ(scanner.text(), soFar.at(i));
    }
    EXPECT_TRUE(scanner.take(' '));
    EXPECT_EQ(scanner.text(), QByteArray("a b"));
    EXPECT_FALSE(scanner.insideName());
    EXPECT_FALSE(scanner.take(' '));
    EXPECT_EQ(scanner.text(), QByteArray());
}
