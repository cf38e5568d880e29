// SPDX-License-Identifier: GPL-3.0-or-later
// What the status line says of a command that was carried out, and for how long.
#include "shell/PrincipalFixture.h"

#include "support/CellTyping.h"
#include "support/UserLocale.h"

#include <QClipboard>
#include <QFile>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <unistd.h>

namespace {

class Notices : public Principal {
    UserLocale m_spanish{"es_ES"};

protected:
    QWidget& child() { return *area().activeSubWindow()->widget(); }
    QTableView& table(const char* name)
    {
        return *child().findChild<QTableView*>(QString::fromLatin1(name));
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void enter(int column, int row, const char* text)
    {
        typeIntoCell(table("Datos"), column, row, QString::fromLatin1(text));
        press(Qt::Key_Return);
    }

    QString saveEditor(const char* name = "lote.asc")
    {
        const QString path = folder.filePath(QString::fromLatin1(name));
        dialogs.saveAnswers.push_back(path);
        press(Qt::Key_F2);
        return path;
    }
    void saveAndAnalyse()
    {
        entry({QStringLiteral("E&ditor"), QStringLiteral("Guardar y &Analizar...")})->trigger();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void openAnalysis()
    {
        dialogs.openAnswers.push_back(sample("orden3.asc"));
        frame.AnlisisdeDatos1Click();
    }
    void openGraph()
    {
        openAnalysis();
        child().findChild<QRadioButton*>(QStringLiteral("RadioGroup1Item2"))->click();
        child().findChild<QToolButton*>(QStringLiteral("SpeedButton1"))->click();
        child().findChild<QToolButton*>(QStringLiteral("ve"))->click();
    }

    /// The texts of the active window without a notice in front of it.
    QString greeting()
    {
        if (child().objectName() == QStringLiteral("Editor"))
            return QStringLiteral("Puede manejar archivos de datos para el análisis aquí. Para "
                                  "analizar los datos actuales use la opción 'Guardar y Analizar'");
        return QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'");
    }
};

} // namespace

TEST_F(Notices, ASaveIsToldUntilTheNextEdit)
{
    frame.NuevoArchivo1Click();
    const QString saved = QStringLiteral("Guardado: ") + saveEditor();
    EXPECT_EQ(status(), saved);
    enter(1, 1, "7");
    EXPECT_EQ(status(), greeting());
    press(Qt::Key_F2);
    EXPECT_EQ(status(), saved);
    enter(1, 1, "8");
    press(Qt::Key_F2);
    EXPECT_EQ(status(), saved);

    // A file that holds it already is not written again, but holds it.
    openAnalysis();
    press(Qt::Key_Tab, Qt::ControlModifier);
    ASSERT_EQ(status(), greeting());
    press(Qt::Key_F2);
    EXPECT_EQ(status(), saved);
}

TEST_F(Notices, WhatASaveCouldNotKeepIsToldWithIt)
{
    const QString path = folder.filePath(QStringLiteral("lote.asc"));
    const QString lost = QStringLiteral("Los otros nombres del archivo conservan lo anterior. ");
    const QByteArray name = QFile::encodeName(path);
    frame.NuevoArchivo1Click();
    saveEditor();
    ASSERT_EQ(link(name.constData(), (name + ".otro").constData()), 0);
    enter(1, 1, "7");
    press(Qt::Key_F2);
    EXPECT_EQ(status(), lost + QStringLiteral("Guardado: ") + path);

    ASSERT_EQ(link(name.constData(), (name + ".tercero").constData()), 0);
    enter(1, 1, "8");
    saveAndAnalyse();
    EXPECT_EQ(children().size(), 1) << "the analysis alone";
    EXPECT_EQ(status(), lost + QStringLiteral("Guardado: ") + path);
    enter(1, 1, "9");
    EXPECT_FALSE(status().contains(lost));

    const QString report = folder.filePath(QStringLiteral("reporte.txt"));
    for (const QString& told : {QString(), lost}) {
        dialogs.saveAnswers.push_back(report);
        entry({QStringLiteral("Aná&lisis"), QStringLiteral("&Exportar...")})->trigger();
        EXPECT_EQ(status(), told + QStringLiteral("Exportado: ") + report);
        const QByteArray other = QFile::encodeName(report) + ".otro";
        unlink(other.constData());
        ASSERT_EQ(link(QFile::encodeName(report).constData(), other.constData()), 0);
    }
}

TEST_F(Notices, ASaveThatFailedOrWasGivenUpIsNotTold)
{
    frame.NuevoArchivo1Click();
    dialogs.saveAnswers = {folder.filePath(QStringLiteral("no/lote.asc")), std::nullopt};
    press(Qt::Key_F2);
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(status(), greeting());
}

TEST_F(Notices, ASaveThatIsGivenUpLeavesNoWordOfTheOneBefore)
{
    openGraph();
    const QString path = folder.filePath(QStringLiteral("c.bmp"));
    const auto save = [this](const std::optional<QString>& answer) {
        dialogs.saveAnswers.push_back(answer);
        entry({QStringLiteral("&Gráfica"), QStringLiteral("&Guardar Gráfica...")})->trigger();
    };
    save(path);
    ASSERT_TRUE(status().startsWith(QStringLiteral("Guardado: "))) << status().toStdString();
    save(std::nullopt);
    EXPECT_FALSE(status().contains(QStringLiteral("Guardado"))) << status().toStdString();
}

TEST_F(Notices, AControlCharacterInANameDoesNotBreakTheLine)
{
    frame.NuevoArchivo1Click();
    saveEditor("dos\nlotes.asc");
    EXPECT_TRUE(status().endsWith(QStringLiteral("dos lotes.asc"))) << status().toStdString();
}

TEST_F(Notices, ThatASaveRoundedStaysThroughTheChangeToTheAnalysis)
{
    frame.NuevoArchivo1Click();
    enter(1, 1, "123456789");
    const QString rounded =
        QStringLiteral("Guardado con 8 cifras significativas de cada dato: ") + saveEditor();
    EXPECT_EQ(status(), rounded);
    press(Qt::Key_F2);
    EXPECT_EQ(status(), rounded); // no less true the second time
    saveAndAnalyse();
    ASSERT_EQ(child().objectName(), QStringLiteral("Analisis"));
    ASSERT_EQ(children().size(), 1);
    EXPECT_EQ(status(), rounded);
    enter(1, 1, "5");
    EXPECT_EQ(status(),
              QStringLiteral("Los cambios valen en esta ventana, pero no llegan al archivo."));
    enter(1, 1, "6");
    EXPECT_EQ(status(), greeting());
}

TEST_F(Notices, TheAnalysisGreetsWhereNothingWasRounded)
{
    frame.NuevoArchivo1Click();
    enter(1, 1, "12345678");
    saveEditor();
    saveAndAnalyse();
    ASSERT_EQ(child().objectName(), QStringLiteral("Analisis"));
    EXPECT_EQ(status(), greeting());
}

TEST_F(Notices, ALoadMakesThemOld)
{
    frame.NuevoArchivo1Click();
    saveEditor();
    dialogs.openAnswers.push_back(sample("orden3.asc"));
    press(Qt::Key_F3);
    EXPECT_EQ(status(), greeting());
}

TEST_F(Notices, ExportsAndGraphFilesAreTold)
{
    const QString report = folder.filePath(QStringLiteral("r.txt"));
    openAnalysis();
    dialogs.saveAnswers = {report};
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(status(), QStringLiteral("Exportado: ") + report);

    openGraph();
    dialogs.saveAnswers = {folder.filePath(QStringLiteral("g.png"))};
    entry({QStringLiteral("&Gráfica"), QStringLiteral("&Guardar Gráfica...")})->trigger();
    EXPECT_EQ(status(), QStringLiteral("Guardado: ") + folder.filePath(QStringLiteral("g.bmp")));
    dialogs.saveAnswers = {folder.filePath(QStringLiteral("d.txt"))};
    press(Qt::Key_F2);
    EXPECT_EQ(status(), QStringLiteral("Guardado: ") + folder.filePath(QStringLiteral("d.txt")));
}

TEST_F(Notices, AnUndoneChangeIsOldNewsWithTheNextOne)
{
    frame.NuevoArchivo1Click();
    enter(1, 1, "5");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(status(), QStringLiteral("Se deshizo el último cambio de la tabla."));
    enter(1, 1, "6");
    EXPECT_EQ(status(), greeting());
}

TEST_F(Notices, ANumberThatMayHaveBeenMeantInThousandsIsToldAsItWasRead)
{
    frame.NuevoArchivo1Click();
    enter(1, 1, "1.250");
    EXPECT_EQ(status(), QStringLiteral("«1.250» se leyó como 1,25"));
    EXPECT_EQ(table("Datos").model()->index(0, 0).data().toString(), QStringLiteral("1,250"));
    enter(1, 1, "1.5");
    EXPECT_EQ(status(), greeting());

    // Told also where the user clicks elsewhere, and where nothing changes.
    typeIntoCell(table("Datos"), 2, 2, QStringLiteral("1.500"));
    table("RefTratamientos").setFocus();
    EXPECT_EQ(status(), QStringLiteral("«1.500» se leyó como 1,5"));
    table("Datos").setFocus();
    enter(2, 2, "1.500");
    EXPECT_EQ(status(), QStringLiteral("«1.500» se leyó como 1,5"));

    table("Datos").setCurrentIndex(table("Datos").model()->index(0, 0));
    QGuiApplication::clipboard()->setText(QStringLiteral("2,5\t1.125\n3.875\t4"));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(status(), QStringLiteral("«1.125» se leyó como 1,125 (el primero de 2 números así)"));

    openAnalysis();
    enter(1, 1, "2.750");
    EXPECT_EQ(status(), QStringLiteral("«2.750» se leyó como 2,75"));
}

TEST_F(Notices, WhoPastesOrClearsWhereNothingCanBeChangedIsTold)
{
    frame.NuevoArchivo1Click();
    QGuiApplication::clipboard()->setText(QStringLiteral("5"));
    table("RefTratamientos").setFocus();
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_V, Qt::ControlModifier},
        {Qt::Key_Delete, Qt::NoModifier},
        {Qt::Key_7, Qt::NoModifier},
        {Qt::Key_Z, Qt::ControlModifier},
    };
    saveEditor();
    for (const auto& [key, modifiers] : keys) {
        press(Qt::Key_F2);
        ASSERT_TRUE(status().startsWith(QStringLiteral("Guardado")));
        press(key, modifiers);
        if (key != Qt::Key_Z) { // there is nothing to undo
            EXPECT_EQ(status(), QStringLiteral("Esta tabla es solo para consultar.")) << key;
        }
    }

    table("Datos").setFocus();
    enter(1, 1, "5");
    for (QAction* action : table("Datos").findChild<QMenu*>(QStringLiteral("CellMenu"))->actions())
        if (action->text() == QStringLiteral("Edit on/Off"))
            action->trigger();
    for (const auto& [key, modifiers] : keys) {
        press(Qt::Key_F2);
        ASSERT_TRUE(status().startsWith(QStringLiteral("Guardado")));
        press(key, modifiers);
        EXPECT_EQ(status(), QStringLiteral("La edición de la tabla está desactivada.")) << key;
    }
}
