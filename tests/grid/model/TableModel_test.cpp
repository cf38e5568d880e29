// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/TableModel.h"

#include "grid/model/GridError.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QSignalSpy>

namespace {

class TableModelTest : public ::testing::Test {
protected:
    TableModelTest()
        : tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        QLocale::setDefault(QLocale::c());
        model.setColors({Qt::black, Qt::red, Qt::blue, Qt::magenta});
    }
    ~TableModelTest() override { QLocale::setDefault(QLocale::c()); }

    QVariant data(int column, int row, int role = Qt::DisplayRole) const
    {
        return model.index(row - 1, column - 1).data(role);
    }

    grid::TableModel model;
    QAbstractItemModelTester tester;
};

} // namespace

TEST_F(TableModelTest, ShowsNumbersByTheirColumnsPrecision)
{
    model.setValue(1, 2, 24.5);
    EXPECT_EQ(data(1, 2).toString(), QStringLiteral("24.500"));
    model.setPrecision(1, 0);
    EXPECT_EQ(data(1, 2).toString(), QStringLiteral("24"));
    model.setPrecision(1, -1);
    EXPECT_EQ(data(1, 2).toString(), QStringLiteral("24.5"));
    model.setPrecision(1, 8);
    EXPECT_EQ(data(1, 2).toString(), QStringLiteral("24.50000000"));
    EXPECT_EQ(data(1, 2, Qt::EditRole).toDouble(), 24.5);
    EXPECT_EQ(data(2, 2).toString(), QStringLiteral("0.000"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    EXPECT_EQ(data(1, 2).toString(), QStringLiteral("24,50000000"));
}

TEST_F(TableModelTest, ShowsNamesAndMarks)
{
    model.setColumnName(1, QStringLiteral("Col 1"));
    model.setRowName(3, QStringLiteral("Fila 3"));
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Col 1"));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("C-2"));
    EXPECT_EQ(model.headerData(2, Qt::Vertical).toString(), QStringLiteral("Fila 3"));
    model.setStoredMarks({1, 1, 2, 2}, {grid::MarkA, grid::MarkB, grid::MarkBoth, grid::NoMark});
    EXPECT_EQ(data(1, 1, Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    EXPECT_EQ(data(2, 1, Qt::ForegroundRole).value<QColor>(), QColor(Qt::blue));
    EXPECT_EQ(data(1, 2, Qt::ForegroundRole).value<QColor>(), QColor(Qt::magenta));
    EXPECT_EQ(data(2, 2, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
    EXPECT_EQ(data(1, 2, Qt::AccessibleDescriptionRole).toString(), QStringLiteral("marcas A y B"));
    model.setStoredMarks({1, 1, 1, 1}, {grid::NoMark});
    EXPECT_EQ(data(1, 1, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
}

TEST_F(TableModelTest, ResizesInEveryDirectionByTheRulesOfModels)
{
    const int sizes[][2] = {{6, 6}, {3, 6}, {6, 3}, {1, 1}, {2, 9}, {9, 2}, {4, 4}, {4, 4}};
    model.setValue(1, 1, 5.0);
    for (const auto& [columns, rows] : sizes) {
        model.resize(columns, rows);
        EXPECT_EQ(model.columnCount(), columns);
        EXPECT_EQ(model.rowCount(), rows);
        EXPECT_EQ(model.square().value(1, 1), 5.0);
    }
    EXPECT_THROW(model.resize(0, 4), grid::GridError);
    EXPECT_THROW(model.resize(5000, 5000), grid::GridError);
    EXPECT_EQ(model.columnCount(), 4);
    EXPECT_EQ(model.rowCount(), 4);
}

TEST_F(TableModelTest, WritesToHiddenCellsWithoutTellingTheViews)
{
    model.resize(6, 6);
    model.resize(3, 3);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.setStoredValues({5, 5, 2, 1}, {7.0, 8.0});
    EXPECT_EQ(changed.count(), 0);
    model.setStoredValues({3, 3, 2, 2}, {1.0, 2.0, 3.0, 4.0});
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex(), model.index(2, 2)); // no further than what is shown
    model.resize(6, 6);
    EXPECT_EQ(model.square().value(6, 5), 8.0);
    EXPECT_EQ(model.square().value(4, 4), 4.0);
}

TEST_F(TableModelTest, SilenceEndsInOneAnnouncement)
{
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy named(&model, &QAbstractItemModel::headerDataChanged);
    model.setSilent(true);
    const auto before = changed.count();
    for (int i = 1; i <= 3; ++i) {
        model.setValue(i, i, i);
        model.setColumnName(i, QStringLiteral("x"));
    }
    EXPECT_EQ(changed.count(), before);
    model.setSilent(false);
    ASSERT_EQ(changed.count(), before + 1);
    EXPECT_EQ(changed.last()[0].toModelIndex(), model.index(0, 0));
    EXPECT_EQ(changed.last()[1].toModelIndex(), model.index(2, 2));
    EXPECT_EQ(named.last()[0].value<Qt::Orientation>(), Qt::Vertical);
}

TEST_F(TableModelTest, CellsAreEditableOnlyWhereTheyMayBe)
{
    EXPECT_TRUE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));
    model.setEditable(false);
    EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model.setData(model.index(0, 0), 5.0)); // edits pass through the history
}
