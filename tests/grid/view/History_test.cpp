// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/GridFixture.h"

#include <random>

namespace {

/// The assembly square of Extraction_test and a cyclic one of order 3.
const char* const assembly = "C 10\tD 14\tA 7\tB 8\nB 7\tC 18\tD 11\tA 8\n"
                             "A 5\tB 10\tC 11\tD 9\nD 10\tA 10\tB 12\tC 14\n";
const char* const three = "f1;c1;A;1\nf1;c2;B;2\nf1;c3;C;3\nf2;c1;B;4\nf2;c2;C;5\nf2;c3;A;6\n"
                          "f3;c1;C;7\nf3;c2;A;8\nf3;c3;B;9\n";

/// All that a user sees of a table and its file would keep.
struct Snapshot {
    std::vector<double> values;
    QStringList shown;
    QStringList names;
    QByteArray identifier;
    bool operator==(const Snapshot&) const = default;
};

class History : public GridFixture {
protected:
    Snapshot snapshot() const
    {
        Snapshot state;
        for (int row = 1; row <= table.NrOfRows(); ++row) {
            state.names += table.rowName(row);
            for (int column = 1; column <= table.NrOfColumns(); ++column) {
                state.values.push_back(table.value(column, row));
                state.shown += shown(column, row);
                state.shown += indexOf(column, row).data(Qt::ForegroundRole).value<QColor>().name();
            }
        }
        for (int column = 1; column <= table.NrOfColumns(); ++column)
            state.names += table.columnName(column);
        state.identifier = table.Identifier();
        return state;
    }

    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }

    /// One edit of a random kind at a random place, by the keys and menus of the user.
    void editAtRandom(std::mt19937& random)
    {
        const auto upTo = [&random](int count) {
            return 1 + static_cast<int>(random() % static_cast<unsigned>(count));
        };
        selectCells(upTo(table.NrOfColumns()), upTo(table.NrOfRows()), upTo(table.NrOfColumns()),
                    upTo(table.NrOfRows()));
        const char* const scopes[] = {"Range", "Column", "Row", "All"};
        const char* const marks[] = {"Mark as type A", "Mark as type B", "Unmark type A",
                                     "Unmark type B", "Unmark All"};
        switch (random() % 9) {
        case 0:
            choose(openCellMenu(currentColumn(), currentRow()), "Clear", scopes[random() % 4]);
            break;
        case 1:
            press(Qt::Key_C, Qt::ControlModifier);
            click(1, 1);
            press(Qt::Key_V, Qt::ControlModifier);
            break;
        case 2:
            choose(openCellMenu(currentColumn(), currentRow()), marks[random() % 5]);
            break;
        case 3:
            dialogs.integerAnswers = {upTo(10) - 2};
            choose(openColumnMenu(currentColumn()), "Change Precision");
            break;
        case 4:
            dialogs.lineAnswers = {QStringLiteral("nº %1").arg(random() % 5)};
            choose(openColumnMenu(currentColumn()), "Edit Identifier");
            break;
        case 5:
            setClipboard(QString::fromLatin1(random() % 2 == 0 ? assembly : three));
            choose(openCellMenu(currentColumn(), currentRow()), "Extract from Clpbrd");
            break;
        default:
            type(std::to_string(random() % 1000).c_str());
            press(Qt::Key_Return);
        }
    }
};

} // namespace

TEST_F(History, EveryEditIsUndoneToTheBeginningAndRedoneToTheEnd)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        std::mt19937 random(seed);
        table.resetTable(3, 3);
        std::vector<Snapshot> states = {snapshot()};
        for (int i = 0; i < 100; ++i) {
            editAtRandom(random);
            if (snapshot() != states.back())
                states.push_back(snapshot());
        }
        ASSERT_GT(states.size(), 50U); // most edits change something
        ASSERT_TRUE(dialogs.errors.empty());
        // A step may change what no snapshot shows, so go back until nothing is left to undo.
        for (int i = 0; i < 100; ++i)
            undo();
        EXPECT_TRUE(snapshot() == states.front());
        std::size_t reached = 0;
        for (int i = 0; i < 100; ++i) {
            redo();
            if (reached + 1 < states.size() && snapshot() == states[reached + 1])
                ++reached;
        }
        EXPECT_EQ(reached, states.size() - 1); // through every state in its order
        EXPECT_TRUE(snapshot() == states.back());
    }
}

TEST_F(History, ANewEditDropsWhatCouldBeRedone)
{
    type("5");
    press(Qt::Key_Return);
    undo();
    click(1, 1);
    type("6");
    press(Qt::Key_Return);
    redo();
    EXPECT_EQ(table.value(1, 1), 6.0);
    undo();
    EXPECT_EQ(table.value(1, 1), 0.0);
    undo(); // nothing left
    EXPECT_EQ(table.value(1, 1), 0.0);
}

TEST_F(History, AStepShowsTheUserItsCells)
{
    setClipboard(QStringLiteral("1\t2\n3\t4"));
    click(2, 2);
    press(Qt::Key_V, Qt::ControlModifier);
    click(1, 1);
    undo();
    EXPECT_EQ(currentColumn(), 2);
    EXPECT_EQ(currentRow(), 2);
    EXPECT_EQ(table.selectionModel()->selectedIndexes().size(), 4);
}

TEST_F(History, StepsReachCellsThatAResizeHasHidden)
{
    table.resizeTable(6, 6);
    click(5, 5);
    type("55");
    press(Qt::Key_Return);
    table.resizeTable(3, 3);
    undo();
    table.resizeTable(6, 6);
    EXPECT_EQ(table.value(5, 5), 0.0);
    table.resizeTable(3, 3);
    redo();
    EXPECT_EQ(table.value(3, 3), 0.0);
    table.resizeTable(6, 6);
    EXPECT_EQ(table.value(5, 5), 55.0);
}

TEST_F(History, AListenerMayClearItAtAnyChange)
{
    QObject::connect(&table, &grid::TNTabEd::OnChange, &table, &grid::TNTabEd::clearHistory);
    type("5");
    press(Qt::Key_Return);
    undo();
    EXPECT_EQ(table.value(1, 1), 5.0);
    QObject::disconnect(&table, &grid::TNTabEd::OnChange, &table, nullptr);
    type("6");
    press(Qt::Key_Return);
    QObject::connect(&table, &grid::TNTabEd::OnChange, &table, &grid::TNTabEd::clearHistory);
    undo();
    EXPECT_EQ(table.value(2, 1), 0.0);
}

TEST_F(History, ExtractionIsOneStepWithSizeNamesAndNumbers)
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
    setClipboard(QString::fromLatin1(assembly));
    choose(openCellMenu(2, 2), "Extract from Clpbrd");

    EXPECT_EQ(table.NrOfColumns(), 4);
    EXPECT_EQ(table.NrOfRows(), 4);
    const double expected[4][4] = {
        {10, 8, 7, 14}, {7, 8, 11, 18}, {5, 9, 11, 10}, {10, 14, 12, 10}};
    for (int row = 1; row <= 4; ++row) {
        for (int column = 1; column <= 4; ++column)
            EXPECT_EQ(table.value(column, row), expected[row - 1][column - 1]);
    }
    EXPECT_EQ(table.rowName(1), QStringLiteral("R-1"));
    EXPECT_EQ(table.columnName(2), QStringLiteral("C-4"));
    EXPECT_EQ(table.precision(2), 1);
    EXPECT_EQ(table.precision(4), 3);
    EXPECT_EQ(table.rowAttribute(1), 0);
    EXPECT_EQ(table.Identifier(), QByteArray("antes"));
    ASSERT_EQ(resizes.count(), 1);
    EXPECT_EQ(resizes[0], (QVariantList{4, 4}));
    EXPECT_EQ(changes.count(), 1);
    ASSERT_EQ(notices.count(), 1);
    EXPECT_EQ(notices[0][0].toString(),
              QStringLiteral("Tratamientos: 1 = C, 2 = B, 3 = A, 4 = D."));

    const Snapshot after = snapshot();
    undo();
    EXPECT_TRUE(snapshot() == before);
    EXPECT_EQ(table.rowAttribute(1), 7);
    ASSERT_EQ(resizes.count(), 2);
    EXPECT_EQ(resizes[1], (QVariantList{3, 3}));
    redo();
    EXPECT_TRUE(snapshot() == after);
    EXPECT_EQ(resizes.count(), 3);
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(History, AnExtractionThatIsRefusedChangesNothing)
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

TEST_F(History, ASquareOfTheSameSizeIsNoResize)
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

TEST_F(History, NamesOfAnExtractionAreCutToFiftyCharacters)
{
    const QString longName(70, QLatin1Char('n'));
    setClipboard(QString::fromLatin1(three).replace(QStringLiteral("f1"), longName));
    choose(openCellMenu(1, 1), "Extract from Clpbrd");
    EXPECT_EQ(table.rowName(1), longName.left(50));
}

TEST_F(History, UndoingAndRedoingAreTold)
{
    QSignalSpy notices(&table, &grid::TNTabEd::Notice);
    press(Qt::Key_Z, Qt::ControlModifier); // nothing to undo, nothing to tell
    EXPECT_TRUE(notices.isEmpty());
    type("7");
    press(Qt::Key_Return);
    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(notices.size(), 1);
    EXPECT_EQ(notices.takeFirst().constFirst().toString(),
              QStringLiteral("Se deshizo el último cambio de la tabla."));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(notices.size(), 1);
    EXPECT_EQ(notices.takeFirst().constFirst().toString(),
              QStringLiteral("Se rehízo el cambio de la tabla."));

    click(3, 3);
    type("9");
    press(Qt::Key_Return);
    table.resizeTable(2, 2);
    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(notices.size(), 1);
    EXPECT_TRUE(notices[0][0].toString().contains(QStringLiteral("no muestra ahora")));
}
