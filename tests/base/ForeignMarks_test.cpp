// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ForeignMarks.h"

#include "base/NumberText.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

namespace {

QString noticeOf(const QStringList& texts)
{
    base::ForeignMarks marks;
    for (const QString& text : texts)
        marks.look(text, base::readTypedNumber(text).value.value());
    return marks.notice();
}

QString noticeOf(const char* text)
{
    return noticeOf(QStringList(QString::fromLatin1(text)));
}

} // namespace

TEST(ForeignMarks, AreThoseThatCouldSetThousandsApart)
{
    const UserLocale spanish("es_ES");
    EXPECT_EQ(noticeOf("1.250"), QStringLiteral("«1.250» se leyó como 1,25"));
    EXPECT_EQ(noticeOf(" -12.345 "), QStringLiteral("«-12.345» se leyó como -12,345"));
    EXPECT_EQ(noticeOf("-1.250"), QStringLiteral("«-1.250» se leyó como -1,25"));
    EXPECT_EQ(noticeOf("+999.000"), QStringLiteral("«+999.000» se leyó como 999"));
    for (const char* plain : {"1,250", "1.25", "1.2500", "1250.000", "0.250", "1.250e3", "1.2e3",
                              ".250", "125", "1.", "-.125", "0"})
        EXPECT_EQ(noticeOf(plain), QString()) << plain;
}

TEST(ForeignMarks, AreCommasWhereDecimalsFollowAPoint)
{
    const UserLocale mexican("es_MX");
    EXPECT_EQ(noticeOf("1,250"), QStringLiteral("«1,250» se leyó como 1.25"));
    EXPECT_EQ(noticeOf("1.250"), QString());
}

TEST(ForeignMarks, SeveralAreCountedAfterTheFirst)
{
    const UserLocale spanish("es_ES");
    EXPECT_EQ(noticeOf({QStringLiteral("7"), QStringLiteral("2.500"), QStringLiteral("1.250"),
                        QStringLiteral("3,5"), QStringLiteral("4.000")}),
              QStringLiteral("«2.500» se leyó como 2,5 (el primero de 3 números así)"));
}
