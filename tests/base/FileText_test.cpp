// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileText.h"

#include "support/Text.h"

#include <gtest/gtest.h>

TEST(FileText, ValidUtf8IsUtf8)
{
    EXPECT_EQ(base::decodedText("Parcela n\xC3\xBAm. 1"), QStringLiteral("Parcela núm. 1"));
    EXPECT_EQ(base::decodedText(""), QString());
}

TEST(FileText, AnythingElseIsWindows1252)
{
    EXPECT_EQ(base::decodedText("Parcela n\xFAm. 1"), QStringLiteral("Parcela núm. 1"));
    EXPECT_EQ(base::decodedText("\x80 5 \x96 \x99"), QStringLiteral("€ 5 – ™"));
    EXPECT_EQ(base::decodedText("a\xC3"), QStringLiteral("aÃ")); // a cut UTF-8 sequence
}

TEST(FileText, ControlCharactersAreDropped)
{
    EXPECT_EQ(base::withoutControlCharacters(QStringLiteral("a\tb\r\nc\u0085d\u007Fñ")),
              QStringLiteral("abcdñ"));
}
