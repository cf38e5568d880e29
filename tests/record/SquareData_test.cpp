// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/SquareData.h"

#include "support/Text.h"

#include <gtest/gtest.h>

using record::CellBox;

TEST(SquareData, StartsWithDefaults)
{
    const record::SquareData data(3, 2);
    EXPECT_EQ(data.NrOfColumns(), 3);
    EXPECT_EQ(data.NrOfRows(), 2);
    EXPECT_EQ(data.Identifier(), QByteArray());
    EXPECT_EQ(data.columnName(3), QStringLiteral("C-3"));
    EXPECT_EQ(data.rowName(2), QStringLiteral("R-2"));
    EXPECT_EQ(data.rowAttribute(2), 0);
    EXPECT_EQ(data.value(3, 2), 0.0);
}

TEST(SquareData, OutsideTheSquareThereIsNothingToReadOrWrite)
{
    record::SquareData data(3, 2);
    for (const int column : {-1, 0, 4}) {
        data.setColumnName(column, QStringLiteral("fuera"));
        data.setValue(column, 1, 9.0);
        EXPECT_EQ(data.columnName(column), QString()) << column;
        EXPECT_EQ(data.value(column, 1), 0.0) << column;
    }
    for (const int row : {-1, 0, 3}) {
        data.setRowName(row, QStringLiteral("fuera"));
        data.setRowAttribute(row, 7);
        data.setValue(1, row, 9.0);
        EXPECT_EQ(data.rowName(row), QString()) << row;
        EXPECT_EQ(data.rowAttribute(row), 0) << row;
        EXPECT_EQ(data.value(1, row), 0.0) << row;
    }
    EXPECT_EQ(data.names(), record::Names());
    data.resize(4, 3);
    EXPECT_EQ(data.columnName(4), QStringLiteral("C-4"));
    EXPECT_EQ(data.rowName(3), QStringLiteral("R-3"));
    EXPECT_EQ(data.rowAttribute(3), 0);
    EXPECT_EQ(data.value(4, 3), 0.0);
}

TEST(SquareData, NamesAreCutToFiftyCharacters)
{
    record::SquareData data(3, 3);
    const QString fifty(50, QLatin1Char('x'));
    data.setColumnName(1, fifty);
    EXPECT_EQ(data.columnName(1), fifty);
    data.setColumnName(1, fifty + QLatin1Char('y'));
    EXPECT_EQ(data.columnName(1), fifty);
    data.setRowName(1, QString(49, QLatin1Char('x')) + QStringLiteral("\U0001F33D"));
    EXPECT_EQ(data.rowName(1), QString(49, QLatin1Char('x'))); // no half of a pair is left
    const QString loneHalf = QString(49, QLatin1Char('x')) + QChar(0xD83C);
    data.setRowName(1, loneHalf);
    EXPECT_EQ(data.rowName(1), loneHalf); // nothing is cut, so no pair either
    data.setRowName(1, QString());
    EXPECT_EQ(data.rowName(1), QString());
    data.setRowName(1, QStringLiteral("R-1"));
    EXPECT_EQ(data.rowName(1), QStringLiteral("R-1"));
}

TEST(SquareData, WhatASmallerSizeHidesIsReachedInStoreAlone)
{
    record::SquareData data(3, 3);
    data.setValue(3, 3, 33.0);
    data.resize(2, 2);
    data.setValue(3, 3, 5.0);
    EXPECT_EQ(data.value(3, 3), 0.0);
    EXPECT_EQ(data.store().at(3, 3), 33.0);
    data.store().set(3, 2, 32.0);
    data.resize(4, 4);
    EXPECT_EQ(data.value(3, 3), 33.0);
    EXPECT_EQ(data.value(3, 2), 32.0);
    EXPECT_EQ(data.value(4, 4), 0.0);
}

TEST(SquareData, SizesThatCannotBeHadAreNamed)
{
    const QString dimensions = QStringLiteral("array dimensions zero or negative");
    const QString memory = QStringLiteral("NTABED: not enough memory on heap");
    EXPECT_EQ(record::sizeProblem(1, 1), QString());
    EXPECT_EQ(record::sizeProblem(4000, 4000), QString());
    EXPECT_EQ(record::sizeProblem(0, 3), dimensions);
    EXPECT_EQ(record::sizeProblem(-4000, -4000), dimensions);
    EXPECT_EQ(record::sizeProblem(4000, 4001), memory);
    EXPECT_EQ(record::sizeProblem(65536, 65536), memory); // 0 in 32 bits
}

TEST(CellBox, GrowsOfWhatWasSetSoFar)
{
    CellBox<int> box(3, 3);
    box.set(2, 2, 22); // nothing behind it has memory
    box.set(4, 1, 41);
    EXPECT_EQ(box.at(4, 1), 0);
    EXPECT_EQ(box.at(3, 3), 0);
    const CellBox<int> wider = box.grownTo(5, 2);
    EXPECT_TRUE(wider.holds(5, 3));
    EXPECT_FALSE(wider.holds(5, 4));
    EXPECT_EQ(wider.at(2, 2), 22);
    EXPECT_EQ(wider.at(4, 1), 0);
    box.reserve(3, 3);
    box.set(3, 3, 33);
    EXPECT_EQ(box.grownTo(2, 7).at(3, 3), 33);
}

TEST(CellBox, OutsideOfItThereIsNothing)
{
    CellBox<int> box(3, 3);
    box.reserve(3, 3);
    box.set(3, 1, 31);
    box.set(0, 2, -1); // the cell before (1, 2) is (3, 1)
    EXPECT_EQ(box.at(3, 1), 31);
    EXPECT_EQ(box.at(0, 2), 0);
    box.set(1, 4, 14);
    EXPECT_EQ(box.at(1, 4), 0);
    box.set(1, 0, 10);
    EXPECT_EQ(box.at(1, 0), 0);
    box.set(4, 1, 41);
    EXPECT_EQ(box.at(1, 2), 0);
}

TEST(CellBox, LetsGoOfWhatCannotBeKeptInStore)
{
    CellBox<char> box(2, 8'000'000);
    box.set(1, 1, 'a');
    box.set(2, 9, 'b');
    const CellBox<char> grown = box.grownTo(4, 3);
    EXPECT_EQ(grown.at(1, 1), 'a');
    EXPECT_FALSE(grown.holds(2, 9));
}
