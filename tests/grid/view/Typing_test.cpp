// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/GridFixture.h"
#include "support/CellTyping.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <new>
#include <utility>

namespace {

class Typing : public GridFixture {};

/// There is no memory for the first of the boxes.
class NoFirstBox : public ScriptedDialogs {
public:
    void showError(QWidget* parent, const QString& text, const QString& caption) override
    {
        if (std::exchange(m_isFirst, false))
            throw std::bad_alloc();
        ScriptedDialogs::showError(parent, text, caption);
    }

private:
    bool m_isFirst = true;
};

} // namespace

TEST_F(Typing, ReplacesANumberAndEnterMovesOnRowByRow)
{
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    click(1, 1);
    for (const char* number : {"24", "20.5", "19,25", "-4", "+5", "6e2", ".5", "8.", "1E-3"}) {
        type(number);
        ASSERT_NE(editor(), nullptr);
        press(Qt::Key_Return);
        ASSERT_EQ(editor(), nullptr);
    }
    const double expected[] = {24, 20.5, 19.25, -4, 5, 600, 0.5, 8, 0.001};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(table.value(i % 3 + 1, i / 3 + 1), expected[i]);
    EXPECT_EQ(changes.count(), 9);
    EXPECT_EQ(currentColumn(), 3); // it stops at the last cell
    EXPECT_EQ(currentRow(), 3);
    EXPECT_EQ(table.value(1, 1), 24.0);
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(Typing, EnterOnAClosedCellMovesOn)
{
    click(2, 1);
    press(Qt::Key_Enter);
    EXPECT_EQ(currentColumn(), 3);
    press(Qt::Key_Return);
    EXPECT_EQ(currentColumn(), 1);
    EXPECT_EQ(currentRow(), 2);
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(Typing, WithoutAutoAdvanceEnterStays)
{
    table.setAutoAdvance(false);
    click(2, 2);
    type("7");
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(2, 2), 7.0);
    EXPECT_EQ(currentColumn(), 2);
    EXPECT_EQ(currentRow(), 2);
    press(Qt::Key_Return);
    EXPECT_EQ(currentColumn(), 2);
}

TEST_F(Typing, TheOtherKeysThatLeaveACellTakeItsTextOver)
{
    struct {
        Qt::Key key;
        int column;
        int row;
    } const steps[] = {
        {Qt::Key_Tab, 3, 2}, {Qt::Key_Backtab, 1, 2}, {Qt::Key_Up, 2, 1}, {Qt::Key_Down, 2, 3}};
    double number = 0;
    for (const auto& step : steps) {
        click(2, 2);
        number += 1;
        type(std::to_string(static_cast<int>(number)).c_str());
        press(step.key);
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(table.value(2, 2), number);
        EXPECT_EQ(currentColumn(), step.column);
        EXPECT_EQ(currentRow(), step.row);
    }
}

TEST_F(Typing, TabMovesThroughTheTableAndLeavesItAtItsEnds)
{
    click(3, 1);
    press(Qt::Key_Tab);
    EXPECT_EQ(currentColumn(), 1);
    EXPECT_EQ(currentRow(), 2);
    press(Qt::Key_Backtab);
    EXPECT_EQ(currentColumn(), 3);
    EXPECT_EQ(currentRow(), 1);

    QWidget window;
    QLineEdit before(&window);
    grid::TNTabEd inner(dialogs, &window);
    QLineEdit after(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    inner.setFocus();
    inner.setCurrentIndex(inner.model()->index(2, 2));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &after);
    inner.setFocus();
    inner.setCurrentIndex(inner.model()->index(0, 0));
    press(Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), &before);
}

TEST_F(Typing, OpeningACellShowsItsFullValueAndLeavingItChangesNothing)
{
    const double thirds = 2.0 / 3.0;
    table.setValue(1, 1, thirds);
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    EXPECT_EQ(shown(1, 1), QStringLiteral("0.667"));
    doubleClick(1, 1);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("0.6666666666666666"));
    EXPECT_EQ(editor()->selectedText(), editor()->text());
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    press(Qt::Key_Home);
    press(Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    click(3, 3);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), thirds);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(Typing, TheSameNumberWrittenOtherwiseIsNoChange)
{
    table.setValue(1, 1, 24);
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    click(1, 1);
    type("24,0");
    press(Qt::Key_Return);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(table.value(1, 1), 24.0);
}

TEST_F(Typing, EscapeLeavesTheOldValue)
{
    table.setValue(1, 1, 24);
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    click(1, 1);
    type("99");
    press(Qt::Key_Escape);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), 24.0);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(Typing, ATextThatIsNoNumberStaysOpenToBeMended)
{
    table.setRowName(1, QStringLiteral("Fila 1"));
    table.setColumnName(2, QStringLiteral("Col 2"));
    table.setValue(2, 1, 24);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Down}) {
        dialogs.errors.clear();
        click(2, 1);
        type("1.2.3");
        press(key);
        ASSERT_EQ(dialogs.errors.size(), 1U);
        EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Dato no válido"));
        EXPECT_TRUE(dialogs.errors[0].text.contains(QStringLiteral("«1.2.3»")));
        EXPECT_TRUE(dialogs.errors[0].text.contains(QStringLiteral("más de un separador decimal")));
        EXPECT_TRUE(
            dialogs.errors[0].text.contains(QStringLiteral("fila «Fila 1», columna «Col 2»")));
        ASSERT_NE(editor(), nullptr);
        EXPECT_TRUE(editor()->hasFocus());
        EXPECT_EQ(editor()->selectedText(), QStringLiteral("1.2.3"));
        EXPECT_EQ(table.value(2, 1), 24.0);
        press(Qt::Key_Escape);
    }
    type("25");
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(2, 1), 25.0);
}

TEST_F(Typing, ABoxThatCouldNotBeShownIsShownTheNextTime)
{
    NoFirstBox boxes;
    grid::TNTabEd other(boxes);
    other.show();
    QApplication::setActiveWindow(&other);
    typeIntoCell(other, 1, 1, QStringLiteral("1.2.3"));
    EXPECT_THROW(other.commitEdit(), std::bad_alloc);
    EXPECT_FALSE(other.commitEdit());
    EXPECT_EQ(boxes.errors.size(), 1U);
    other.findChild<QLineEdit*>(QStringLiteral("CellEditor"))->setText(QStringLiteral("25"));
    EXPECT_TRUE(other.commitEdit());
    EXPECT_EQ(other.value(1, 1), 25.0);
}

TEST_F(Typing, ALetterInTheNumberIsAskedAfter)
{
    click(2, 1);
    type("2O");
    press(Qt::Key_Return);
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_TRUE(dialogs.errors[0].text.startsWith(QStringLiteral(
        "«2O» no es un número. ¿Hay una letra O o l en lugar de un 0 o un 1?\nCelda: fila ")));
}

TEST_F(Typing, ALongNumberThatIsTooLargeIsToldAsTooLarge)
{
    for (const QString& typed :
         {QString(400, u'9'), QStringLiteral("1,%1e999").arg(QString(50, u'0'))}) {
        dialogs.errors.clear();
        click(2, 1);
        type(typed.toLatin1().constData());
        press(Qt::Key_Return);
        ASSERT_EQ(dialogs.errors.size(), 1U);
        EXPECT_TRUE(dialogs.errors[0].text.startsWith(
            QStringLiteral("«%1…» es demasiado grande.\nCelda: fila ").arg(typed.left(40))))
            << dialogs.errors[0].text.toStdString();
        press(Qt::Key_Escape);
    }
}

TEST_F(Typing, ABadTextLeftByAClickIsRefusedOnceAndTheOldValueStays)
{
    table.setValue(2, 1, 24);
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    for (const char* text : {"12a", "", "nan", "0x10", "1e999"}) {
        dialogs.errors.clear();
        click(2, 1);
        type("1");
        for (int i = 0; i < 2; ++i)
            press(Qt::Key_Backspace);
        type(text);
        click(3, 3);
        QApplication::processEvents();
        ASSERT_EQ(dialogs.errors.size(), 1U) << text;
        EXPECT_TRUE(
            dialogs.errors[0].text.contains(QStringLiteral("Se conserva el dato anterior.")));
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(table.value(2, 1), 24.0);
        EXPECT_EQ(currentColumn(), 3);
    }
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(Typing, ABadTextLeftForAnotherWidgetIsRefusedOnce)
{
    QWidget window;
    grid::TNTabEd inner(dialogs, &window);
    QLineEdit other(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    inner.setFocus();
    type("x");
    other.setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(inner.value(1, 1), 0.0);
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(Typing, AnotherWindowAndAMenuLeaveTheCellOpen)
{
    click(1, 1);
    type("12");
    for (const Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(editor(), &out);
        ASSERT_NE(editor(), nullptr);
    }
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(1, 1), 12.0);
}

TEST_F(Typing, AnotherChildOfTheFrameTakesTheTextOver)
{
    QMdiArea frame;
    auto* inner = new grid::TNTabEd(dialogs);
    QMdiSubWindow* first = frame.addSubWindow(inner);
    QMdiSubWindow* second = frame.addSubWindow(new QLineEdit);
    frame.show();
    QApplication::setActiveWindow(&frame);
    frame.setActiveSubWindow(first);
    inner->setFocus();
    type("12");
    frame.setActiveSubWindow(second);
    EXPECT_EQ(inner->value(1, 1), 12.0);

    frame.setActiveSubWindow(first);
    inner->setFocus();
    inner->setCurrentIndex(inner->model()->index(0, 0));
    type("x");
    frame.setActiveSubWindow(second);
    QApplication::processEvents();
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(inner->value(1, 1), 12.0);
}

TEST_F(Typing, AnotherWidgetOfTheWindowTakesTheTextOverWhateverGaveItTheFocus)
{
    QWidget window;
    grid::TNTabEd inner(dialogs, &window);
    QLineEdit other(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    double number = 0;
    for (const Qt::FocusReason reason : {Qt::MouseFocusReason, Qt::ActiveWindowFocusReason,
                                         Qt::ShortcutFocusReason, Qt::OtherFocusReason}) {
        number += 1;
        inner.setFocus();
        type(std::to_string(static_cast<int>(number)).c_str());
        other.setFocus(reason);
        EXPECT_EQ(inner.value(1, 1), number);
    }
}

TEST_F(Typing, CommitEditTakesOverRefusesAndDoesNothing)
{
    EXPECT_TRUE(table.commitEdit());
    click(1, 1);
    type("12");
    EXPECT_TRUE(table.commitEdit());
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(table.value(1, 1), 12.0);
    EXPECT_EQ(currentColumn(), 1);

    type("1x");
    EXPECT_FALSE(table.commitEdit());
    ASSERT_EQ(dialogs.errors.size(), 1U);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->selectedText(), QStringLiteral("1x"));
    type("13");
    EXPECT_TRUE(table.commitEdit());
    EXPECT_EQ(table.value(1, 1), 13.0);
}

TEST_F(Typing, WhatIsTypedOutlastsAChangeBehindIt)
{
    click(1, 1);
    type("12");
    table.setValue(1, 1, 99);
    table.setValue(2, 2, 5);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("12"));
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(1, 1), 12.0);
}

TEST_F(Typing, ALoadThrowsTheOpenCellAway)
{
    click(3, 3);
    type("12");
    table.setSquare({2, 2});
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(table.commitEdit());
    EXPECT_EQ(table.value(1, 1), 0.0);
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(Typing, NothingOpensWhereEditingIsOffOrTheTableIsReadOnly)
{
    QSignalSpy notices(&table, &grid::TNTabEd::Notice);
    table.setEditingAllowed(false);
    EXPECT_FALSE(table.editingAllowed());
    doubleClick(1, 1);
    type("5");
    press(Qt::Key_F2);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(notices.count(), 1);
    table.setEditingAllowed(true);
    table.setReadOnly(true);
    doubleClick(1, 1);
    type("5");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(notices.count(), 2);
    EXPECT_EQ(table.value(1, 1), 0.0);
    table.setReadOnly(false);
    click(1, 1);
    type("5");
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(1, 1), 5.0);
}

TEST_F(Typing, TheUsersDecimalSignIsShownAndBothAreRead)
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    click(1, 1);
    type("2.75");
    press(Qt::Key_Return);
    type("12,345");
    press(Qt::Key_Return);
    EXPECT_EQ(table.value(1, 1), 2.75);
    EXPECT_EQ(table.value(2, 1), 12.345);
    EXPECT_EQ(shown(2, 1), QStringLiteral("12,345"));
    doubleClick(2, 1);
    EXPECT_EQ(editor()->text(), QStringLiteral("12,345"));
}

TEST_F(Typing, ALongNumberGetsAWiderEditor)
{
    table.setValue(1, 1, 0.12345678901234567);
    doubleClick(1, 1);
    EXPECT_GE(editor()->width(),
              editor()->fontMetrics().horizontalAdvance(QStringLiteral("0.12345678901234568")));
    type("1");
    EXPECT_EQ(editor()->width(), table.columnWidth(0) - 1);
}

TEST_F(Typing, AGridThatGoesTakesItsOpenCellAlong)
{
    auto* passing = new grid::TNTabEd(dialogs);
    passing->show();
    QApplication::setActiveWindow(passing);
    passing->setFocus();
    passing->setCurrentIndex(passing->model()->index(0, 0));
    type("7");
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    const QPointer<QWidget> cell = QApplication::focusWidget();
    delete passing;
    EXPECT_TRUE(cell.isNull());
    EXPECT_TRUE(dialogs.errors.empty());
}
