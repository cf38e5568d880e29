// SPDX-License-Identifier: GPL-3.0-or-later
// The grid where memory runs out.
#include "grid/view/GridFixture.h"
#include "grid/view/ShortMemory.h"

#include "grid/model/TableData.h"

#include <optional>
#include <utility>

namespace {

constexpr std::size_t oneMegabyte = 1'000'000;

class Memory : public GridFixture {};

} // namespace

TEST_F(Memory, AResizeThatCannotBeHadLeavesEverythingAsItWas)
{
    fill();
    table.setColumnName(2, QStringLiteral("Col 2"));
    QSignalSpy inserted(table.model(), &QAbstractItemModel::columnsInserted);
    {
        const ShortMemory shortage(oneMegabyte);
        try {
            table.resizeTable(1000, 1000);
            FAIL() << "there was memory";
        } catch (const grid::GridError& error) {
            EXPECT_STREQ(error.what(), "NTABED: not enough memory on heap");
        }
        EXPECT_THROW(table.setNrOfColumns(1'000'000), grid::GridError);
        EXPECT_THROW(table.setNrOfRows(1'000'000), grid::GridError);
        EXPECT_THROW(table.setSquare({1000, 1000}), grid::GridError);
    }
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_EQ(table.NrOfColumns(), 3);
    EXPECT_EQ(table.NrOfRows(), 3);
    EXPECT_EQ(table.value(3, 3), 33.0);
    EXPECT_EQ(table.columnName(2), QStringLiteral("Col 2"));
    table.resizeTable(1000, 1000);
    EXPECT_EQ(table.value(3, 3), 33.0);
}

TEST_F(Memory, MarksThatCannotBeHadLeaveTheValues)
{
    grid::TableData data({3, 3});
    data.square.setValue(3, 3, 7.0);
    {
        const ShortMemory shortage(810'000); // 800,000 for the values and no 100,000 for the marks
        EXPECT_THROW(data.resize(1000, 100), grid::GridError);
    }
    EXPECT_EQ(data.square.NrOfColumns(), 3);
    EXPECT_EQ(data.square.value(3, 3), 7.0);
}

TEST_F(Memory, ASquareCostsWhatWasSetOfItUntilAGridHasIt)
{
    record::SquareData square(4000, 4000);
    {
        const ShortMemory shortage(oneMegabyte);
        square.setValue(10, 1, 5.0);
        square.setRowName(4000, QStringLiteral("x"));
        const record::SquareData copy = square;
        EXPECT_EQ(copy.value(10, 1), 5.0);
        EXPECT_THROW(table.setSquare(square), grid::GridError);
    }
    EXPECT_EQ(table.NrOfColumns(), 3);
    table.setSquare(std::move(square));
    EXPECT_EQ(table.value(10, 1), 5.0);
    EXPECT_EQ(table.value(4000, 4000), 0.0);
}

TEST_F(Memory, AnEditThatCannotBeRememberedIsNotMadeAndTheUserIsTold)
{
    table.resizeTable(500, 500);
    table.setValue(400, 400, 5.0);
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    table.selectAll();
    {
        const ShortMemory shortage(oneMegabyte);
        press(Qt::Key_Delete);
    }
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(dialogs.errors[0].text, QStringLiteral("NTABED: not enough memory on heap"));
    EXPECT_EQ(table.value(400, 400), 5.0);
    EXPECT_EQ(changes.count(), 0);
}

TEST(MemoryOfANewGrid, IsAnErrorOfTheGrid)
{
    std::optional<grid::GridError> caught; // a copy shares its text
    {
        const ShortMemory shortage(71); // the values of 3 x 3 cells take 72
        try {
            const grid::TableData table({3, 3});
        } catch (const grid::GridError& error) {
            caught = error;
        }
    }
    ASSERT_TRUE(caught);
    EXPECT_STREQ(caught->what(), "NTABED: not enough memory on heap");
}
