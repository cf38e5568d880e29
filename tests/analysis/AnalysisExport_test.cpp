// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/AnalysisFixture.h"

#include "support/FileSizeLimit.h"
#include "support/Golden.h"

#include <QDir>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

class AnalysisExport : public AnalysisFixture {
protected:
    QByteArray contents(const QString& name) const
    {
        return base::readFile(path(name)).value_or(QByteArray("(no file)"));
    }
    QStringList folderEntries() const
    {
        return QDir(path(QString()))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    void exportTo(const std::optional<QString>& fileName)
    {
        dialogs.saveAnswers.push_back(fileName);
        window->menu()->actions().constFirst()->trigger();
    }

    /// One box that names the file and gives a reason, and the dialog again with the name; the
    /// window is as before.
    void expectRefused(const QString& fileName)
    {
        const QString caption = window->windowTitle();
        const QString text = report().toPlainText();
        const bool exact = ve().isEnabled();
        dialogs.errors.clear();
        dialogs.saveRequests.clear();
        statusTexts.clear();
        dialogs.saveAnswers.push_back(fileName);
        exportTo(std::nullopt); // the dialog comes back, and is cancelled
        ASSERT_EQ(dialogs.errors.size(), 1U) << fileName.toStdString();
        ASSERT_EQ(dialogs.saveRequests.size(), 2U);
        EXPECT_EQ(dialogs.saveRequests[1].fileName, fileName);
        EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Análisis"));
        EXPECT_TRUE(dialogs.errors[0].text.contains(fileName))
            << dialogs.errors[0].text.toStdString();
        EXPECT_GT(dialogs.errors[0].text.size(), fileName.size() + 40) << "the reason is missing";
        EXPECT_EQ(window->windowTitle(), caption);
        EXPECT_EQ(report().toPlainText(), text);
        EXPECT_EQ(ve().isEnabled(), exact);
        EXPECT_TRUE(statusTexts.isEmpty());
    }
};

} // namespace

TEST_F(AnalysisExport, OffersATextFile)
{
    openSquare(propellantRows);
    exportTo(std::nullopt);
    ASSERT_EQ(dialogs.saveRequests.size(), 1U);
    const window::FileRequest& request = dialogs.saveRequests[0];
    EXPECT_EQ(request.fileName, QStringLiteral("reporte.txt"));
    EXPECT_EQ(request.suffix, QStringLiteral("txt"));
    EXPECT_EQ(request.filter, QStringLiteral("Archivo de Texto (*.txt)|*.txt"));
    EXPECT_TRUE(request.confirmOverwrite);
    EXPECT_EQ(folderEntries(), QStringList(QStringLiteral("datos.asc"))) << "cancelled";
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(AnalysisExport, WritesTheReportByteForByte)
{
    openSquare(propellantRows);
    run();
    exportTo(path(QStringLiteral("reporte.txt")));
    EXPECT_TRUE(matchesGolden("analysis/data/propelente_f.txt",
                              contents(QStringLiteral("reporte.txt")).toStdString()));
    EXPECT_TRUE(dialogs.errors.empty());
}

TEST_F(AnalysisExport, AWindowThatNeverRanWritesItsOneLine)
{
    openSquare(propellantRows);
    exportTo(path(QStringLiteral("reporte.txt")));
    EXPECT_EQ(contents(QStringLiteral("reporte.txt")), QByteArray("REPORTE SIN GENERAR\r\n"));
}

TEST_F(AnalysisExport, AReportThatFailedHasNoLines)
{
    writeBytes(QStringLiteral("datos.asc"), squareFile(propellantRows));
    dialogs.openAnswers.emplace_back(path(QStringLiteral("datos.asc")));
    take(new analysis::TAnalisis(handOff, dialogs, nullptr, [](auto&&...) -> stats::TestReport {
        throw std::runtime_error("no report");
    }));
    run();
    exportTo(path(QStringLiteral("reporte.txt")));
    EXPECT_EQ(contents(QStringLiteral("reporte.txt")), QByteArray());
}

TEST_F(AnalysisExport, ReplacesAnOlderFile)
{
    openSquare(propellantRows);
    writeBytes(QStringLiteral("reporte.txt"), QByteArray(100000, 'x'));
    exportTo(path(QStringLiteral("reporte.txt")));
    EXPECT_EQ(contents(QStringLiteral("reporte.txt")), QByteArray("REPORTE SIN GENERAR\r\n"));
}

TEST_F(AnalysisExport, CarriesTheDecimalSignOfTheScreen)
{
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    openSquare(propellantRows);
    run();
    exportTo(path(QStringLiteral("reporte.txt")));
    QByteArray expected = QByteArray::fromStdString(
        golden::readWhole(CL_SOURCE_DIR "/tests/analysis/data/propelente_f.txt"));
    for (const char* number : {"0.05", "1.59", "37.5", "3.52", "82.5", "7.73", "10.67", "3.26"})
        expected.replace(number, QByteArray(number).replace('.', ','));
    EXPECT_EQ(contents(QStringLiteral("reporte.txt")), expected);
}

TEST_F(AnalysisExport, AFullDiskLeavesTheOldFileWhole)
{
    openSquare(propellantRows);
    run();
    writeBytes(QStringLiteral("reporte.txt"), "antes");
    const FileSizeLimit full(10);
    expectRefused(path(QStringLiteral("reporte.txt")));
    EXPECT_EQ(contents(QStringLiteral("reporte.txt")), QByteArray("antes"));
    EXPECT_EQ(folderEntries(),
              QStringList({QStringLiteral("datos.asc"), QStringLiteral("reporte.txt")}));
}

TEST_F(AnalysisExport, ImpossibleTargetsAreRefused)
{
    openSquare(propellantRows);
    run();
    QDir(path(QString())).mkdir(QStringLiteral("carpeta"));
    const QStringList before = folderEntries();
    expectRefused(path(QStringLiteral("no/existe.txt")));
    expectRefused(path(QStringLiteral("carpeta")));
    expectRefused(path(QString(300, QLatin1Char('a')) + QStringLiteral(".txt")));
    EXPECT_EQ(folderEntries(), before);
}

TEST_F(AnalysisExport, CtrlEExports)
{
    openSquare(propellantRows);
    QMainWindow frame;
    frame.menuBar()->addMenu(window->menu());
    frame.setCentralWidget(window);
    frame.show();
    frame.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    dialogs.saveAnswers.emplace_back(path(QStringLiteral("reporte.txt")));
    QTest::keyClick(&frame, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(contents(QStringLiteral("reporte.txt")), QByteArray("REPORTE SIN GENERAR\r\n"));
    EXPECT_TRUE(dialogs.saveAnswers.empty());
}

TEST_F(AnalysisExport, ACellBeingEditedIsCommittedFirst)
{
    openSquare(propellantRows);
    show();
    typeIntoCell(1, 1, QStringLiteral("2,75"));
    exportTo(std::nullopt);
    EXPECT_EQ(datos().value(1, 1), 2.75);
    EXPECT_EQ(dialogs.saveRequests.size(), 1U);

    typeIntoCell(1, 1, QStringLiteral("1.234,5"));
    dialogs.saveRequests.clear();
    window->menu()->actions().constFirst()->trigger();
    EXPECT_TRUE(dialogs.saveRequests.empty()) << "a refused cell stops the command";
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(datos().value(1, 1), 2.75);
}
