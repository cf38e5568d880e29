// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/GridFixture.h"

#include <random>

namespace {

/// A square of one digit's order, as an experiment that was copied.
base::Outcome<grid::Extraction> squareOfOrder(QStringView digit, const QByteArray& identifier)
{
    if (digit.size() != 1)
        return base::Outcome<grid::Extraction>::refused(QStringLiteral("No es un experimento."));
    const int order = digit.front().digitValue();
    record::SquareData square(order, order);
    square.setIdentifier(identifier);
    for (int i = 1; i <= order; ++i) {
        square.setColumnName(i, QStringLiteral("c%1").arg(i));
        square.setValue(i, order, i);
    }
    return base::Outcome<grid::Extraction>::of({square, {}, QStringLiteral("Traído.")});
}

class History : public GridFixture {
protected:
    History() { table.setExtractor(squareOfOrder); }

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
            setClipboard(random() % 2 == 0 ? QStringLiteral("4") : QStringLiteral("3"));
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
        table.setSquare({3, 3});
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
