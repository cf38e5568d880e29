// SPDX-License-Identifier: GPL-3.0-or-later
// The way back from what the user did to a square: loads, orders, names and numbers alike.
#include "shell/PrincipalFixture.h"

#include "support/CellTyping.h"
#include "support/UserLocale.h"

#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

namespace {

class Undo : public Principal {
    UserLocale m_spanish{"es_ES"};

protected:
    QWidget& child() { return *area().activeSubWindow()->widget(); }
    template <typename Control>
    Control& control(const char* name)
    {
        return *child().findChild<Control*>(QString::fromLatin1(name));
    }
    QTableView& datos() { return control<QTableView>("Datos"); }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    static void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void enter(int column, int row, const char* text)
    {
        typeIntoCell(datos(), column, row, QString::fromLatin1(text));
        press(Qt::Key_Return);
    }
    void load(const QString& fileName)
    {
        dialogs.openAnswers.push_back(fileName);
        press(Qt::Key_F3);
    }
    QString copyOf(const char* name)
    {
        const QString copy = folder.filePath(QString::fromLatin1(name));
        EXPECT_TRUE(QFile::copy(sample(name), copy));
        return copy;
    }
    /// Clicks on the arrow that points up.
    void clickUp()
    {
        auto& spinner = control<QSpinBox>("NumTratamientos");
        QTest::mouseClick(&spinner, Qt::LeftButton, {}, {spinner.width() - 6, 4});
    }
    void typePrefix(const char* name, const char* text)
    {
        auto& edit = control<QLineEdit>(name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromLatin1(text));
    }

    /// All that the user sees of the square.
    QStringList shown()
    {
        QStringList texts{child().windowTitle(), control<QLineEdit>("Edit1").text(),
                          control<QLineEdit>("NFilas").text(),
                          control<QLineEdit>("NColumnas").text()};
        for (const char* name : {"Datos", "RefTratamientos"}) {
            const QAbstractItemModel& model = *control<QTableView>(name).model();
            for (int row = 0; row < model.rowCount(); ++row) {
                texts << QLatin1String("\n") + model.headerData(row, Qt::Vertical).toString();
                for (int column = 0; column < model.columnCount(); ++column)
                    texts << model.index(row, column).data().toString() +
                                 model.index(row, column)
                                     .data(Qt::AccessibleDescriptionRole)
                                     .toString();
            }
            for (int column = 0; column < model.columnCount(); ++column)
                texts << model.headerData(column, Qt::Horizontal).toString();
        }
        return texts;
    }

    /// Whether the editor would close without a question.
    bool isSaved()
    {
        dialogs.questions.clear();
        dialogs.yesNoAnswers = {false};
        qobject_cast<window::ChildWindow*>(&child())->mayClose(); // and closes nothing
        dialogs.yesNoAnswers.clear();
        return dialogs.questions.empty();
    }

    static void roll(QWidget& over)
    {
        const QPointF middle = QRectF(over.rect()).center();
        QWheelEvent wheel(middle, over.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&over, &wheel);
    }
};

} // namespace

TEST_F(Undo, ALoadOverUnsavedDataGoesBackInOneStep)
{
    frame.NuevoArchivo1Click();
    enter(2, 3, "12,5");
    typePrefix("NFilas", "Lote");
    datos().setFocus();
    const QStringList before = shown();
    load(sample("propelente.asc"));
    const QStringList loaded = shown();
    ASSERT_NE(loaded, before);
    EXPECT_TRUE(isSaved());

    undo();
    EXPECT_EQ(shown(), before);
    EXPECT_FALSE(isSaved());
    EXPECT_EQ(status(), QStringLiteral("Se deshizo el último cambio de la tabla."));
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(shown(), loaded);
    EXPECT_TRUE(isSaved());

    // Beyond the load the earlier steps follow.
    for (int i = 0; i < 3; ++i)
        undo();
    EXPECT_EQ(datos().model()->index(2, 1).data().toString(), QStringLiteral("0,000"));
    for (int i = 0; i < 3; ++i)
        redo();
    EXPECT_EQ(shown(), loaded);
}

TEST_F(Undo, OfALoadBringsTheFileBackAndWhetherItHoldsTheSquare)
{
    const QString first = copyOf("orden3.asc");
    const QString second = copyOf("propelente.asc");
    dialogs.openAnswers.push_back(first);
    frame.AbrirArchivo1Click();
    const QStringList before = shown();
    undo(); // a new window has nothing to undo
    EXPECT_EQ(shown(), before);

    load(second);
    undo();
    EXPECT_EQ(shown(), before);
    EXPECT_TRUE(isSaved());
    redo();
    EXPECT_EQ(child().windowTitle(), QStringLiteral("Editor - ") + second);
    EXPECT_TRUE(isSaved());

    // What another program has done to the first file in the meantime is not to be lost.
    ASSERT_TRUE(QFile::remove(first));
    undo();
    EXPECT_EQ(shown(), before);
    EXPECT_FALSE(isSaved());

    // An edit goes back with the file that it was made in.
    redo();
    enter(1, 1, "7");
    undo();
    undo();
    EXPECT_EQ(shown(), before);
}

TEST_F(Undo, OfTheOrderBringsBackTheNamesOfAFile)
{
    frame.NuevoArchivo1Click();
    load(copyOf("orden3.asc"));
    const QStringList before = shown();
    clickUp();
    ASSERT_EQ(control<QLineEdit>("Edit1").text(), QStringLiteral("4"));
    const QStringList grown = shown();
    ASSERT_EQ(datos().model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("Fila 1"));
    ASSERT_FALSE(before.contains(QStringLiteral("Fila 1")));
    EXPECT_TRUE(control<QSpinBox>("NumTratamientos").hasFocus());
    undo(); // where the user is
    EXPECT_EQ(shown(), before);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(shown(), grown);
    EXPECT_FALSE(isSaved());
    for (const char* table : {"Datos", "RefTratamientos"}) {
        control<QTableView>(table).setFocus();
        undo();
        EXPECT_EQ(shown(), before) << table;
        redo();
        EXPECT_EQ(shown(), grown) << table;
    }
}

TEST_F(Undo, OfAClickAtTheLimitBringsBackTheNamesToo)
{
    frame.NuevoArchivo1Click();
    load(copyOf("orden3.asc"));
    const QStringList before = shown();
    control<QSpinBox>("NumTratamientos").setFocus();
    press(Qt::Key_Down); // there is no order below
    ASSERT_NE(shown(), before);
    undo();
    EXPECT_EQ(shown(), before);
}

TEST_F(Undo, OfATypedNameIsOneStepWhereverTheKeyboardIs)
{
    frame.NuevoArchivo1Click();
    load(copyOf("orden3.asc"));
    const QStringList before = shown();
    typePrefix("NFilas", "Lote");
    const QStringList renamed = shown();
    typePrefix("NColumnas", "Hora");
    undo();
    EXPECT_EQ(shown(), renamed);
    undo();
    EXPECT_EQ(shown(), before);
    redo();
    EXPECT_EQ(shown(), renamed);
    EXPECT_TRUE(control<QLineEdit>("NColumnas").hasFocus());

    // Typed in the middle, the cursor stays there.
    auto& rows = control<QLineEdit>("NFilas");
    rows.setFocus();
    rows.setCursorPosition(1);
    QTest::keyClicks(&rows, QStringLiteral("xy"));
    EXPECT_EQ(rows.text(), QStringLiteral("Lxyote"));
}

TEST_F(Undo, MarksAndPrecisionsComeBackWithTheTable)
{
    frame.NuevoArchivo1Click();
    for (QAction* action : datos().findChild<QMenu*>(QStringLiteral("CellMenu"))->actions())
        if (action->text() == QStringLiteral("Mark as type A"))
            action->trigger();
    const QStringList before = shown();
    load(sample("orden3.asc"));
    undo();
    EXPECT_EQ(shown(), before);
}

TEST_F(Undo, ALoadOfWhatIsNoSquareTakesItsWarningAlong)
{
    const QString odd = folder.filePath(QStringLiteral("raro.asc"));
    QFile file(odd);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("x\r\n3\r\n4\r\nFALSE FALSE FALSE\r\n1 2 3\r\n4 5 6\r\n7 8 9\r\n1 2 3\r\n");
    file.close();
    frame.NuevoArchivo1Click();
    const QString greeting = status();
    load(odd);
    EXPECT_TRUE(status().startsWith(QStringLiteral("No es un cuadrado"))) << status().toStdString();
    undo();
    enter(1, 1, "5");
    EXPECT_EQ(status(), greeting);
}

TEST_F(Undo, ThereIsASecondKeyToRedoWhereverSomethingCanBeRedone)
{
    frame.NuevoArchivo1Click();
    enter(1, 1, "5");
    const QStringList entered = shown();
    undo();
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(shown(), entered);

    typeIntoCell(datos(), 2, 2, QStringLiteral("77"));
    auto* cell = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(cell, nullptr);
    undo();
    ASSERT_NE(cell->text(), QStringLiteral("77"));
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(cell->text(), QStringLiteral("77"));
    press(Qt::Key_Escape);

    dialogs.openAnswers.push_back(sample("orden3.asc"));
    frame.AnlisisdeDatos1Click();
    enter(1, 1, "5");
    const QString changed = datos().model()->index(0, 0).data().toString();
    undo();
    ASSERT_NE(datos().model()->index(0, 0).data().toString(), changed);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(datos().model()->index(0, 0).data().toString(), changed);
}

TEST_F(Undo, TheWheelChangesNothingInAControlWithoutTheFocus)
{
    frame.NuevoArchivo1Click();
    const QStringList before = shown();
    auto& order = control<QSpinBox>("NumTratamientos");
    roll(order);
    EXPECT_EQ(shown(), before);
    EXPECT_TRUE(datos().hasFocus());
    order.setFocus();
    roll(order);
    EXPECT_EQ(order.text(), QStringLiteral("4"));

    dialogs.openAnswers.push_back(sample("orden3.asc"));
    frame.AnlisisdeDatos1Click();
    auto& level = control<QScrollBar>("ScrollBar1");
    roll(level);
    EXPECT_EQ(level.value(), 95);
    roll(control<QRadioButton>("RadioGroup1Item0"));
    EXPECT_TRUE(control<QRadioButton>("RadioGroup1Item0").isChecked());
    level.setFocus();
    roll(level);
    EXPECT_NE(level.value(), 95);

    frame.ClculodePotencia1Click();
    const QList<QSpinBox*> spinners = child().findChildren<QSpinBox*>();
    EXPECT_EQ(spinners.size(), 2);
    for (QSpinBox* spinner : spinners) {
        const QString text = spinner->text();
        roll(*spinner);
        EXPECT_EQ(spinner->text(), text);
    }
}
