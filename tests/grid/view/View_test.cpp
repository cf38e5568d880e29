// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/GridFixture.h"

#include "support/PaintCounter.h"

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QPainter>

#include <array>

namespace {

class GridView : public GridFixture {};

/// The lowest line of a picture on which something stands, from its top; a frame is left out.
int lowestInk(const QPixmap& picture, const QRect& place)
{
    const QImage image = picture.copy(place.adjusted(3, 3, -3, -3)).toImage();
    for (int y = image.height() - 1; y >= 0; --y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                return y;
    return -1;
}

} // namespace

TEST_F(GridView, StartsAsTheFormsHaveIt)
{
    EXPECT_EQ(table.NrOfColumns(), 3);
    EXPECT_EQ(table.NrOfRows(), 3);
    EXPECT_EQ(table.ColorNormal(), QColor(0, 32, 0));
    EXPECT_EQ(table.ColorMarkedA(), QColor(Qt::red));
    EXPECT_EQ(table.ColorMarkedB(), QColor(Qt::blue));
    EXPECT_EQ(table.ColorMarkedBoth(), QColor(187, 0, 204));
    EXPECT_TRUE(table.AutoAdvance());
    EXPECT_TRUE(table.editingAllowed());
    EXPECT_FALSE(table.readOnly());
    EXPECT_EQ(table.verticalHeader()->width(), 80);
    EXPECT_EQ(table.rowHeight(0), 24);
    EXPECT_EQ(table.columnWidth(0), 64);
    EXPECT_EQ(currentColumn(), 1);
    EXPECT_EQ(currentRow(), 1);
}

TEST_F(GridView, TheContractOfTheDataHolds)
{
    table.resizeTable(6, 6);
    table.setValue(7, 1, 5.0);
    EXPECT_EQ(table.value(7, 1), 0.0);
    table.setPrecision(2, 12);
    EXPECT_EQ(table.precision(2), 8);
    table.setPrecision(2, -3);
    EXPECT_EQ(table.precision(2), -1);
    table.setPrecision(7, 4);
    EXPECT_EQ(table.precision(7), 0);
    table.setColumnName(1, QString(60, QLatin1Char('x')));
    EXPECT_EQ(table.columnName(1).size(), 50);
    table.setRowName(6, QStringLiteral("Fila 6"));
    EXPECT_EQ(table.rowName(6), QStringLiteral("Fila 6"));
    table.setRowAttribute(2, 200);
    EXPECT_EQ(table.rowAttribute(2), 200);
    table.setIdentifier("una \xFF cosa");
    EXPECT_EQ(table.Identifier(), QByteArray("una \xFF cosa"));
    EXPECT_THROW(table.setNrOfColumns(0), grid::GridError);
    EXPECT_THROW(table.setNrOfRows(-1), grid::GridError);
    EXPECT_THROW(table.resizeTable(4001, 4000), grid::GridError);
    EXPECT_EQ(table.NrOfColumns(), 6);
    EXPECT_EQ(table.rowName(6), QStringLiteral("Fila 6"));
}

TEST_F(GridView, WhatTheProgramDoesIsNoChangeByTheUser)
{
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    QSignalSpy resizes(&table, &grid::TNTabEd::TableResized);
    fill();
    table.resizeTable(5, 4);
    table.setNrOfColumns(2);
    table.setNrOfRows(2);
    table.setColumnName(1, QStringLiteral("x"));
    table.setRowName(1, QStringLiteral("x"));
    table.setPrecision(1, 0);
    table.setIdentifier("x");
    table.setSquare({6, 6});
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(resizes.count(), 0);
    press(Qt::Key_Z, Qt::ControlModifier); // and nothing to undo
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(GridView, ResettingForgetsEverything)
{
    type("5");
    press(Qt::Key_Return);
    table.resizeTable(6, 6);
    table.setValue(6, 6, 66);
    table.setPrecision(6, 1);
    table.setRowAttribute(6, 6);
    table.setIdentifier("antes");
    table.setSquare({3, 3});
    table.resizeTable(6, 6);
    EXPECT_EQ(table.value(1, 1), 0.0);
    EXPECT_EQ(table.value(6, 6), 0.0);
    EXPECT_EQ(table.precision(6), 3);
    EXPECT_EQ(table.rowAttribute(6), 0);
    EXPECT_TRUE(table.Identifier().isEmpty());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.value(1, 1), 0.0);
    EXPECT_EQ(currentColumn(), 1);
}

TEST_F(GridView, ResizingKeepsTheCursorWhereItCan)
{
    table.resizeTable(6, 6);
    click(2, 2);
    table.resizeTable(4, 4);
    EXPECT_EQ(currentColumn(), 2);
    EXPECT_EQ(currentRow(), 2);
    click(4, 4);
    table.resizeTable(3, 3);
    EXPECT_TRUE(table.currentIndex().isValid());
    type("5");
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(3, 3), 5.0);
}

TEST_F(GridView, FrozenItPaintsNothingAndReleasedItPaintsOnce)
{
    QApplication::processEvents();
    PaintCounter counter(*table.viewport());
    table.freeze();
    table.freeze();
    for (int i = 1; i <= 3; ++i) {
        for (int k = 1; k <= 3; ++k) {
            table.setValue(i, k, i + k);
            QApplication::processEvents();
        }
        table.setColumnName(i, QStringLiteral("Columna larga %1").arg(i));
        table.setPrecision(i, 8);
    }
    table.viewport()->update();
    QApplication::processEvents();
    EXPECT_EQ(counter.paints, 0);
    table.release();
    QApplication::processEvents();
    EXPECT_EQ(counter.paints, 1);
    EXPECT_GT(table.columnWidth(0), 64); // fitted on release
    table.release();
    QApplication::processEvents();
    EXPECT_EQ(counter.paints, 1);
    table.setValue(1, 1, 9);
    QApplication::processEvents();
    EXPECT_EQ(counter.paints, 2);
}

TEST_F(GridView, ColumnsAreAsWideAsTheirContentsUpToALimit)
{
    table.setDefaultColWidth(32);
    table.setColumnName(1, QStringLiteral("1"));
    EXPECT_GT(table.columnWidth(0), 32); // "0.000"
    EXPECT_LT(table.columnWidth(0), 64);
    table.setPrecision(1, 0);
    EXPECT_EQ(table.columnWidth(0), 32);
    table.setDefaultColWidth(64);
    EXPECT_EQ(table.columnWidth(1), 64);
    table.setValue(2, 3, 1234567890.125);
    const int needed = table.fontMetrics().horizontalAdvance(QStringLiteral("1234567890.125"));
    EXPECT_GT(table.columnWidth(1), needed);
    EXPECT_LT(table.columnWidth(1), needed + 20);
    table.setValue(2, 3, 0);
    EXPECT_EQ(table.columnWidth(1), 64);
    table.setColumnName(2, QString(50, QLatin1Char('W')));
    EXPECT_EQ(table.columnWidth(1), 200);
    table.resizeTable(4, 4);
    EXPECT_EQ(table.columnWidth(3), 64);
    table.setHeaderColumnWidth(100);
    EXPECT_EQ(table.verticalHeader()->width(), 100);
}

TEST_F(GridView, AWidthThatTheUserSetIsLeftAlone)
{
    QHeaderView* header = table.horizontalHeader();
    const QPoint edge(header->sectionViewportPosition(1) - 1, header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(header->viewport(), edge + QPoint(20, 0));
    QTest::mouseMove(header->viewport(), edge + QPoint(40, 0));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(40, 0));
    EXPECT_EQ(table.columnWidth(0), 104);
    table.setValue(1, 1, 1);
    table.setColumnName(1, QString(50, QLatin1Char('W')));
    EXPECT_EQ(table.columnWidth(0), 104);
    table.setSquare({3, 3});
    EXPECT_EQ(table.columnWidth(0), 64);

    table.horizontalHeader()->resizeSection(2, 150);
    table.setNrOfColumns(2);
    table.setNrOfColumns(3);
    table.setColumnName(3, QString(50, QLatin1Char('W')));
    EXPECT_EQ(table.columnWidth(2), 200); // not the column that was widened
}

TEST_F(GridView, RowsGrowWithALargeFont)
{
    QFont font = table.font();
    font.setPointSize(40);
    table.setFont(font);
    EXPECT_GE(table.rowHeight(0), QFontMetrics(font).height());
    EXPECT_GT(table.columnWidth(0), 64);
}

TEST_F(GridView, TheLargestTablesOpenShowEditAndClose)
{
    const std::array<std::pair<int, int>, 3> shapes = {
        {{4000, 4000}, {1, 16'000'000}, {16'000'000, 1}}};
    for (const auto& [columns, rows] : shapes) {
        table.setSquare({columns, rows});
        QApplication::processEvents();
        table.setCurrentIndex(indexOf(columns, rows));
        type("5");
        press(Qt::Key_Return);
        EXPECT_EQ(table.value(columns, rows), 5.0);
        EXPECT_TRUE(table.viewport()->rect().intersects(table.visualRect(indexOf(columns, rows))));
        EXPECT_EQ(table.grab().isNull(), false);
        press(Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(currentColumn(), 1);
        EXPECT_EQ(currentRow(), 1);
        type("7");
        press(Qt::Key_Return);
        press(Qt::Key_PageDown);
        press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(table.value(1, 1), 0.0);
    }
    table.resizeTable(3, 3);
    QApplication::processEvents();
    EXPECT_EQ(table.NrOfColumns(), 3);
    EXPECT_EQ(table.columnWidth(2), 64);
}

TEST_F(GridView, AnAssistantReadsCellsAndNames)
{
    table.setColumnName(2, QStringLiteral("Col 2"));
    table.setRowName(3, QStringLiteral("Fila 3"));
    table.setValue(2, 3, 24.5);
    EXPECT_EQ(table.accessibleName(), QStringLiteral("Tabla de números"));
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&table);
    ASSERT_NE(accessible, nullptr);
    ASSERT_NE(accessible->tableInterface(), nullptr);
    QAccessibleInterface* cell = accessible->tableInterface()->cellAt(2, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text(QAccessible::Name), QStringLiteral("24.500"));
    EXPECT_EQ(accessible->tableInterface()->columnDescription(1), QStringLiteral("Col 2"));
    EXPECT_EQ(accessible->tableInterface()->rowDescription(2), QStringLiteral("Fila 3"));
    doubleClick(2, 3);
    EXPECT_EQ(editor()->accessibleName(), QStringLiteral("Dato de la fila Fila 3, columna Col 2"));
}

TEST_F(GridView, MarkedNumbersAreDrawnInTheirColourOnTheCursorToo)
{
    table.setValue(1, 1, 88888);
    choose(openCellMenu(1, 1), "Mark as type A");
    for (const bool selected : {true, false}) {
        if (!selected)
            click(3, 3);
        const QImage cell = table.viewport()->grab(table.visualRect(indexOf(1, 1))).toImage();
        int red = 0;
        for (int y = 0; y < cell.height(); ++y) {
            for (int x = 0; x < cell.width(); ++x) {
                const QColor pixel = cell.pixelColor(x, y);
                red += pixel.red() > 200 && pixel.green() < 120 && pixel.blue() < 120 ? 1 : 0;
            }
        }
        EXPECT_GT(red, 20) << selected;
    }
}

TEST_F(GridView, ALongNameEndsInAnEllipsisAndIsShownWholeByATip)
{
    const QString name = QStringLiteral("Operario con un nombre largo");
    table.setRowName(1, name);
    EXPECT_EQ(table.model()->headerData(0, Qt::Vertical, Qt::ToolTipRole).toString(), name);
    const auto inked = [this] {
        // The rightmost column with ink in the name's section, the frame at its edge left out.
        const QImage section =
            table.verticalHeader()->viewport()->grab(QRect(0, 3, 76, 18)).toImage();
        int last = 0;
        for (int x = 0; x < section.width(); ++x) {
            for (int y = 0; y < section.height(); ++y)
                last = section.pixelColor(x, y).lightness() < 128 ? x : last;
        }
        return last;
    };
    EXPECT_LT(inked(), 76);
    EXPECT_GT(inked(), 40);
}

TEST_F(GridView, APaletteOfADarkDesktopLeavesTheTableLight)
{
    EXPECT_EQ(table.palette().color(QPalette::Base), QColor(Qt::white));
    const QColor selection = table.palette().color(QPalette::Highlight);
    EXPECT_GT(selection.lightness(), 200);
}

TEST_F(GridView, ANumberStandsOnOneLineWithTheNameOfItsRow)
{
    for (const int points : {8, 9, 10, 11, 12, 15, 20}) {
        QFont font = table.font();
        font.setPointSize(points);
        table.setFont(font);
        for (const int row : {1, 2}) { // that of the cursor and another
            table.setRowName(row, QStringLiteral("1"));
            table.setPrecision(1, 0);
            table.setValue(1, row, 1);
            QApplication::processEvents();
            const QRect cell = table.visualRect(indexOf(1, row));
            const QRect name(0, cell.top(), table.verticalHeader()->width(), cell.height());
            const int number = lowestInk(table.viewport()->grab(), cell);
            EXPECT_GT(number, 0);
            EXPECT_EQ(number, lowestInk(table.verticalHeader()->viewport()->grab(), name))
                << points << " points, row " << row;
        }
    }
}
