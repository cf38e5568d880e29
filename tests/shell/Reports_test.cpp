// SPDX-License-Identifier: GPL-3.0-or-later
// The reports of the analysis and of the power study within the frame: what the keyboard does in
// them, and what the status line says of a report that rests on what has changed since.
#include "shell/PrincipalFixture.h"

#include "support/CellTyping.h"
#include "support/UserLocale.h"

#include <QClipboard>
#include <QFile>
#include <QHelpEvent>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

namespace {

class FrameReports : public Principal {
protected:
    QWidget* activeChild() { return area().activeSubWindow()->widget(); }

    void openAnalysis(const char* name)
    {
        dialogs.openAnswers.push_back(sample(name));
        frame.AnlisisdeDatos1Click();
    }

    template <typename Control>
    Control* child(const char* name)
    {
        return activeChild()->findChild<Control*>(QString::fromUtf8(name));
    }

    void analyse() { child<QToolButton>("SpeedButton1")->click(); }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void enterFirstCell(const char* text)
    {
        typeIntoCell(*child<QTableView>("Datos"), 1, 1, QString::fromUtf8(text));
        press(Qt::Key_Return);
    }

    QByteArray exported()
    {
        QFile file(folder.filePath(QStringLiteral("reporte.txt")));
        dialogs.saveAnswers.push_back(file.fileName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    QPlainTextEdit& focusedText(const char* name)
    {
        auto* text = child<QPlainTextEdit>(name);
        text->setFocus();
        return *text;
    }

    static QString copied()
    {
        QApplication::clipboard()->clear();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    }
};

const QString complete =
    QStringLiteral("Análisis completo. Puede realizar otro o guardar los resultados.");
const QString invitation =
    QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'");
const QString levelChanged = QStringLiteral("Cambió el nivel: pulse Analizar");
const QString dataChanged = QStringLiteral("Cambiaron los datos: pulse Analizar");

} // namespace

TEST_F(FrameReports, AChangedLevelMakesTheReportStaleUntilItIsRunAgain)
{
    openAnalysis("orden3.asc");
    child<QScrollBar>("ScrollBar1")->setFocus();
    press(Qt::Key_Left);
    EXPECT_EQ(status(), invitation) << "there is no report yet";
    analyse();
    EXPECT_EQ(status(), complete);
    press(Qt::Key_Left);
    EXPECT_EQ(status(), levelChanged);
    press(Qt::Key_Right);
    EXPECT_EQ(status(), complete) << "the report answers again";
    press(Qt::Key_Right);
    EXPECT_EQ(status(), levelChanged);
    analyse();
    EXPECT_EQ(status(), complete);
}

TEST_F(FrameReports, AnotherTestOrApproachMakesTheReportStale)
{
    openAnalysis("orden3.asc");
    QTest::mouseClick(child<QRadioButton>("RadioGroup1Item2"), Qt::LeftButton);
    analyse();
    QTest::mouseClick(child<QRadioButton>("RadioGroup2Item1"), Qt::LeftButton);
    EXPECT_EQ(status(), QStringLiteral("Cambió la prueba: pulse Analizar"));
    QTest::mouseClick(child<QRadioButton>("RadioGroup1Item1"), Qt::LeftButton);
    EXPECT_EQ(status(), QStringLiteral("Cambió el enfoque: pulse Analizar"));
    analyse();
    EXPECT_EQ(status(), complete);
}

TEST_F(FrameReports, AStaleReportStaysSoWhileOtherWindowsComeAndGo)
{
    openAnalysis("orden3.asc");
    QTest::mouseClick(child<QRadioButton>("RadioGroup1Item2"), Qt::LeftButton);
    analyse();
    child<QScrollBar>("ScrollBar1")->setFocus();
    press(Qt::Key_Home);
    EXPECT_EQ(status(), levelChanged);
    child<QToolButton>("ve")->click();
    EXPECT_NE(status(), levelChanged) << "the graph has something else to say";
    area().activeSubWindow()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(status(), levelChanged);
    analyse();
    EXPECT_EQ(status(), complete);
}

TEST_F(FrameReports, ChangedDataMakeTheReportStaleAndDoNotReachTheFile)
{
    openAnalysis("orden3.asc");
    const QString once =
        QStringLiteral("Los cambios valen en esta ventana, pero no llegan al archivo.");
    enterFirstCell("1,5");
    EXPECT_EQ(status(), once) << "before the first report too";
    analyse();
    EXPECT_EQ(status(), complete);
    enterFirstCell("2,5");
    EXPECT_EQ(status(), dataChanged) << "the file was spoken of once";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(child<QTableView>("Datos")->model()->index(0, 0).data().toString().left(1),
              QStringLiteral("1"));
    enterFirstCell("3");
    EXPECT_EQ(status(), dataChanged);
}

TEST_F(FrameReports, NothingThatIsToldOfTheTableHidesThatTheReportIsStale)
{
    const UserLocale spanish("es_ES");
    openAnalysis("orden3.asc");
    analyse();
    enterFirstCell("2,5");
    EXPECT_EQ(status(),
              dataChanged + QStringLiteral(". Los cambios valen en esta ventana, pero no llegan al "
                                           "archivo."));
    enterFirstCell("1.250");
    EXPECT_EQ(status(), dataChanged + QStringLiteral(". «1.250» se leyó como 1,25"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(status().startsWith(dataChanged + QStringLiteral(". Se deshizo ")))
        << status().toStdString();
}

TEST_F(FrameReports, AStaleReportIsExportedAsItIsAndSaysSo)
{
    openAnalysis("orden3.asc");
    analyse();
    const QByteArray fresh = exported();
    EXPECT_TRUE(status().startsWith(QStringLiteral("Exportado: "))) << status().toStdString();
    child<QScrollBar>("ScrollBar1")->setFocus();
    press(Qt::Key_Left);
    EXPECT_EQ(exported(), fresh);
    EXPECT_TRUE(status().startsWith(QStringLiteral("Exportado el reporte de antes del cambio: ")))
        << status().toStdString();
}

TEST_F(FrameReports, TheMouseOverATestTellsWhatItAsks)
{
    openAnalysis("orden3.asc");
    QTest::mouseClick(child<QRadioButton>("RadioGroup1Item1"), Qt::LeftButton);
    auto* bennett = child<QRadioButton>("RadioGroup2Item1");
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), bennett->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(bennett, &help);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("empates")))
        << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST_F(FrameReports, CtrlASelectsTheReportToBeCopied)
{
    openAnalysis("orden3.asc");
    analyse();
    const QPlainTextEdit& report = focusedText("Reporte");
    EXPECT_TRUE(report.toPlainText().contains(QStringLiteral("Fuentes de")));
    EXPECT_EQ(copied(), report.toPlainText());
    EXPECT_EQ(dialogs.openRequests.size(), 1U) << "only the square was asked for";
}

TEST_F(FrameReports, CtrlASelectsThePowerLogToBeCopied)
{
    frame.ClculodePotencia1Click();
    QPlainTextEdit& log = focusedText("log");
    log.setPlainText(QStringLiteral("Potencias con dif = 0 :\nC : 0,05"));
    EXPECT_EQ(copied(), log.toPlainText());
    EXPECT_TRUE(dialogs.openRequests.empty());
}

TEST_F(FrameReports, CtrlAOpensAFileElsewhere)
{
    openAnalysis("orden3.asc");
    dialogs.openAnswers.emplace_back(std::nullopt);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(dialogs.openRequests.size(), 2U);
}
