// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/TableData.h"

#include "grid/model/GridError.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int maximalInt = std::numeric_limits<int>::max();

std::string errorOf(grid::TableData& table, int columns, int rows)
{
    try {
        table.resize(columns, rows);
    } catch (const grid::GridError& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST(TableData, StartsWithZerosAndDefaultNames)
{
    const grid::TableData table({3, 2});
    EXPECT_EQ(table.square.NrOfColumns(), 3);
    EXPECT_EQ(table.square.NrOfRows(), 2);
    for (int row = 1; row <= 2; ++row) {
        for (int column = 1; column <= 3; ++column) {
            EXPECT_EQ(table.square.value(column, row), 0.0);
            EXPECT_EQ(table.marks(column, row), grid::NoMark);
        }
    }
    EXPECT_EQ(table.square.columnName(3), QStringLiteral("C-3"));
    EXPECT_EQ(table.square.rowName(2), QStringLiteral("R-2"));
    EXPECT_EQ(table.precision(1), 3);
    EXPECT_EQ(table.square.rowAttribute(1), 0);
    EXPECT_TRUE(table.square.Identifier().isEmpty());
}

TEST(TableData, ReadsAndWritesOutsideAreHarmless)
{
    grid::TableData table({6, 6});
    const int outside[][2] = {{7, 1}, {1, 7}, {0, 1}, {1, 0}, {-1, -1}, {maximalInt, maximalInt}};
    for (const auto& [column, row] : outside) {
        table.square.setValue(column, row, 5.0);
        EXPECT_EQ(table.square.value(column, row), 0.0);
        EXPECT_EQ(table.marks(column, row), grid::NoMark);
    }
    for (const int index : {0, -1, 7, maximalInt}) {
        table.setPrecision(index, 5);
        table.square.setColumnName(index, QStringLiteral("x"));
        table.square.setRowName(index, QStringLiteral("x"));
        table.square.setRowAttribute(index, 9);
        EXPECT_EQ(table.precision(index), 0);
        EXPECT_EQ(table.square.columnName(index), QString());
        EXPECT_EQ(table.square.rowName(index), QString());
        EXPECT_EQ(table.square.rowAttribute(index), 0);
    }
    table.resize(8, 8);
    EXPECT_EQ(table.square.value(7, 1), 0.0);
    EXPECT_EQ(table.square.columnName(7), QStringLiteral("C-7"));
}

TEST(TableData, PrecisionIsStoredWithinItsLimits)
{
    grid::TableData table({3, 3});
    const int cases[][2] = {{12, 8}, {8, 8}, {0, 0}, {-1, -1}, {-3, -1}, {maximalInt, 8}, {3, 3}};
    for (const auto& [given, stored] : cases) {
        table.setPrecision(2, given);
        EXPECT_EQ(table.precision(2), stored);
        EXPECT_EQ(table.precision(1), 3);
    }
}

TEST(TableData, WhatAResizeHidesComesBack)
{
    grid::TableData table({6, 6});
    for (int row = 1; row <= 6; ++row) {
        for (int column = 1; column <= 6; ++column)
            table.square.setValue(column, row, 10 * row + column);
        table.square.setRowName(row, QStringLiteral("Fila %1").arg(row));
        table.square.setRowAttribute(row, static_cast<std::uint8_t>(row));
    }
    table.setPrecision(6, 0);
    table.setStoredMarks(6, 6, grid::MarkBoth);

    table.resize(3, 3);
    EXPECT_EQ(table.square.value(3, 3), 33.0);
    EXPECT_EQ(table.square.value(4, 3), 0.0);
    EXPECT_EQ(table.square.rowName(4), QString());
    table.resize(3, 10);
    table.resize(10, 2);
    table.resize(7, 7);
    for (int row = 1; row <= 7; ++row) {
        for (int column = 1; column <= 7; ++column)
            EXPECT_EQ(table.square.value(column, row),
                      row <= 6 && column <= 6 ? 10 * row + column : 0.0);
    }
    EXPECT_EQ(table.square.rowName(6), QStringLiteral("Fila 6"));
    EXPECT_EQ(table.square.rowName(7), QStringLiteral("R-7"));
    EXPECT_EQ(table.square.rowAttribute(6), 6);
    EXPECT_EQ(table.precision(6), 0);
    EXPECT_EQ(table.marks(6, 6), grid::MarkBoth);
}

TEST(TableData, BadSizesAreRefusedWithTheTableAsItWas)
{
    grid::TableData table({3, 3});
    table.square.setValue(3, 3, 7.0);
    for (const auto& [columns, rows] :
         {std::pair(0, 3), {3, 0}, {-1, 3}, {3, -5}, {0, 0}, {maximalInt, 0}, {-1, maximalInt}})
        EXPECT_EQ(errorOf(table, columns, rows), "array dimensions zero or negative");
    for (const auto& [columns, rows] : {std::pair(4000, 4001),
                                        {16'000'001, 1},
                                        {1, 16'000'001},
                                        {maximalInt, maximalInt},
                                        {65536, 65536}, // 0 in 32 bits
                                        {maximalInt, 3}})
        EXPECT_EQ(errorOf(table, columns, rows), "NTABED: not enough memory on heap");
    EXPECT_EQ(table.square.NrOfColumns(), 3);
    EXPECT_EQ(table.square.NrOfRows(), 3);
    EXPECT_EQ(table.square.value(3, 3), 7.0);
}

TEST(TableData, TheLargestTablesWorkInEveryShape)
{
    grid::TableData table({3, 3});
    table.square.setValue(2, 2, 5.0);
    const int shapes[][2] = {{4000, 4000}, {1, 16'000'000}, {16'000'000, 1}, {2, 8'000'000}};
    for (const auto& [columns, rows] : shapes) {
        ASSERT_EQ(errorOf(table, columns, rows), "");
        table.square.setValue(columns, rows, 9.0);
        EXPECT_EQ(table.square.value(columns, rows), 9.0);
        EXPECT_EQ(table.square.NrOfColumns(), columns);
        EXPECT_EQ(table.square.NrOfRows(), rows);
    }
    ASSERT_EQ(errorOf(table, 3, 3), "");
    EXPECT_EQ(table.square.value(1, 1), 0.0);
}

TEST(TableData, CellsBeyondWhatCanBeKeptInStoreAreLetGoAndTheOthersStay)
{
    grid::TableData table({2, 8'000'000});
    table.square.setValue(1, 1, 1.0);
    table.square.setValue(2, 1, 2.0);
    table.square.setValue(1, 3, 3.0);
    table.square.setValue(1, 8'000'000, 4.0);
    table.resize(4, 3);
    EXPECT_EQ(table.square.value(1, 1), 1.0);
    EXPECT_EQ(table.square.value(2, 1), 2.0);
    EXPECT_EQ(table.square.value(1, 3), 3.0);
    table.resize(2, 8'000'000);
    EXPECT_EQ(table.square.value(1, 3), 3.0);
    EXPECT_EQ(table.square.value(1, 8'000'000), 0.0);
}
