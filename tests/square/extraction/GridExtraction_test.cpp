// SPDX-License-Identifier: GPL-3.0-or-later
// An experiment on its way from the clipboard into a grid.
#include "square/extraction/ExtractionAnswer.h"

#include "grid/view/GridFixture.h"
#include "square/extraction/TreatmentKey.h"

namespace {

/// The assembly square of Extraction_test and a cyclic one of order 3.
const char* const assemblyTable = "C 10\tD 14\tA 7\tB 8\nB 7\tC 18\tD 11\tA 8\n"
                                  "A 5\tB 10\tC 11\tD 9\nD 10\tA 10\tB 12\tC 14\n";
const char* const three = "f1;c1;A;1\nf1;c2;B;2\nf1;c3;C;3\nf2;c1;B;4\nf2;c2;C;5\nf2;c3;A;6\n"
                          "f3;c1;C;7\nf3;c2;A;8\nf3;c3;B;9\n";

class GridExtraction : public GridFixture {
protected:
    GridExtraction() { table.setExtractor(square::extractionAnswer()); }
};

} // namespace

TEST_F(GridExtraction, ExtractionIsOneStepWithSizeNamesAndNumbers)
{
    fill();
    table.setRowName(1, QStringLiteral("Fila 1"));
    table.setPrecision(2, 1);
    table.setIdentifier("antes");
    table.setRowAttribute(1, 7);
    const Snapshot before = snapshot();
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    QSignalSpy resizes(&table, &grid::TNTabEd::TableResized);
    QSignalSpy notices(&table, &grid::TNTabEd::Notice);
    setClipboard(QString::fromLatin1(assemblyTable));
    choose(openCellMenu(2, 2), "Extract from Clpbrd");

    EXPECT_EQ(table.NrOfColumns(), 4);
    EXPECT_EQ(table.NrOfRows(), 4);
    const double expected[4][4] = {
        {7, 14, 10, 8}, {11, 18, 7, 8}, {11, 10, 5, 9}, {12, 10, 10, 14}};
    for (int row = 1; row <= 4; ++row) {
        for (int column = 1; column <= 4; ++column)
            EXPECT_EQ(table.value(column, row), expected[row - 1][column - 1]);
    }
    EXPECT_EQ(table.rowName(1), QStringLiteral("R-1"));
    EXPECT_EQ(table.columnName(2), QStringLiteral("C-2"));
    EXPECT_EQ(table.columnName(3), QStringLiteral("C-1"));
    EXPECT_EQ(table.precision(2), 1);
    EXPECT_EQ(table.precision(4), 3);
    EXPECT_EQ(table.rowAttribute(1), 0);
    EXPECT_EQ(table.Identifier(), QByteArray("antes"));
    ASSERT_EQ(resizes.count(), 1);
    EXPECT_EQ(resizes[0], (QVariantList{4, 4}));
    EXPECT_EQ(changes.count(), 1);
    ASSERT_EQ(notices.count(), 1);
    EXPECT_EQ(
        notices[0][0].toString(),
        QStringLiteral("Tratamientos: 1 = A, 2 = D, 3 = C, 4 = B. Se reordenaron las columnas. El "
                       "cuadrado conserva su título: anote los tratamientos."));
    EXPECT_EQ(table.treatments().join(QLatin1Char(' ')), QStringLiteral("A D C B"));

    const Snapshot after = snapshot();
    undo();
    EXPECT_TRUE(snapshot() == before);
    EXPECT_TRUE(table.treatments().isEmpty());
    EXPECT_EQ(table.rowAttribute(1), 7);
    ASSERT_EQ(resizes.count(), 2);
    EXPECT_EQ(resizes[1], (QVariantList{3, 3}));
    redo();
    EXPECT_TRUE(snapshot() == after);
    EXPECT_EQ(resizes.count(), 3);
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(GridExtraction, TheKeyIsTheIdentifierOfATableWithoutOneOfItsOwn)
{
    setClipboard(QString::fromLatin1(three));
    choose(openCellMenu(1, 1), "Extract from Clpbrd");
    EXPECT_EQ(table.Identifier(), QByteArray("Tratamientos: 1 = A, 2 = B, 3 = C"));
    // The key of another experiment would be a lie.
    setClipboard(QString::fromUtf8(assemblyTable).replace(QLatin1Char('D'), QStringLiteral("Ñ")));
    choose(openCellMenu(1, 1), "Extract from Clpbrd");
    EXPECT_EQ(QString::fromUtf8(table.Identifier()),
              QStringLiteral("Tratamientos: 1 = A, 2 = Ñ, 3 = C, 4 = B"));
    undo();
    EXPECT_EQ(table.Identifier(), QByteArray("Tratamientos: 1 = A, 2 = B, 3 = C"));
    undo();
    EXPECT_EQ(table.Identifier(), QByteArray());
}

TEST_F(GridExtraction, TheNamesInAKeyAreReadBack)
{
    const QStringList names = {QStringLiteral("50 kg, N"), QStringLiteral("A = B"),
                               QStringLiteral("ñandú"), QStringLiteral("x")};
    EXPECT_EQ(square::treatmentsIn(square::treatmentKey(names).toUtf8()), names);
    for (const char* other :
         {"", "Tratamientos", "Propelente: 1 = A, 2 = B", "Tratamientos: 2 = A"})
        EXPECT_TRUE(square::treatmentsIn(other).isEmpty()) << other;
}

TEST_F(GridExtraction, AnExtractionThatIsRefusedChangesNothing)
{
    fill();
    const Snapshot before = snapshot();
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    QSignalSpy resizes(&table, &grid::TNTabEd::TableResized);
    for (const char* text : {"", "hola", "A 1\tB 2\tC 3\nB 4\tC 5\tA 6\nC 7\tB 8\tA 9",
                             "A 1\tB 2\tC 3\tD 4\nB 5\tA 6\tD 7\tC 8\nC 9\tD 10\tA 11\tB 12\nD "
                             "13\tC 14\tB 15\tA 16"}) {
        dialogs.errors.clear();
        setClipboard(QString::fromLatin1(text));
        choose(openCellMenu(1, 1), "Extract from Clpbrd");
        ASSERT_EQ(dialogs.errors.size(), 1U);
        EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Extraer del portapapeles"));
        EXPECT_TRUE(snapshot() == before);
    }
    undo();
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(resizes.count(), 0);
    EXPECT_TRUE(snapshot() == before);
}

TEST_F(GridExtraction, ASquareOfTheSameSizeIsNoResize)
{
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    QSignalSpy resizes(&table, &grid::TNTabEd::TableResized);
    setClipboard(QString::fromLatin1(three));
    choose(openCellMenu(1, 1), "Extract from Clpbrd");
    EXPECT_EQ(table.value(2, 3), 8.0);
    EXPECT_EQ(table.rowName(3), QStringLiteral("f3"));
    EXPECT_EQ(table.columnName(1), QStringLiteral("c1"));
    EXPECT_EQ(resizes.count(), 0);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(GridExtraction, NamesOfAnExtractionAreCutToFiftyCharacters)
{
    const QString longName(70, QLatin1Char('n'));
    setClipboard(QString::fromLatin1(three).replace(QStringLiteral("f1"), longName));
    choose(openCellMenu(1, 1), "Extract from Clpbrd");
    EXPECT_EQ(table.rowName(1), longName.left(50));
}
