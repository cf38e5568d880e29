// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/GridFile.h"

#include "base/SafeFile.h"
#include "grid/view/NTabEd.h"
#include "square/file/BadFiles.h"
#include "square/file/SquareBytes.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace squarebytes;

namespace {

class GridFile : public ::testing::Test {
protected:
    QString fileOf(const QByteArray& bytes) const
    {
        EXPECT_EQ(base::writeFile(path(), bytes), std::nullopt);
        return path();
    }
    QString path() const { return m_folder.filePath(utf8("a.asc")); }
    std::vector<double> gridValues() const { return observations(m_grid.square()); }

    ScriptedDialogs m_dialogs;
    grid::TNTabEd m_grid{m_dialogs};
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(GridFile, ASquareShownInAGridIsTheSquareOfTheGrid)
{
    const record::SquareData data = *square::decode(ofOrder5()).data;
    m_grid.setSquare(data);
    const record::SquareData& again = m_grid.square();
    EXPECT_EQ(again.Identifier(), data.Identifier());
    EXPECT_EQ(columnNames(again), columnNames(data));
    EXPECT_EQ(rowNames(again), rowNames(data));
    EXPECT_EQ(rowAttributes(again), rowAttributes(data));
    EXPECT_EQ(observations(again), observations(data));
    EXPECT_EQ(m_grid.value(3, 5), 20.0); // column 3, row 5
}

TEST_F(GridFile, NothingOfThePreviousTableShinesThrough)
{
    m_grid.setSquare(*square::decode(ofOrder5()).data);
    m_grid.setPrecision(2, 7);
    m_grid.setSquare(*square::decode(bare()).data);
    EXPECT_EQ(m_grid.precision(2), 3);
    EXPECT_EQ(m_grid.columnName(2), utf8("C-2"));
    EXPECT_EQ(m_grid.rowAttribute(3), 0);
    m_grid.resizeTable(5, 5);
    EXPECT_EQ(m_grid.value(5, 5), 0.0);
    EXPECT_EQ(m_grid.rowName(5), utf8("R-5"));
}

TEST_F(GridFile, ExportWritesTheGridAndHandsTheTrimmedNamesBack)
{
    m_grid.setSquare(*square::decode(ofOrder3()).data);
    m_grid.setColumnName(1, utf8("  Col 1 "));
    m_grid.setRowName(3, utf8(" Fila 3"));
    EXPECT_EQ(square::Export(m_grid, path(), 8).value->rounded, false);
    EXPECT_EQ(base::readFile(path()), ofOrder3());
    EXPECT_EQ(m_grid.columnName(1), utf8("Col 1"));
    EXPECT_EQ(m_grid.rowName(3), utf8("Fila 3"));
    EXPECT_EQ(square::Export(m_grid, path(), 3).value->rounded, true); // 512.5
    EXPECT_TRUE(base::readFile(path())->contains("\t-2.50E+0000\t"));
}

TEST_F(GridFile, AFailedExportLeavesTheGridAlone)
{
    m_grid.setColumnName(1, utf8("  Col 1 "));
    const auto exported = square::Export(m_grid, m_folder.filePath(utf8("no/a.asc")));
    EXPECT_EQ(exported.problem(), utf8("La carpeta no existe."));
    EXPECT_EQ(m_grid.columnName(1), utf8("  Col 1 "));
}

TEST_F(GridFile, ReadHeaderReadsTheFirstFourLines)
{
    EXPECT_EQ(square::ReadHeader(fileOf(ofOrder5())).nrOfColumns, 5);
    EXPECT_EQ(square::ReadHeader(fileOf("t\r\n3\r\n4\r\nNO")).code, square::NoPresenceLine);
    EXPECT_EQ(square::ReadHeader(m_folder.filePath(utf8("no.asc"))).code, square::NoColumnCount);
}

TEST_F(GridFile, ImportReadsAFileIntoTheGrid)
{
    EXPECT_EQ(square::Import(m_grid, fileOf(ofOrder5()), 0), 0);
    EXPECT_EQ(m_grid.NrOfColumns(), 5);
    EXPECT_EQ(m_grid.Identifier(), QByteArray("Exported by NTabED component: /tmp/propelente.asc"));
    EXPECT_EQ(m_grid.value(2, 3), 38.0);
}

TEST_F(GridFile, ImportKeepsWhatABadBodyHeld)
{
    m_grid.setSquare(*square::decode(ofOrder5()).data);
    EXPECT_EQ(square::Import(m_grid, fileOf(badfiles::withLastRow("7 ocho 9"))), -6);
    EXPECT_EQ(gridValues(), std::vector<double>({1, 2, 3, 4, 5, 6, 7, 0, 0}));
    EXPECT_EQ(square::Import(m_grid, fileOf(badfiles::withAttribute("x"))), -5);
    EXPECT_EQ(gridValues(), std::vector<double>({0, 0, 0, 0}));
}

TEST_F(GridFile, ImportOfABadHeaderLeavesTheGridAlone)
{
    m_grid.setSquare(*square::decode(ofOrder5()).data);
    for (const badfiles::BadFile& file : badfiles::all()) {
        if (file.code < square::NoRoomOrLineFeed)
            continue;
        EXPECT_EQ(square::Import(m_grid, fileOf(file.bytes)), file.code) << file.what;
        EXPECT_EQ(m_grid.NrOfRows(), 5) << file.what;
        EXPECT_EQ(m_grid.value(5, 5), 31.0) << file.what;
    }
    EXPECT_EQ(square::Import(m_grid, m_folder.filePath(utf8("no.asc"))), -1);
    EXPECT_EQ(m_grid.value(5, 5), 31.0);
}

TEST_F(GridFile, TheGridRefusesTheSameCountsInTheSameWords)
{
    for (const auto& [columns, rows] :
         {std::pair(0, 3), {3, 0}, {-3, -3}, {4000, 4001}, {16000001, 1}, {2147483647, 2}}) {
        QString words;
        try {
            m_grid.resizeTable(columns, rows);
        } catch (const grid::GridError& error) {
            words = QString::fromUtf8(error.what());
        }
        EXPECT_FALSE(words.isEmpty());
        EXPECT_EQ(record::sizeProblem(columns, rows), words) << columns << " x " << rows;
    }
}
