// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"

#include "support/SpecialNumbers.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <bit>
#include <cmath>
#include <optional>
#include <random>

namespace {

class NumberText : public ::testing::Test {
    UserLocale m_point{"C"};
};

} // namespace

TEST_F(NumberText, GeneralFormIsTheShortestTextOfAtMostFifteenDigits)
{
    EXPECT_EQ(base::generalText(0.05), text("0.05"));
    EXPECT_EQ(base::generalText(0.1 + 0.2), text("0.3"));
    EXPECT_EQ(base::generalText(1.0 / 3.0), text("0.333333333333333"));
    EXPECT_EQ(base::generalText(-24.0), text("-24"));
    EXPECT_EQ(base::generalText(120000.0), text("120000"));
    EXPECT_EQ(base::generalText(0.0), text("0"));
    EXPECT_EQ(base::generalText(-0.0), text("0"));
}

TEST_F(NumberText, GeneralFormTurnsScientificAtItsTwoEnds)
{
    EXPECT_EQ(base::generalText(1e-5), text("0.00001"));
    EXPECT_EQ(base::generalText(9.99e-6), text("9.99E-6"));
    EXPECT_EQ(base::generalText(1e-6), text("1E-6"));
    EXPECT_EQ(base::generalText(999999999999999.0), text("999999999999999"));
    EXPECT_EQ(base::generalText(1e15), text("1E15"));
    EXPECT_EQ(base::generalText(1.5e15), text("1.5E15"));
    EXPECT_EQ(base::generalText(-2.5e300), text("-2.5E300"));
    EXPECT_EQ(base::generalText(999999999999999.9), text("1E15"));
}

TEST_F(NumberText, WhatIsNotFiniteHasANameInEveryForm)
{
    for (const auto form : {base::generalText, base::fullText, base::tableText}) {
        EXPECT_EQ(form(notANumber), text("NAN"));
        EXPECT_EQ(form(infinity), text("INF"));
        EXPECT_EQ(form(-infinity), text("-INF"));
    }
    EXPECT_EQ(base::fixedText(notANumber, 3), text("NAN"));
}

TEST_F(NumberText, FullTextReadsBackAsTheSameDouble)
{
    EXPECT_EQ(base::fullText(0.1 + 0.2), text("0.30000000000000004"));
    EXPECT_EQ(base::fullText(24.0), text("24"));
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        ASSERT_EQ(base::readTypedNumber(base::fullText(value)).value, value);
    }
}

TEST_F(NumberText, TableFormHasAtMostTwoDecimalsAndForcesNoDigit)
{
    EXPECT_EQ(base::tableText(12345.678), text("12345.68"));
    EXPECT_EQ(base::tableText(68.0), text("68"));
    EXPECT_EQ(base::tableText(7.7344), text("7.73"));
    EXPECT_EQ(base::tableText(12.5), text("12.5"));
    EXPECT_EQ(base::tableText(0.5), text(".5"));
    EXPECT_EQ(base::tableText(-0.5), text("-.5"));
    EXPECT_EQ(base::tableText(0.05), text(".05"));
    EXPECT_EQ(base::tableText(120.0), text("120"));
}

TEST_F(NumberText, TableFormRoundsHalfUpOnTheDecimalText)
{
    EXPECT_EQ(base::tableText(2.675), text("2.68"));
    EXPECT_EQ(base::tableText(1.005), text("1.01"));
    EXPECT_EQ(base::tableText(-1.005), text("-1.01"));
    EXPECT_EQ(base::tableText(0.995), text("1"));
    EXPECT_EQ(base::tableText(99.995), text("100"));
    EXPECT_EQ(base::tableText(0.005), text(".01"));
    EXPECT_EQ(base::tableText(1.00499999999999), text("1"));
}

TEST_F(NumberText, TableFormOfZeroHasNoSign)
{
    EXPECT_EQ(base::tableText(0.0), text("0"));
    EXPECT_EQ(base::tableText(-0.0), text("0"));
    EXPECT_EQ(base::tableText(-0.00499), text("0"));
    EXPECT_EQ(base::tableText(1e-300), text("0"));
}

TEST_F(NumberText, TableFormTurnsGeneralForHugeNumbers)
{
    EXPECT_EQ(base::tableText(123456789012345.0), text("123456789012345"));
    EXPECT_EQ(base::tableText(99999999999999.99), text("100000000000000"));
    EXPECT_EQ(base::tableText(1e15), text("1E15"));
    EXPECT_EQ(base::tableText(-1.5e20), text("-1.5E20"));
}

TEST_F(NumberText, TableFormRoundsADecimalOfAnyLengthOnce)
{
    using base::Decimal;
    // A double beside it has 16 digits, of which 15 would round twice.
    EXPECT_EQ(base::tableText(Decimal{false, "123456789012344999", 11}), text("123456789012.34"));
    EXPECT_EQ(base::tableText(Decimal{true, "123456789012345000", 11}), text("-123456789012.35"));
    EXPECT_EQ(base::tableText(Decimal{false, "12345678901234567", 14}), text("123456789012345.67"));
    EXPECT_EQ(base::tableText(Decimal{}), text("0"));
    EXPECT_EQ(base::tableText(Decimal{true, "4", -3}), text("0"));
    EXPECT_EQ(base::tableText(Decimal{false, "5", -3}), text(".01"));
    EXPECT_EQ(base::tableText(Decimal{false, "15555555555555549", 600}),
              text("1.55555555555555E600"));
    EXPECT_EQ(base::tableText(Decimal{false, "9999999999999995", 20}), text("1E21"));
    EXPECT_EQ(base::tableText(Decimal{true, "15", 20}), text("-1.5E20"));
}

TEST_F(NumberText, FixedTextShowsItsDecimals)
{
    EXPECT_EQ(base::fixedText(24.0, 3), text("24.000"));
    EXPECT_EQ(base::fixedText(-0.0004, 3), text("0.000"));
    EXPECT_EQ(base::fixedText(-0.0006, 3), text("-0.001"));
    EXPECT_EQ(base::fixedText(-24.0, -1), text("-24"));
    EXPECT_EQ(base::fixedText(2.5, 0), text("2"));
    EXPECT_EQ(base::fixedText(1e15, 3), text("1E15"));
}

TEST_F(NumberText, ScientificFieldIsSixteenWideAtPrecisionEight)
{
    EXPECT_EQ(base::scientificField(24.0, 8), QByteArray(" 2.4000000E+0001"));
    EXPECT_EQ(base::scientificField(-0.000123456789, 8), QByteArray("-1.2345679E-0004"));
    EXPECT_EQ(base::scientificField(0.0, 8), QByteArray(" 0.0000000E+0000"));
    EXPECT_EQ(base::scientificField(1e-308, 8), QByteArray(" 1.0000000E-0308"));
}

TEST_F(NumberText, ScientificFieldOfTheLargestNumbersIsANumber)
{
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(base::scientificField(largest, 8), QByteArray(" 1.7976931E+0308"));
    EXPECT_EQ(base::scientificField(-largest, 2), QByteArray("-1.7E+0308"));
    EXPECT_EQ(base::scientificField(1.76e308, 2), QByteArray(" 1.7E+0308"));
    EXPECT_EQ(base::scientificField(1.74e308, 2), QByteArray(" 1.7E+0308"));
    EXPECT_EQ(base::scientificField(largest, 16), QByteArray(" 1.797693134862315E+0308"));
    EXPECT_EQ(base::scientificField(largest, 17), QByteArray(" 1.7976931348623157E+0308"));
}

TEST_F(NumberText, TheUsersDecimalSignIsInEveryTextButTheFiles)
{
    const UserLocale comma("es_ES");
    EXPECT_EQ(base::generalText(1234567.25), text("1234567,25"));
    EXPECT_EQ(base::generalText(1.5e15), text("1,5E15"));
    EXPECT_EQ(base::tableText(0.5), text(",5"));
    EXPECT_EQ(base::fixedText(24.0, 3), text("24,000"));
    EXPECT_EQ(base::scientificField(2.5, 8), QByteArray(" 2.5000000E+0000"));
}

TEST_F(NumberText, DecimalSignFollowsTheLocaleAndIsAlwaysOneThatCanBeTyped)
{
    const std::pair<const char*, const char*> cases[] = {
        {"es_ES", ","}, {"de_DE", ","}, {"es_MX", "."}, {"en_US", "."}, {"ar_EG", "."}};
    for (const auto& [locale, sign] : cases) {
        const UserLocale user(locale);
        EXPECT_EQ(base::decimalSeparator(), text(sign)) << locale;
    }
}

TEST_F(NumberText, TypedNumbersFollowOneRuleInEveryLocale)
{
    const std::pair<const char*, double> cases[] = {
        {"24", 24.0},     {" 2,75 ", 2.75},   {"2.75", 2.75},   {"-0,5", -0.5},  {"+3", 3.0},
        {".5", 0.5},      {",5", 0.5},        {"5.", 5.0},      {"1e3", 1000.0}, {"1,5E-2", 0.015},
        {"0.123", 0.123}, {"12.345", 12.345}, {"1,234", 1.234}, {"\t7\t", 7.0},  {"1e-400", 0.0},
    };
    for (const char* locale : {"C", "es_ES", "es_MX", "es_AR", "de_DE"}) {
        const UserLocale user(locale);
        for (const auto& [typed, value] : cases) {
            const base::Outcome<double> number = base::readTypedNumber(text(typed));
            EXPECT_EQ(number.value, value) << typed << " in " << locale;
            EXPECT_TRUE(number.reason.isEmpty()) << typed;
        }
    }
}

TEST_F(NumberText, AnythingElseIsRefusedWithAReason)
{
    for (const char* typed : {"1.234,5", "1,234.5", "1.2.3", "1,,2"}) {
        const base::Outcome<double> number = base::readTypedNumber(text(typed));
        EXPECT_FALSE(number.value) << typed;
        EXPECT_TRUE(number.reason.contains(text("más de un separador decimal"))) << typed;
    }
    for (const char* typed : {"doce", "1 2", "1e", "e5", "--1", "+-1", "0x10", "nan", "inf",
                              "1e5.5", "1f", ".", ",", "-", "1-", "٣"}) {
        const base::Outcome<double> number = base::readTypedNumber(text(typed));
        EXPECT_FALSE(number.value) << typed;
        EXPECT_TRUE(number.reason.contains(text("no es un número"))) << typed;
    }
    EXPECT_EQ(base::readTypedNumber(text("  ")).reason, text("Falta el número."));
    for (const char* typed : {"1e309", "-1e400", "1e99999999999999999999"})
        EXPECT_TRUE(base::readTypedNumber(text(typed)).reason.contains(text("demasiado grande")))
            << typed;
}

TEST_F(NumberText, NothingIsLeftOutBehindACharacterOfCodeZero)
{
    const QString typed = text("5") + QChar(0) + text("7");
    EXPECT_FALSE(base::readTypedNumber(typed).value);
    EXPECT_FALSE(base::readTypedNumber(typed.left(2)).value);
}

TEST_F(NumberText, ALongTextIsJudgedWholeAndQuotedByItsBeginning)
{
    const auto reason = [](const QString& typed) { return base::readTypedNumber(typed).reason; };
    EXPECT_EQ(reason(QString(400, u'9')),
              text("«") + QString(40, u'9') + text("…» es demasiado grande."));
    EXPECT_EQ(reason(text("1,") + QString(50, u'0') + text("e999")),
              text("«1,") + QString(38, u'0') + text("…» es demasiado grande."));
    EXPECT_EQ(reason(QString(50, u'9') + text(".1.1")),
              text("«") + QString(40, u'9') +
                  text("…» tiene más de un separador decimal. Escriba el número sin separador de "
                       "miles y con una sola coma o un solo punto."));
    EXPECT_EQ(reason(QString(100, u'x')),
              text("«") + QString(40, u'x') + text("…» no es un número."));
}

TEST_F(NumberText, PlainNumbersTakeOnlyAPoint)
{
    EXPECT_EQ(base::readPlainNumber("+2.5"), 2.5);
    EXPECT_EQ(base::readPlainNumber("2.4000000E+0001"), 24.0);
    EXPECT_FALSE(base::readPlainNumber("2,5"));
    EXPECT_FALSE(base::readPlainNumber(" 2.5"));
    EXPECT_FALSE(base::readPlainNumber(""));
}

TEST_F(NumberText, OutOfRangeIsToldFromUnderflowByTheWholeNumber)
{
    const std::string hugeDigits(400, '9');
    EXPECT_FALSE(base::readPlainNumber(hugeDigits + "e-5"));
    EXPECT_EQ(base::readPlainNumber("0." + std::string(400, '0') + "1e+5"), 0.0);
    EXPECT_EQ(base::readPlainNumber(hugeDigits + "e-800"), 0.0);
    EXPECT_FALSE(base::readPlainNumber("0.001e400"));
    // Exponents at the ends of 64 bits, which the digits before them push over.
    EXPECT_FALSE(base::readPlainNumber("10e9223372036854775807"));
    EXPECT_EQ(base::readPlainNumber("0.001e-9223372036854775808"), 0.0);
    EXPECT_FALSE(base::readPlainNumber("-1e+9223372036854775808"));
    const std::optional<double> smallest = base::readPlainNumber("-1e-9223372036854775809");
    ASSERT_EQ(smallest, 0.0);
    EXPECT_TRUE(std::signbit(*smallest));
}
