// SPDX-License-Identifier: GPL-3.0-or-later
// What a spreadsheet copies, brought into an editor of the frame by keys.
#include "shell/PrincipalFixture.h"

#include "support/UserLocale.h"

#include <QClipboard>
#include <QFile>
#include <QSpinBox>
#include <QTableView>
#include <QTest>

namespace {

class Spreadsheet : public Principal {
protected:
    Spreadsheet()
    {
        frame.NuevoArchivo1Click();
        frame.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
    }
    ~Spreadsheet() override { QGuiApplication::clipboard()->clear(); }

    QWidget& editor() { return *area().activeSubWindow()->widget(); }
    QTableView& table(const char* name = "Datos")
    {
        return *editor().findChild<QTableView*>(QString::fromLatin1(name));
    }
    QVariant inReference(int column, int row, int role)
    {
        return table("RefTratamientos").model()->index(row - 1, column - 1).data(role);
    }
    QString shown(int column, int row, const char* name = "Datos")
    {
        return table(name).model()->index(row - 1, column - 1).data().toString();
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), key, modifiers);
    }

    /// What the error box says, empty where there is none.
    std::string told()
    {
        const QString text = dialogs.errors.empty() ? QString() : dialogs.errors.back().text;
        dialogs.errors.clear();
        return text.toStdString();
    }
    std::string paste(const char* text)
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        press(Qt::Key_V, Qt::ControlModifier);
        return told();
    }
    /// By the last entry of the table's menu.
    std::string extract(const char* text)
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        press(Qt::Key_F10, Qt::ShiftModifier);
        press(Qt::Key_Up);
        press(Qt::Key_Return);
        return told();
    }
};

void expectToHold(const std::string& text, const char* part)
{
    EXPECT_NE(text.find(part), std::string::npos) << text;
}

} // namespace

TEST_F(Spreadsheet, WhatIsRefusedNamesTheWayThatLeadsOn)
{
    expectToHold(paste("A 24\tB 20\tC 19\nB 17\tC 24\tA 30\nC 18\tA 38\tB 26\n"),
                 "van por «Extract from Clpbrd», del menú de la tabla.");
    expectToHold(extract("24\t20\t19\n17\t24\t30\n18\t38\t26\n"), "péguelos con «Paste» (Ctrl+V).");
    expectToHold(extract("A 24\tB 2O\tC 19\nB 17\tC 24\tA 30\nC 18\tA 38\tB 26\n"),
                 "Línea 1, campo 2: «B 2O» no es un tratamiento con su observación, como «A 24». "
                 "Es la celda de la fila «R-1» y la columna «C-2». ¿Hay una letra O");
    expectToHold(paste("24\t2O\n17\t24\n"),
                 "Iba a la fila «Fila 1», columna «Col 2». ¿Hay una letra O");
    expectToHold(
        paste("24\t\t19\n17\t24\t30\n"),
        "Iba a la fila «Fila 1», columna «Col 2». Sin ese dato no se puede analizar el cuadrado");
    // What is too large because of a blank line or of names is told so, not to raise the order.
    expectToHold(paste("1\t2\t3\n\n4\t5\t6\n7\t8\t9\n"), "La línea 2 está vacía.");
    expectToHold(paste("\tEva\tAna\tLuz\nf1\t1\t2\t3\nf2\t4\t5\t6\nf3\t7\t8\t9\n"),
                 "Falta el número. Copie solo números, sin nombres");
    expectToHold(
        extract("A 24\tB 20\tC 19\nB 17\tC 24\tA 30\nC 18\tA 38\t26\n"),
        "«26» no es un tratamiento con su observación, como «A 24». Le falta el tratamiento.");
    expectToHold(paste("24\t44,O\n17\t24\n"), "«44,O» no es un número. Iba a la fila «Fila 1», "
                                              "columna «Col 2». ¿Hay una letra O");
    EXPECT_EQ(shown(1, 1), shown(3, 3)); // nothing came in
}

TEST_F(Spreadsheet, ARectangleThatIsTooLargeNamesTheOrderThatHoldsIt)
{
    const char* const five =
        "1\t2\t3\t4\t5\n2\t3\t4\t5\t1\n3\t4\t5\t1\t2\n4\t5\t1\t2\t3\n5\t1\t2\t3\t4\n";
    expectToHold(paste(five), "Para que quepan, suba «Num. Tratamientos» a 5.");
    auto* order = editor().findChild<QSpinBox*>(QStringLiteral("NumTratamientos"));
    order->setFocus();
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    table().setFocus();
    EXPECT_EQ(paste(five), "");
    EXPECT_EQ(shown(5, 5).left(1), QStringLiteral("4"));

    expectToHold(paste("1\t2\t3\t4\t5\t6\t7\n"), "solo hay sitio para 5 columnas y 5 filas.");
    press(Qt::Key_Right);
    expectToHold(paste(five), "Para que quepan, ponga el cursor en la primera celda.");
}

TEST_F(Spreadsheet, WhatSpreadsheetsAddIsForgiven)
{
    EXPECT_EQ(paste("\"24\"\t20\t19\t\n17\t24\t30\t\n18\t38\t26,5\t\n\t\t\t\n"), "");
    EXPECT_EQ(shown(3, 3).left(2), QStringLiteral("26"));
    EXPECT_EQ(paste("1.5,2.5,3.5\n4.5,5,6\n7,8,9\n"), "");
    EXPECT_EQ(shown(2, 3).left(1), QStringLiteral("8"));
    expectToHold(paste("1,5,2,5\n"), "No se sabe qué comas separan campos");
    expectToHold(paste("12,500,7.5\n"), "No se sabe qué comas separan campos");

    EXPECT_EQ(
        extract("Fila;Columna;Tratamiento;\"Valor\";Nota\nf1;c1;A;1;\nf1;c2;B;2;\"con\nlluvia\"\n"
                "f1;c3;C;3;\nf2;c1;B;4;\nf2;c2;C;5;\nf2;c3;A;6;\nf3;c1;C;7;\nf3;c2;A;8;\nf3;c3;B;9;"
                "\n;;;;\n"),
        "");
    EXPECT_EQ(shown(2, 1).left(1), QStringLiteral("2"));
    EXPECT_EQ(extract("f1,c1,A,1.5\nf1,c2,B,2\nf1,c3,C,3\nf2,c1,B,4\nf2,c2,C,5\nf2,c3,A,6\n"
                      "f3,c1,C,7\nf3,c2,A,8\nf3,c3,B,9\n"),
              "");
    EXPECT_EQ(shown(1, 1).left(1), QStringLiteral("1"));
    EXPECT_NE(shown(1, 1).indexOf(QLatin1Char('5')), -1);
}

TEST_F(Spreadsheet, ASquareThatIsNotCyclicIsToldTheWholeTruth)
{
    const std::string truth =
        extract("A 1\tB 2\tC 3\tD 4\nB 5\tA 6\tD 7\tC 8\nC 9\tD 10\tA 11\tB 12\n"
                "D 13\tC 14\tB 15\tA 16\n");
    expectToHold(truth, "ningún cambio de orden de sus filas, columnas y tratamientos");
    expectToHold(truth, "No lo escriba ni lo pegue como números");
    expectToHold(truth, "sortéelo a partir del cuadrado cíclico");
    EXPECT_EQ(table().model()->columnCount(), 3);
}

TEST_F(Spreadsheet, AFileWithAnObservationThatIsNoneNamesItInEditorAndAnalysis)
{
    QFile file(folder.filePath(QStringLiteral("letra.asc")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "t\r\n3\r\n2\r\nFALSE TRUE TRUE\r\n\tEva\tAna\tLuz\r\nlote1 1 2 3\r\nlote2 4 2O 6\r\n");
    file.close();
    dialogs.openAnswers = {file.fileName(), file.fileName()};
    for (const auto open :
         {&shell::TPrincipal::AbrirArchivo1Click, &shell::TPrincipal::AnlisisdeDatos1Click}) {
        (frame.*open)();
        EXPECT_EQ(told(), "Hay un error en el archivo, o no es un archivo ASCII.\n«2O» no es un "
                          "número: fila «lote2», columna «Ana». ¿Hay una letra O o l en lugar de "
                          "un 0 o un 1? Sin ese dato no se puede analizar el cuadrado: vea «Datos "
                          "que faltan» en el manual (F1).");
    }
}

TEST_F(Spreadsheet, TheTreatmentsKeepTheirNames)
{
    const auto tip = [this](int column, int row) {
        return inReference(column, row, Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(tip(1, 1), QString());
    EXPECT_EQ(extract("B 41,3\tA 38,2\tD 44,8\tC 36,5\nA 35,1\tB 44,6\tC 40,7\tD 43,9\n"
                      "C 38,4\tD 49,3\tB 41,2\tA 39,5\nD 42,6\tC 41,9\tA 33,4\tB 40,8\n"),
              "");
    EXPECT_TRUE(status().startsWith(QStringLiteral("Tratamientos: 1 = ")));
    EXPECT_TRUE(status().contains(QStringLiteral(". Se reordenaron las filas y las columnas.")))
        << status().toStdString();
    const QString key = status().section(QLatin1Char('.'), 0, 0);
    EXPECT_TRUE(key.contains(tip(1, 1)));
    EXPECT_TRUE(key.contains(tip(4, 1)));
    EXPECT_EQ(tip(4, 1), tip(1, 4));

    // The file keeps them, and so does an editor that loads it.
    dialogs.saveAnswers.push_back(folder.filePath(QStringLiteral("variedades.asc")));
    press(Qt::Key_F2);
    const QString fourth = tip(4, 1);
    dialogs.openAnswers.push_back(folder.filePath(QStringLiteral("variedades.asc")));
    frame.AbrirArchivo1Click();
    EXPECT_EQ(tip(4, 1), fourth);

    // With another order the numbers are those of other treatments.
    auto* order = editor().findChild<QSpinBox*>(QStringLiteral("NumTratamientos"));
    order->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(tip(1, 1), QString());
}

TEST_F(Spreadsheet, AnExtractionTellsHowThousandsWereRead)
{
    const UserLocale spanish("es_ES");
    EXPECT_EQ(extract("A 1.250\tB 2\tC 3\nB 4\tC 5\tA 1.006\nC 7\tA 8\tB 9\n"), "");
    EXPECT_TRUE(status().startsWith(QStringLiteral(
        "«1.250» se leyó como 1,25 (el primero de 2 números así). Tratamientos: 1 = A")))
        << status().toStdString();
    EXPECT_EQ(extract("R-1\tC-1\tA\t1.250\nR-1\tC-2\tB\t2\nR-1\tC-3\tC\t3\n"
                      "R-2\tC-1\tB\t4\nR-2\tC-2\tC\t5\nR-2\tC-3\tA\t6\n"
                      "R-3\tC-1\tC\t7\nR-3\tC-2\tA\t8\nR-3\tC-3\tB\t9\n"),
              "");
    EXPECT_TRUE(status().startsWith(QStringLiteral("«1.250» se leyó como 1,25. Tratamientos: ")))
        << status().toStdString();
}

TEST_F(Spreadsheet, WhatStaysOfAnotherExperimentIsTold)
{
    const char* const field = "A 1\tB 2\tC 3\nB 4\tC 5\tA 6\nC 7\tA 8\tB 9\n";
    EXPECT_EQ(extract(field), "");
    EXPECT_EQ(paste("11\t12\t13\n14\t15\t16\n17\t18\t19\n"), "");
    EXPECT_EQ(status(), QStringLiteral("Filas, columnas y tratamientos siguen como se extrajeron"));

    // The key of another order does not get into the file.
    editor().findChild<QSpinBox*>(QStringLiteral("NumTratamientos"))->setFocus();
    press(Qt::Key_Up);
    const QString path = folder.filePath(QStringLiteral("otro.asc"));
    dialogs.saveAnswers.push_back(path);
    press(Qt::Key_F2);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readLine().contains("Tratamientos"));

    // An extraction over a saved square with a title of its own.
    table().setFocus();
    EXPECT_EQ(extract(field), "");
    EXPECT_TRUE(status().endsWith(QStringLiteral(" Al guardar reemplazará «otro.asc».")))
        << status().toStdString();
}

TEST_F(Spreadsheet, TheReferenceShowsTheCellOfTheCurrentDatum)
{
    const auto pointed = [this] {
        QStringList cells;
        const int n = table("RefTratamientos").model()->rowCount();
        for (int row = 1; row <= n; ++row) {
            for (int column = 1; column <= n; ++column) {
                if (inReference(column, row, Qt::BackgroundRole).isValid())
                    cells << QStringLiteral("%1,%2").arg(column).arg(row);
            }
        }
        return cells.join(QLatin1Char(' ')).toStdString();
    };
    EXPECT_EQ(pointed(), "1,1");
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(pointed(), "2,2");
    press(Qt::Key_7);
    press(Qt::Key_Return);
    EXPECT_EQ(pointed(), "3,2");
    EXPECT_EQ(inReference(3, 2, Qt::DisplayRole).toString(), QStringLiteral("1"));
    EXPECT_EQ(extract("A 1\tB 2\tC 3\nB 4\tC 5\tA 6\nC 7\tA 8\tB 9\n"), "");
    EXPECT_EQ(pointed(), "1,1");
}
