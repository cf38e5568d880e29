// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/TickLabels.h"

#include "chart/scale/RangeOf.h"

#include "chart/scale/DateTimeScale.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <cmath>

using chart::AxisRange;
using chart::LabelFormat;
using chart::LabelType;
using chart::numberLabel;

namespace {

std::vector<QString> labelsOf(const AxisRange& range, const LabelFormat& format, int intervals = 4)
{
    return tickLabels(linearTicks(range, intervals, false), range, format);
}

class TickLabels : public ::testing::Test {
    UserLocale m_point{"C"};
};

/// The message that an axis is refused with; empty when it is taken.
std::string refusal(const AxisRange& range)
{
    try {
        chart::requireDateTimeRange(range);
    } catch (const chart::ChartError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST_F(TickLabels, NumbersHaveTheAxisDecimals)
{
    EXPECT_EQ(numberLabel(0.5L, 1.0L, 3), text("0.500"));
    EXPECT_EQ(numberLabel(-2.0L, 10.0L, 0), text("-2"));
    EXPECT_EQ(numberLabel(1.23456789L, 10.0L, 12), text("1.234567890000"));
}

TEST_F(TickLabels, NegativeDecimalsRoundToTensAndMore)
{
    EXPECT_EQ(numberLabel(1234.0L, 5000.0L, -1), text("1230"));
    EXPECT_EQ(numberLabel(1234.0L, 5000.0L, -2), text("1200"));
    EXPECT_EQ(numberLabel(-1734.0L, 5000.0L, -3), text("-2000"));
    EXPECT_EQ(numberLabel(-3.0L, 5000.0L, -3), text("0"));
}

TEST_F(TickLabels, LongNumbersKeepTheirFirstFourteenCharacters)
{
    EXPECT_EQ(numberLabel(123456789.0L, 1e9L, 12), text("123456789.0000"));
    EXPECT_EQ(numberLabel(-0.123456789012L, 1.0L, 12), text("-0.12345678901"));
}

TEST_F(TickLabels, ZeroButForRoundingIsZeroOnAWideAxis)
{
    EXPECT_EQ(numberLabel(1e-10L, 1000000.0L, 3), text("0.0"));
    EXPECT_EQ(numberLabel(1e-10L, 1000000.0L, 0), text("0"));
    EXPECT_EQ(numberLabel(1e-10L, -1000000.0L, -2), text("0.0"));
    // Up to a width of 100000 it is formatted like the others.
    EXPECT_EQ(numberLabel(1e-10L, 100000.0L, 3), text("0.000"));
    EXPECT_EQ(numberLabel(-1e-20L, 1.0L, 2), text("0.00"));
    // 1e-14 of the width is still a value.
    EXPECT_EQ(numberLabel(1e-8L, 1000000.0L, 9), text("0.000000010"));
}

TEST_F(TickLabels, UseTheUsersDecimalSeparator)
{
    const UserLocale comma("es_ES");
    EXPECT_EQ(numberLabel(0.25L, 1.0L, 2), text("0,25"));
    EXPECT_EQ(numberLabel(0.0L, 1e6L, 2), text("0,0"));
}

TEST_F(TickLabels, EachTickHasItsOwn)
{
    const LabelFormat format{LabelType::ftNum, 1, {}, {}};
    EXPECT_EQ(
        labelsOf(rangeOf(-1.0, 1.0), format),
        (std::vector<QString>{text("-1.0"), text("-0.5"), text("0.0"), text("0.5"), text("1.0")}));
}

TEST_F(TickLabels, WouldBeAlikeAndGetMoreDecimals)
{
    EXPECT_EQ(labelsOf(rangeOf(0.142, 0.144), {LabelType::ftNum, 2, {}, {}}),
              (std::vector<QString>{text("0.1420"), text("0.1425"), text("0.1430"), text("0.1435"),
                                    text("0.1440")}));
    EXPECT_EQ(labelsOf(rangeOf(-2.0, 2.0), {LabelType::ftNum, -1, {}, {}}),
              (std::vector<QString>{text("-2"), text("-1"), text("0"), text("1"), text("2")}));
    // As far as labels have characters.
    const std::vector<QString> last =
        labelsOf(rangeOf(0.5, 0.5 + 1e-14), {LabelType::ftNum, 3, {}, {}});
    EXPECT_EQ(last.front(), text("0.50000000000"));
}

TEST_F(TickLabels, NoFiguresAreNoTexts)
{
    for (const QString& label : labelsOf(rangeOf(0.0, 4.0), {LabelType::ftNoFigs, 1, {}, {}}))
        EXPECT_EQ(label, QString());
}

TEST_F(TickLabels, UserTextsGoByTheNumberOfTheTick)
{
    const LabelFormat format{
        LabelType::ftUserText, 1, {}, {text("uno"), text(" dos\n"), text("tres")}};
    EXPECT_EQ(labelsOf(rangeOf(0.0, 4.0), format),
              (std::vector<QString>{text("uno"), text("dos"), text("tres"), QString(), QString()}));
}

TEST_F(TickLabels, DecadesAreWrittenInTheGeneralForm)
{
    const AxisRange range = rangeOf(1e-6, 1000.0, true);
    const LabelFormat format{LabelType::ftNum, 2, {}, {}};
    const std::vector<QString> labels = tickLabels(logarithmicTicks(range, 8, true), range, format);
    EXPECT_EQ(labels.front(), text("1E-6"));
    EXPECT_EQ(labels[1], text("0.00001"));
    EXPECT_EQ(labels.back(), text("1000"));
}

TEST_F(TickLabels, DatesFollowTheirFormat)
{
    const LabelFormat format{LabelType::ftDateTime, 2, text("dd/MM/yy HH:mm"), {}};
    const AxisRange range = rangeOf(45000.0, 45001.0); // 15 March 2023
    EXPECT_EQ(tickLabels(chart::dateTimeTicks(range, 4, false), range, format),
              (std::vector<QString>{text("15/03/23 00:00"), text("15/03/23 06:00"),
                                    text("15/03/23 12:00"), text("15/03/23 18:00"),
                                    text("16/03/23 00:00")}));
    EXPECT_EQ(chart::dateTimeText(0.0L, text("yyyy-MM-dd")), text("1899-12-30"));
    EXPECT_EQ(chart::dateTimeText(3e6L, text("yyyy")), QString());
}

TEST(DateTimeScale, RefusesWhatHoldsNoDates)
{
    EXPECT_EQ(refusal(rangeOf(0.0, 10.0)), "");
    EXPECT_EQ(refusal(rangeOf(10.0, 0.0)), "");
    EXPECT_EQ(refusal(rangeOf(-693593.0, 2958465.0)), "");
    EXPECT_EQ(refusal(rangeOf(-693594.0, 0.0)), "invalid DateTime scale");
    EXPECT_EQ(refusal(rangeOf(0.0, 2958466.0)), "invalid DateTime scale");
    EXPECT_EQ(refusal(rangeOf(1.0, 10.0, true)), "invalid DateTime scale");
}

TEST(DateTimeScale, RefusesLessThanASecond)
{
    EXPECT_EQ(refusal(rangeOf(45000.0, 45000.0 + 1.0 / 86400)), "");
    EXPECT_EQ(refusal(rangeOf(45000.0, 45000.0 + 0.99 / 86400)),
              "DateTime range is below 1 second");
}
