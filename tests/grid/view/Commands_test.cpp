// SPDX-License-Identifier: GPL-3.0-or-later
// Every entry of the two context menus, and the keys that do the same.
#include "grid/view/GridFixture.h"

#include <QContextMenuEvent>

namespace {

class Commands : public GridFixture {
protected:
    QColor colorAt(int column, int row) const
    {
        return indexOf(column, row).data(Qt::ForegroundRole).value<QColor>();
    }

    static QStringList texts(const QMenu* menu)
    {
        QStringList result;
        for (const QAction* action : menu->actions())
            result += action->text();
        return result;
    }

    static std::vector<bool> enabled(const QMenu* menu)
    {
        std::vector<bool> result;
        for (const QAction* action : menu->actions())
            result.push_back(action->isEnabled());
        return result;
    }

    /// Closes the table's menus.
    void closeMenus()
    {
        for (QMenu* open : table.findChildren<QMenu*>())
            open->close();
    }
};

} // namespace

TEST_F(Commands, TheCellMenuHasItsTenEntriesInTheirOrder)
{
    QMenu* menu = openCellMenu(1, 1);
    ASSERT_TRUE(menu->isVisible());
    const QStringList expected = {QStringLiteral("Mark as type A"),
                                  QStringLiteral("Mark as type B"),
                                  QStringLiteral("Unmark type A"),
                                  QStringLiteral("Unmark type B"),
                                  QStringLiteral("Unmark All"),
                                  QStringLiteral("Clear"),
                                  QStringLiteral("Copy"),
                                  QStringLiteral("Paste"),
                                  QStringLiteral("Disable Editing"),
                                  QStringLiteral("Extract from Clpbrd")};
    EXPECT_EQ(texts(menu), expected);
    const QStringList scopes = {QStringLiteral("Range"), QStringLiteral("Column"),
                                QStringLiteral("Row"), QStringLiteral("All")};
    for (const int entry : {5, 6}) {
        ASSERT_NE(menu->actions().at(entry)->menu(), nullptr);
        EXPECT_EQ(texts(menu->actions().at(entry)->menu()), scopes);
    }
    closeMenus();
}

TEST_F(Commands, TheHeaderMenuOpensOnNamesAndCorner)
{
    const QStringList expected = {QStringLiteral("Edit Identifier"),
                                  QStringLiteral("Change Precision")};
    QMenu* menu = openColumnMenu(2);
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(texts(menu), expected);
    menu->close();
    EXPECT_TRUE(openHeaderMenu(table.verticalHeader()->viewport(), QPoint(10, 10))->isVisible());
    menu->close();
    auto* corner = table.findChild<QWidget*>(QStringLiteral("Corner"));
    ASSERT_NE(corner, nullptr);
    EXPECT_TRUE(openHeaderMenu(corner, QPoint(5, 5))->isVisible());
    menu->close();
    EXPECT_FALSE(openCellMenu(1, 1)->isHidden());
    closeMenus();
}

TEST_F(Commands, BothMenusOpenWithTheMenuKey)
{
    click(2, 3);
    QContextMenuEvent plain(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&table, &plain);
    EXPECT_TRUE(menu("CellMenu")->isVisible());
    EXPECT_FALSE(menu("HeaderMenu")->isVisible());
    closeMenus();

    QContextMenuEvent withControl(QContextMenuEvent::Keyboard, QPoint(), QPoint(),
                                  Qt::ControlModifier);
    QApplication::sendEvent(&table, &withControl);
    EXPECT_FALSE(menu("CellMenu")->isVisible());
    EXPECT_TRUE(menu("HeaderMenu")->isVisible());
    closeMenus();

    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(menu("CellMenu")->isVisible());
    closeMenus();
    press(Qt::Key_F10, Qt::ShiftModifier | Qt::ControlModifier);
    ASSERT_TRUE(menu("HeaderMenu")->isVisible());
    dialogs.integerAnswers = {1};
    choose(menu("HeaderMenu"), "Change Precision");
    EXPECT_EQ(table.precision(2), 1); // the column of the cursor
}

TEST_F(Commands, MarksShowInTheirColours)
{
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    selectCells(1, 1, 2, 2);
    choose(openCellMenu(2, 2), "Mark as type A");
    EXPECT_EQ(colorAt(1, 1), QColor(255, 0, 0));
    EXPECT_EQ(colorAt(2, 2), QColor(255, 0, 0));
    EXPECT_EQ(colorAt(3, 3), QColor(0, 32, 0)); // 8192
    selectCells(2, 2, 3, 3);
    choose(openCellMenu(3, 3), "Mark as type B");
    EXPECT_EQ(colorAt(3, 3), QColor(0, 0, 255));
    EXPECT_EQ(colorAt(2, 2), QColor(187, 0, 204)); // 13369531
    click(2, 2);
    choose(openCellMenu(2, 2), "Unmark type A");
    EXPECT_EQ(colorAt(2, 2), QColor(0, 0, 255));
    choose(openCellMenu(2, 2), "Unmark type B");
    EXPECT_EQ(colorAt(2, 2), QColor(0, 32, 0));
    choose(openCellMenu(2, 2), "Unmark All");
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column)
            EXPECT_EQ(colorAt(column, row), QColor(0, 32, 0));
    }
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(colorAt(1, 1), QColor(255, 0, 0));
    EXPECT_EQ(colorAt(3, 3), QColor(0, 0, 255));
    EXPECT_EQ(changes.count(), 0); // a mark is no change of the data
}

TEST_F(Commands, TheColoursCanBeSet)
{
    table.setColorNormal(Qt::darkGreen);
    table.setColorMarkedA(Qt::darkRed);
    table.setColorMarkedB(Qt::darkBlue);
    table.setColorMarkedBoth(Qt::darkMagenta);
    EXPECT_EQ(table.ColorMarkedBoth(), QColor(Qt::darkMagenta));
    choose(openCellMenu(1, 1), "Mark as type A");
    choose(openCellMenu(2, 1), "Mark as type B");
    EXPECT_EQ(colorAt(1, 1), QColor(Qt::darkRed));
    EXPECT_EQ(colorAt(2, 1), QColor(Qt::darkBlue));
    EXPECT_EQ(colorAt(3, 1), QColor(Qt::darkGreen));
    EXPECT_EQ(grid::colorFromInteger(8192), QColor(0, 32, 0));
    EXPECT_EQ(grid::colorFromInteger(255), QColor(Qt::red));
}

TEST_F(Commands, ClearSetsItsScopeToZero)
{
    const struct {
        const char* scope;
        std::vector<double> left;
    } cases[] = {{"Range", {11, 12, 13, 21, 0, 0, 31, 0, 0}},
                 {"Column", {11, 12, 0, 21, 22, 0, 31, 32, 0}},
                 {"Row", {11, 12, 13, 21, 22, 23, 0, 0, 0}},
                 {"All", {0, 0, 0, 0, 0, 0, 0, 0, 0}}};
    for (const auto& [scope, left] : cases) {
        fill();
        const std::vector<double> before = values();
        QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
        selectCells(2, 2, 3, 3);
        choose(openCellMenu(3, 3), "Clear", scope); // the cell that was clicked on
        EXPECT_EQ(values(), left) << scope;
        EXPECT_EQ(changes.count(), 1);
        press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(values(), before) << scope;
        EXPECT_EQ(changes.count(), 2);
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(values(), left) << scope;
        EXPECT_EQ(changes.count(), 3);
    }
}

TEST_F(Commands, DeleteClearsTheSelection)
{
    fill();
    selectCells(1, 2, 3, 2);
    press(Qt::Key_Delete);
    EXPECT_EQ(values(), (std::vector<double>{11, 12, 13, 0, 0, 0, 31, 32, 33}));
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    press(Qt::Key_Delete); // nothing left to clear
    EXPECT_EQ(changes.count(), 0);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.value(2, 2), 22.0);
}

TEST_F(Commands, EditOnOffIsRelabelledAndSwitchesEditing)
{
    fill();
    choose(openCellMenu(1, 1), "Disable Editing");
    EXPECT_FALSE(table.editingAllowed());
    QMenu* menu = openCellMenu(1, 1);
    EXPECT_EQ(menu->actions().at(8)->text(), QStringLiteral("Enable Editing"));
    EXPECT_EQ(enabled(menu),
              (std::vector<bool>{true, true, true, true, true, false, true, false, true, false}));
    closeMenus();
    setClipboard(QStringLiteral("5"));
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Delete);
    type("5");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), 11.0);
    choose(openCellMenu(1, 1), "Enable Editing");
    EXPECT_TRUE(table.editingAllowed());
    EXPECT_EQ(openCellMenu(1, 1)->actions().at(8)->text(), QStringLiteral("Disable Editing"));
    closeMenus();
    type("5");
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(1, 1), 5.0);
}

TEST_F(Commands, AReadOnlyTableCanBeMarkedAndCopiedButNotChanged)
{
    fill();
    const std::vector<double> before = values();
    table.setReadOnly(true);
    EXPECT_TRUE(table.readOnly());
    EXPECT_FALSE(table.currentIndex().isValid());
    setClipboard(QStringLiteral("5"));
    press(Qt::Key_C, Qt::ControlModifier); // nothing, there is no cursor yet
    EXPECT_EQ(clipboard(), QStringLiteral("5"));
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    QMenu* menu = openCellMenu(1, 1);
    EXPECT_EQ(enabled(menu),
              (std::vector<bool>{true, true, true, true, true, false, true, false, false, false}));
    closeMenus();
    EXPECT_EQ(enabled(openColumnMenu(1)), (std::vector<bool>{false, true}));
    closeMenus();
    setClipboard(QStringLiteral("5"));
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(values(), before);
    choose(openCellMenu(2, 1), "Copy", "Row");
    EXPECT_EQ(clipboard(), QStringLiteral("11\t12\t13"));
    choose(openCellMenu(1, 1), "Mark as type A");
    EXPECT_EQ(colorAt(1, 1), QColor(255, 0, 0));
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(Commands, NothingIsUndoneWhereEditingIsOff)
{
    type("5");
    press(Qt::Key_Return);
    table.setEditingAllowed(false);
    QSignalSpy notices(&table, &grid::TNTabEd::Notice);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.value(1, 1), 5.0);
    EXPECT_EQ(notices.count(), 1);
    table.setEditingAllowed(true);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.value(1, 1), 0.0);
    table.setReadOnly(true);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(table.value(1, 1), 0.0);
}

TEST_F(Commands, EditIdentifierKeepsUnchangedBytesAndDropsControlCharacters)
{
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    const QByteArray windowsBytes("Parcela n\xFAm. 1\x07");
    table.setIdentifier(windowsBytes);
    dialogs.lineAnswers = {QStringLiteral("Parcela núm. 1")};
    choose(openColumnMenu(1), "Edit Identifier");
    ASSERT_EQ(dialogs.questions.size(), 1U);
    EXPECT_EQ(dialogs.questions[0].text, QStringLiteral("Parcela núm. 1"));
    EXPECT_EQ(table.Identifier(), windowsBytes);
    EXPECT_EQ(changes.count(), 0);

    dialogs.lineAnswers = {std::nullopt};
    choose(openColumnMenu(1), "Edit Identifier");
    EXPECT_EQ(table.Identifier(), windowsBytes);

    dialogs.lineAnswers = {QStringLiteral("Año\t2024\r\n")};
    choose(openColumnMenu(1), "Edit Identifier");
    EXPECT_EQ(table.Identifier(), QByteArray("A\xC3\xB1o2024"));
    EXPECT_EQ(changes.count(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.Identifier(), windowsBytes);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(table.Identifier(), QByteArray("A\xC3\xB1o2024"));
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(Commands, ChangePrecisionActsOnTheColumnThatWasClicked)
{
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    table.setColumnName(3, QStringLiteral("Col 3"));
    table.setValue(3, 1, 2.0 / 3.0);
    dialogs.integerAnswers = {1};
    choose(openColumnMenu(3), "Change Precision");
    ASSERT_EQ(dialogs.questions.size(), 1U);
    EXPECT_TRUE(dialogs.questions[0].text.contains(QStringLiteral("«Col 3»")));
    EXPECT_EQ(table.precision(3), 1);
    EXPECT_EQ(table.precision(1), 3);
    EXPECT_EQ(shown(3, 1), QStringLiteral("0.7"));
    dialogs.integerAnswers = {-1};
    choose(openColumnMenu(3), "Change Precision");
    EXPECT_EQ(shown(3, 1), QStringLiteral("0.666666666666667"));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.precision(3), 1);
    dialogs.integerAnswers = {std::nullopt};
    choose(openColumnMenu(3), "Change Precision");
    EXPECT_EQ(table.precision(3), 1);
    EXPECT_EQ(changes.count(), 0); // the numbers are what they were
}

TEST_F(Commands, ACommandTakesTheOpenCellOverFirst)
{
    setClipboard(QStringLiteral("8"));
    click(1, 1);
    type("5");
    menu("CellMenu")->actions().at(7)->trigger(); // "Paste", the cell still open
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), 8.0);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.value(1, 1), 5.0);

    type("x");
    menu("CellMenu")->actions().at(7)->trigger();
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_NE(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), 5.0);
}

TEST_F(Commands, TheUndoKeyInAnOpenCellIsTheCellsOwn)
{
    type("5");
    press(Qt::Key_Return);
    type("123");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), 5.0);
    press(Qt::Key_Escape);
}

TEST_F(Commands, CtrlAIsLeftToTheWindowAndTheOwnKeysAreNot)
{
    QWidget window;
    grid::TNTabEd inner(dialogs, &window);
    inner.resize(400, 200);
    int opened = 0;
    int stolen = 0;
    QAction open(&window);
    open.setShortcut(QKeySequence(QStringLiteral("Ctrl+A")));
    QObject::connect(&open, &QAction::triggered, &window, [&opened] { ++opened; });
    QAction undo(&window);
    undo.setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    QObject::connect(&undo, &QAction::triggered, &window, [&stolen] { ++stolen; });
    window.addAction(&open);
    window.show();
    QApplication::setActiveWindow(&window);
    inner.setFocus();

    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(inner.selectionModel()->selectedIndexes().size(), 1);
    open.setEnabled(false);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(inner.selectionModel()->selectedIndexes().size(), 1);
    open.setEnabled(true);
    type("5");
    press(Qt::Key_A, Qt::ControlModifier); // an open cell claims it
    EXPECT_EQ(opened, 1);
    press(Qt::Key_Return);

    window.addAction(&undo);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stolen, 0);
    EXPECT_EQ(inner.value(1, 1), 0.0);
}
