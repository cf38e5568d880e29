// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/GridFixture.h"

namespace {

class CopyPaste : public GridFixture {};

} // namespace

TEST_F(CopyPaste, CopyPutsItsScopeOnTheClipboard)
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    fill();
    table.setValue(2, 2, 2.5);
    const struct {
        const char* scope;
        const char* text;
    } cases[] = {{"Range", "2,5\t23\n32\t33"},
                 {"Column", "13\n23\n33"},
                 {"Row", "31\t32\t33"},
                 {"All", "11\t12\t13\n21\t2,5\t23\n31\t32\t33"}};
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    for (const auto& [scope, text] : cases) {
        setClipboard(QString());
        selectCells(2, 2, 3, 3);
        choose(openCellMenu(3, 3), "Copy", scope);
        EXPECT_EQ(clipboard(), QString::fromLatin1(text)) << scope;
    }
    setClipboard(QString());
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QStringLiteral("2,5\t23\n32\t33"));
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(CopyPaste, AMenuOnACellOutsideTheSelectionSelectsIt)
{
    fill();
    selectCells(1, 1, 2, 2);
    choose(openCellMenu(3, 3), "Copy", "Range");
    EXPECT_EQ(clipboard(), QStringLiteral("33"));
}

TEST_F(CopyPaste, PasteWritesARectangleAtTheCursorInOneStep)
{
    fill();
    const std::vector<double> before = values();
    const std::vector<double> after = {11, 12, 13, 21, 1, 2.5, 31, 3, 4};
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    setClipboard(QStringLiteral("1\t2,5\r\n3\t4\r\n"));
    choose(openCellMenu(2, 2), "Paste");
    EXPECT_EQ(values(), after);
    EXPECT_EQ(changes.count(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(values(), before);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(values(), after);

    setClipboard(QStringLiteral("7"));
    click(1, 1);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(table.value(1, 1), 7.0);
    changes.clear();
    press(Qt::Key_V, Qt::ControlModifier); // the same number again
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(CopyPaste, CopyAndPasteOfASelectionIsNoChangeHoweverItWasDrawn)
{
    fill();
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    selectCells(3, 3, 2, 2);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(dialogs.errors.empty());
    selectCells(2, 2, 3, 3);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(CopyPaste, PasteRefusesWhatDoesNotFitOrIsNoNumber)
{
    fill();
    const std::vector<double> before = values();
    QSignalSpy changes(&table, &grid::TNTabEd::OnChange);
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {"1\t2\t3\n4\t5\t6",
         "Los datos del portapapeles ocupan 3 columnas y 2 filas. Desde la fila «R-2», columna "
         "«C-2» solo hay sitio para 2 columnas y 2 filas. Para que quepan, ponga el cursor en la "
         "primera celda."},
        {"1\n2\n3",
         "Los datos del portapapeles ocupan 1 columna y 3 filas. Desde la fila «R-2», columna "
         "«C-2» solo hay sitio para 2 columnas y 2 filas. Para que quepan, ponga el cursor en la "
         "primera celda."},
        {"1\t2\n3\tcuatro",
         "Línea 2, campo 2: «cuatro» no es un número. Iba a la fila «R-3», columna «C-3». Copie "
         "solo "
         "números, sin nombres; los datos con su tratamiento, como «A 24», van por «Extract from "
         "Clpbrd», del menú de la tabla."},
        {"1\t2\n3", "La línea 2 tiene 1 campo y la primera, 2: los datos no forman un rectángulo."},
        {"", "El portapapeles no contiene ningún texto."}};
    for (const auto& [text, reason] : cases) {
        dialogs.errors.clear();
        setClipboard(QString::fromUtf8(text));
        choose(openCellMenu(2, 2), "Paste");
        ASSERT_EQ(dialogs.errors.size(), 1U);
        EXPECT_EQ(dialogs.errors[0].text, QString::fromUtf8(reason));
        EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Pegar"));
        EXPECT_EQ(values(), before);
    }
    EXPECT_EQ(changes.count(), 0);
}
