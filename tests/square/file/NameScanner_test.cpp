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

using Names = QByteArrayList;

} // namespace

TEST(NameScanner, BareNamesEndAtAnySpace)
{
    EXPECT_EQ(namesOf("uno dos\ttres\r\ncuatro\x01"
                      "cinco"),
              Names({"uno", "dos", "tres", "cuatro", "cinco"}));
    EXPECT_EQ(namesOf(" \t\r\n"), Names());
    EXPECT_EQ(namesOf("\t a \t"), Names({"a"}));
}

TEST(NameScanner, QuotedNamesKeepTheirSpaces)
{
    EXPECT_EQ(namesOf("\t\"Col 1\"\t\"Col 2\"\r\n"), Names({"Col 1", "Col 2"}));
    EXPECT_EQ(namesOf("\"a\tb\nc\" d"), Names({"a\tb\nc", "d"}));
}

TEST(NameScanner, DoubledQuotesReadAsOneInABareNameAndAsNoneInAQuotedOne)
{
    EXPECT_EQ(namesOf("a\"\"b"), Names({"a\"b"}));
    EXPECT_EQ(namesOf("\"\"a\"\" b"), Names({"\"a\"", "b"}));
    EXPECT_EQ(namesOf("\"\" \"\"\"\" "), Names({"\"", "\"\""}));
    EXPECT_EQ(namesOf("\"a b\"\"c\""), Names({"a bc"}));
}

TEST(NameScanner, ASpaceRightAfterAnOpeningQuoteEndsTheName)
{
    EXPECT_EQ(namesOf("\" a"), Names({"", "a"}));
    EXPECT_EQ(namesOf("\"a\"\" b\""), Names({"a", "b"}));
}

TEST(NameScanner, AQuoteInABareNameOpensAQuotedPart)
{
    EXPECT_EQ(namesOf("a\"b c\"d e"), Names({"ab cd", "e"}));
    EXPECT_EQ(namesOf("\"a b\"c d"), Names({"a bc", "d"}));
}

TEST(NameScanner, BytesAbove127AreNoSpaces)
{
    EXPECT_EQ(namesOf("A\xC3\xB1o\xC2\xA0"
                      "1\xFF fin"),
              Names({"A\xC3\xB1o\xC2\xA0"
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
