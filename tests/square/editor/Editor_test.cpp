// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/EditorFixture.h"

#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QScrollBar>
#include <QSplitter>
#include <QStyle>
#include <QStyleOptionSpinBox>

using namespace squarebytes;

namespace {

class Editor : public EditorTest {
protected:
    /// Clicks one of the spinner's arrows.
    void clickArrow(QStyle::SubControl arrow) const
    {
        QStyleOptionSpinBox option;
        option.initFrom(&spinner());
        option.subControls = QStyle::SC_All;
        const QRect place =
            spinner().style()->subControlRect(QStyle::CC_SpinBox, &option, arrow, &spinner());
        QTest::mouseClick(&spinner(), Qt::LeftButton, {}, place.center());
    }
    void clickUp() const { clickArrow(QStyle::SC_SpinBoxUp); }
    void clickDown() const { clickArrow(QStyle::SC_SpinBoxDown); }

    /// The treatments of a cyclic square, written from the rule of rotation.
    static std::vector<double> cyclic(int order)
    {
        std::vector<double> row;
        std::vector<double> all;
        for (int treatment = 1; treatment <= order; ++treatment)
            row.push_back(treatment);
        for (int i = 0; i < order; ++i) {
            all.insert(all.end(), row.begin(), row.end());
            std::rotate(row.begin(), row.begin() + 1, row.end());
        }
        return all;
    }

    void expectOrder(int order) const
    {
        for (const grid::TNTabEd* table : {&datos(), &reference()}) {
            EXPECT_EQ(table->NrOfColumns(), order);
            EXPECT_EQ(table->NrOfRows(), order);
            EXPECT_EQ(columnNames(*table), numbered("Col", order));
            EXPECT_EQ(rowNames(*table), numbered("Fila", order));
        }
        for (int column = 1; column <= order; ++column) {
            EXPECT_EQ(datos().precision(column), 3);
            EXPECT_EQ(reference().precision(column), 0);
        }
        EXPECT_EQ(values(reference()), cyclic(order));
        EXPECT_EQ(edit("Edit1").text(), QString::number(order));
    }

    /// Makes the editor count as saved, by a save.
    void save()
    {
        if (m_editor->FileName().isEmpty())
            m_dialogs.saveAnswers.push_back(path("guardado.asc"));
        m_editor->Guardar1Click();
        ASSERT_TRUE(m_editor->Saved());
    }
};

} // namespace

TEST_F(Editor, StartsAsAnUnsavedSquareOfOrderThree)
{
    open();
    expectOrder(3);
    EXPECT_EQ(values(datos()), std::vector<double>(9, 0.0));
    EXPECT_EQ(m_editor->windowTitle(), utf8("Editor"));
    EXPECT_EQ(m_editor->FileName(), QString());
    EXPECT_FALSE(m_editor->Saved());
    EXPECT_TRUE(m_handOff.fileOpened);
    EXPECT_EQ(edit("NFilas").text(), utf8("Fila"));
    EXPECT_EQ(edit("NColumnas").text(), utf8("Col"));
    EXPECT_TRUE(m_dialogs.openRequests.empty());
}

TEST_F(Editor, GridsHaveTheirSettings)
{
    open();
    EXPECT_TRUE(datos().AutoAdvance());
    EXPECT_FALSE(reference().AutoAdvance());
    EXPECT_TRUE(datos().editingAllowed());
    EXPECT_FALSE(datos().readOnly());
    EXPECT_TRUE(reference().readOnly());
    for (const grid::TNTabEd* table : {&datos(), &reference()}) {
        EXPECT_EQ(table->ColorNormal(), QColor(0, 32, 0));
        EXPECT_EQ(table->ColorMarkedA(), QColor(Qt::red));
        EXPECT_EQ(table->ColorMarkedB(), QColor(Qt::blue));
        EXPECT_EQ(table->ColorMarkedBoth(), QColor(187, 0, 204));
    }
}

TEST_F(Editor, MenuAndCaptionsReadAsTheyShould)
{
    open();
    EXPECT_EQ(m_editor->menu()->title(), utf8("E&ditor"));
    EXPECT_EQ(action("Cargar1").text(), utf8("&Cargar..."));
    EXPECT_EQ(action("Cargar1").shortcut(), QKeySequence(Qt::Key_F3));
    EXPECT_EQ(action("Guardar1").text(), utf8("&Guardar..."));
    EXPECT_EQ(action("Guardar1").shortcut(), QKeySequence(Qt::Key_F2));
    EXPECT_EQ(action("GuardaryAnalizar1").text(), utf8("Guardar y &Analizar..."));
    EXPECT_TRUE(action("GuardaryAnalizar1").shortcut().isEmpty());
    EXPECT_EQ(m_editor->menu()->parent(), m_editor);

    std::map<QString, QWidget*> buddies;
    for (const QLabel* label : m_editor->findChildren<QLabel*>())
        buddies[label->text()] = label->buddy();
    const std::map<QString, QWidget*> expected = {{utf8("Num. Tratamientos"), &spinner()},
                                                  {utf8("Nombre Filas"), &edit("NFilas")},
                                                  {utf8("Nombre Columnas"), &edit("NColumnas")},
                                                  {utf8("DATOS"), &datos()},
                                                  {utf8("REFERENCIA: TRATAMIENTOS"), &reference()}};
    EXPECT_EQ(buddies, expected);
}

TEST_F(Editor, EveryControlHasANameForTheScreenReader)
{
    open();
    for (const char* name :
         {"NumTratamientos", "Edit1", "NFilas", "NColumnas", "Datos", "RefTratamientos"}) {
        const auto* control = m_editor->findChild<QWidget*>(utf8(name));
        ASSERT_NE(control, nullptr) << name;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << name;
    }
}

TEST_F(Editor, TabWalksThroughTheOptionsToTheGrid)
{
    open();
    EXPECT_EQ(QApplication::focusWidget(), &datos()); // ready for typing
    spinner().setFocus();
    for (const char* next : {"NFilas", "NColumnas", "Datos"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), m_editor->findChild<QWidget*>(utf8(next))) << next;
    }
}

TEST_F(Editor, EverythingFitsIntoTheSmallestFrame)
{
    open();
    EXPECT_LE(m_editor->minimumSizeHint().width(), 600);
    EXPECT_LE(m_editor->minimumSizeHint().height(), 260);
    m_host->resize(600, 300);
    QCoreApplication::processEvents();
    for (const QLabel* label : m_editor->findChildren<QLabel*>())
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
    EXPECT_GE(edit("NFilas").width(), edit("NFilas").fontMetrics().horizontalAdvance(u'a') * 8);
    EXPECT_GE(reference().width(), 100);
}

// ---- Treatment layout --------------------------------------------------------------------------

TEST_F(Editor, TreatmentsAreTheCyclicSquareOfEveryOrder)
{
    EXPECT_EQ(cyclic(3), std::vector<double>({1, 2, 3, 2, 3, 1, 3, 1, 2}));
    EXPECT_EQ(cyclic(4), std::vector<double>({1, 2, 3, 4, 2, 3, 4, 1, 3, 4, 1, 2, 4, 1, 2, 3}));
    open();
    for (int order = 3; order <= 6; ++order) {
        expectOrder(order);
        m_editor->aleatorizar();
        expectOrder(order);
        clickUp();
    }
    EXPECT_EQ(reference().model()->index(1, 5).data().toString(), utf8("1")); // without decimals
}

TEST_F(Editor, TreatmentsFollowTheReferenceGridOnly)
{
    open();
    reference().resizeTable(2, 2);
    m_editor->aleatorizar();
    EXPECT_EQ(values(reference()), std::vector<double>({1, 2, 2, 1}));
    reference().resizeTable(3, 2); // the row beyond the grid is ignored
    m_editor->aleatorizar();
    EXPECT_EQ(values(reference()), std::vector<double>({1, 2, 3, 2, 3, 1}));
}

// ---- Number of treatments ----------------------------------------------------------------------

TEST_F(Editor, TheArrowsChangeTheOrderOfBothGrids)
{
    open();
    for (const int order : {4, 5, 6}) {
        clickUp();
        expectOrder(order);
    }
    for (const int order : {5, 4, 3}) {
        clickDown();
        expectOrder(order);
    }
}

TEST_F(Editor, TheSpinnerNeitherWrapsNorGoesBeyondItsLimits)
{
    open();
    clickDown();
    expectOrder(3);
    for (int i = 0; i < 6; ++i)
        clickUp();
    expectOrder(6);
}

TEST_F(Editor, AClickAtTheLimitIsAChangeToo)
{
    open();
    save();
    clickDown();
    EXPECT_FALSE(m_editor->Saved());
    expectOrder(3);
}

TEST_F(Editor, TheSpinnerWorksFromTheKeyboardAndTakesNoTyping)
{
    open();
    spinner().setFocus();
    QTest::keyClick(&spinner(), Qt::Key_Up);
    expectOrder(4);
    QTest::keyClick(&spinner(), Qt::Key_PageUp);
    expectOrder(6);
    QTest::keyClick(&spinner(), Qt::Key_Down);
    expectOrder(5);
    save();
    for (const Qt::Key key : {Qt::Key_4, Qt::Key_Backspace, Qt::Key_Delete})
        QTest::keyClick(&spinner(), key);
    EXPECT_TRUE(edit("Edit1").isReadOnly());
    EXPECT_TRUE(m_editor->Saved());
    expectOrder(5);
}

TEST_F(Editor, AValueSetByAnAssistiveToolIsAChange)
{
    open();
    spinner().setValue(5);
    expectOrder(5);
}

TEST_F(Editor, ACellBeingEditedIsTakenOverBeforeTheOrderChanges)
{
    open();
    typeIntoCell(2, 2, "7.5");
    clickUp();
    EXPECT_EQ(datos().value(2, 2), 7.5);
    expectOrder(4);
}

TEST_F(Editor, ARefusedCellKeepsTheOrder)
{
    open();
    typeIntoCell(2, 2, "7.5.1");
    spinner().stepBy(1);
    EXPECT_EQ(m_dialogs.errors.size(), 1U);
    expectOrder(3);
    EXPECT_EQ(datos().value(2, 2), 0.0);
}

// ---- Names -------------------------------------------------------------------------------------

TEST_F(Editor, EveryKeystrokeInAPrefixRenamesBothGrids)
{
    open();
    save();
    QLineEdit& rows = edit("NFilas");
    rows.setFocus();
    rows.selectAll();
    QTest::keyClicks(&rows, QStringLiteral("Lo"));
    EXPECT_EQ(rowNames(datos()), numbered("Lo", 3));
    EXPECT_FALSE(m_editor->Saved());
    QTest::keyClicks(&rows, QStringLiteral("te"));
    EXPECT_EQ(rowNames(datos()), numbered("Lote", 3));
    EXPECT_EQ(rowNames(reference()), numbered("Lote", 3));
    EXPECT_EQ(columnNames(datos()), numbered("Col", 3));

    save();
    QLineEdit& columns = edit("NColumnas");
    columns.setFocus();
    QTest::keyClicks(&columns, QStringLiteral("umna"));
    EXPECT_EQ(columnNames(datos()), numbered("Columna", 3));
    EXPECT_EQ(columnNames(reference()), numbered("Columna", 3));
    EXPECT_FALSE(m_editor->Saved());
    EXPECT_EQ(rowNames(datos()), numbered("Lote", 3));

    clickUp(); // new headers take the prefixes too
    EXPECT_EQ(rowNames(datos()), numbered("Lote", 4));
    EXPECT_EQ(columnNames(reference()), numbered("Columna", 4));
}

TEST_F(Editor, WhatAnAssistiveToolSetsBehindAQuestionIsTakenBack)
{
    open();
    const QStringList names = rowNames(datos()) + columnNames(datos());
    QDialog question(m_editor);
    question.setModal(true);
    question.show();
    edit("NFilas").setText(utf8("Lote"));
    edit("NColumnas").setText(utf8("Operador"));
    spinner().setValue(5);
    EXPECT_EQ(edit("NFilas").text(), utf8("Fila"));
    EXPECT_EQ(edit("NColumnas").text(), utf8("Col"));
    EXPECT_EQ(spinner().value(), 3);
    EXPECT_EQ(rowNames(datos()) + columnNames(datos()), names);
    question.hide();
    edit("NFilas").setText(utf8("Lote"));
    EXPECT_EQ(datos().rowName(1), utf8("Lote 1"));
}

TEST_F(Editor, PrefixesTakeNeitherQuotesNorControlCharacters)
{
    open();
    save();
    QLineEdit& rows = edit("NFilas");
    QTest::keyClicks(&rows, QStringLiteral("\""));
    EXPECT_EQ(rows.text(), utf8("Fila"));
    EXPECT_TRUE(m_editor->Saved());

    QApplication::clipboard()->setText(utf8(" \"A\"\t\n\x01\u0085 ñ"));
    rows.paste();
    EXPECT_EQ(rows.text(), utf8("Fila A ñ"));
    EXPECT_EQ(rows.cursorPosition(), 8);
    EXPECT_EQ(rowNames(datos()), numbered("Fila A ñ", 3));
    EXPECT_FALSE(m_editor->Saved());
    rows.setText(utf8("\"\""));
    EXPECT_EQ(rowNames(datos()), numbered("", 3));
}

TEST_F(Editor, ALongPrefixLeavesRoomForTheNumber)
{
    open();
    QTest::keyClicks(&edit("NColumnas"), QString(80, u'x'));
    const QStringList names = columnNames(datos());
    EXPECT_TRUE(names.at(0).endsWith(utf8(" 1")));
    EXPECT_TRUE(names.at(2).endsWith(utf8(" 3")));
}

// ---- Editing -----------------------------------------------------------------------------------

TEST_F(Editor, AnEditedCellIsAChange)
{
    open();
    save();
    enterIntoCell(2, 1, "24.5");
    EXPECT_EQ(datos().value(2, 1), 24.5);
    EXPECT_FALSE(m_editor->Saved());
}

TEST_F(Editor, NothingChangesTheReference)
{
    open();
    save();
    reference().setFocus();
    reference().setCurrentIndex(reference().model()->index(0, 0));
    QTest::keyClicks(&reference(), QStringLiteral("9"));
    QTest::keyClick(&reference(), Qt::Key_Delete);
    expectOrder(3);
    EXPECT_TRUE(m_editor->Saved());
}

TEST_F(Editor, AnExtractedExperimentTakesTheEditorWithIt)
{
    open();
    save();
    QApplication::clipboard()->setText(utf8("A 1\tB 2\tC 3\tD 4\tE 5\nB 6\tC 7\tD 8\tE 9\tA 10\n"
                                            "C 11\tD 12\tE 13\tA 14\tB 15\n"
                                            "D 16\tE 17\tA 18\tB 19\tC 20\n"
                                            "E 21\tA 22\tB 23\tC 24\tD 25\n"));
    datos().setPrecision(1, 7);
    entry("CellMenu", "Extract from Clpbrd").trigger();
    EXPECT_TRUE(m_dialogs.errors.empty());
    EXPECT_EQ(datos().value(5, 5), 25.0);
    EXPECT_EQ(reference().NrOfColumns(), 5);
    EXPECT_EQ(reference().NrOfRows(), 5);
    EXPECT_EQ(values(reference()), cyclic(5));
    EXPECT_EQ(rowNames(reference()), numbered("Fila", 5));
    EXPECT_EQ(edit("Edit1").text(), utf8("5"));
    EXPECT_FALSE(m_editor->Saved());
    for (int column = 1; column <= 5; ++column) {
        EXPECT_EQ(datos().precision(column), 3);
        EXPECT_EQ(reference().precision(column), 0);
    }

    QTest::keyClick(&datos(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(datos().NrOfColumns(), 3);
    EXPECT_EQ(values(reference()), cyclic(3));
    EXPECT_EQ(edit("Edit1").text(), utf8("3"));
}

TEST_F(Editor, MessagesOfTheGridsReachTheStatusLine)
{
    open();
    emit datos().Notice(utf8("copiado"));
    EXPECT_EQ(m_notices, QStringList(utf8("copiado")));
}

// ---- Room --------------------------------------------------------------------------------------

TEST_F(Editor, TheDataGetTheRoomThatTheTreatmentsCanSpare)
{
    openWith(ofOrder5());
    const auto isCut = [](const grid::TNTabEd& table) {
        return table.horizontalScrollBar()->maximum() > 0;
    };
    const auto resizeTo = [this](int width) {
        m_host->resize(width, 500);
        QApplication::processEvents();
    };
    const int both = datos().wholeSize().width() + reference().wholeSize().width();
    resizeTo(both + 60);
    EXPECT_FALSE(isCut(datos()));
    EXPECT_FALSE(isCut(reference()));

    QFont large = datos().font();
    large.setPointSize(15);
    datos().setFont(large);
    reference().setFont(large);
    resizeTo(datos().wholeSize().width() + reference().wholeSize().width() * 3 / 4);
    EXPECT_FALSE(isCut(datos())); // the data come first
    EXPECT_TRUE(isCut(reference()));
    resizeTo(2 * both);
    EXPECT_NEAR(datos().width(), 1.5 * reference().width(), 10);

    // A longer name or number takes what it needs at once.
    resizeTo(datos().wholeSize().width() * 5 / 3 + 40);
    ASSERT_FALSE(isCut(datos()));
    enterIntoCell(1, 1, "12345678901234");
    EXPECT_FALSE(isCut(datos()));
    clickUp();
    QApplication::processEvents();
    EXPECT_FALSE(isCut(datos()));
}

TEST_F(Editor, WhereTheUserHasDrawnTheDividerItStays)
{
    openWith(ofOrder5());
    m_host->resize(1000, 500);
    QApplication::processEvents();
    auto& panes = *m_editor->findChild<QSplitter*>(QStringLiteral("Splitter1"));
    QWidget& divider = *panes.handle(1);
    const QPoint at = divider.rect().center();
    QTest::mousePress(&divider, Qt::LeftButton, {}, at);
    QTest::mouseMove(&divider, at - QPoint(150, 0));
    QTest::mouseRelease(&divider, Qt::LeftButton, {}, at - QPoint(150, 0));
    const QList<int> drawn = panes.sizes();
    enterIntoCell(1, 1, "12345678901234");
    EXPECT_EQ(panes.sizes(), drawn);
}

// ---- Focus -------------------------------------------------------------------------------------

TEST_F(Editor, ActivationInvitesAndDeactivationRests)
{
    open();
    m_editor->FormActivate();
    m_editor->FormDeactivate();
    EXPECT_EQ(m_status,
              QStringList({utf8("Puede manejar archivos de datos para el análisis aquí. Para "
                                "analizar los datos actuales use la opción 'Guardar y Analizar'"),
                           utf8("Listo.")}));
}
