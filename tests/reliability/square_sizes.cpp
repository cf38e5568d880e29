// SPDX-License-Identifier: GPL-3.0-or-later
// How much processor time the windows take for a file of some size, step by step.
//
// square_sizes COLUMNS ROWS [editor] prints a line for each step: its name, its seconds and, for a
// test, the first line of its report that tells a result. Ends with 1, and the reason on stderr,
// where a step did not do what it is measured for.
#include "analysis/Frmanalisis.h"
#include "base/SafeFile.h"
#include "controls/RadioGroup.h"
#include "grid/view/NTabEd.h"
#include "square/editor/Formeditor.h"
#include "support/CellTyping.h"
#include "support/ScriptedDialogs.h"
#include "window/HandOff.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>

namespace {

/// Leaves the process where something does not hold.
void must(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::fflush(nullptr);
    std::_Exit(1);
}

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Does a step, with what the windows paint after it, and tells how long it took. No dialog says
/// that it failed.
template <typename Step>
void timed(const char* name, const ScriptedDialogs& dialogs, const Step& step)
{
    const double began = processorSeconds();
    const QString told = step();
    QApplication::processEvents();
    const QByteArray seconds = QByteArray::number(processorSeconds() - began, 'f', 2);
    must(dialogs.errors.empty(),
         dialogs.errors.empty() ? "" : qPrintable(dialogs.errors.front().text));
    std::printf("%s\t%s\t%s\n", name, seconds.constData(), told.toUtf8().constData());
    std::fflush(stdout);
}

/// Observations of seven digits, as a file has them.
QByteArray fileOf(int columns, int rows)
{
    std::mt19937 generator(1);
    QByteArray bytes = "Medida\r\n" + QByteArray::number(columns) + "\r\n" +
                       QByteArray::number(rows) + "\r\nFALSE FALSE FALSE\r\n";
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= columns; ++column)
            bytes += QByteArray::number(double(generator() % 10'000'000) / 1e4, 'f', 4) + '\t';
        bytes += "\r\n";
    }
    return bytes;
}

/// The lines of a report that begin with one of these tell its statistic or why there is none.
QString resultOf(const QPlainTextEdit& report)
{
    const QStringList lines = report.toPlainText().split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.contains(QLatin1String("orden")) ||
            line.startsWith(QLatin1String("Tratamientos")) ||
            line.startsWith(QLatin1String("Estadística")) ||
            line.startsWith(QLatin1String("C = ")) || line.startsWith(QLatin1String("M = ")))
            return line;
    }
    return lines.constFirst();
}

grid::TNTabEd& dataOf(const QWidget& window)
{
    return *window.findChild<grid::TNTabEd*>(QStringLiteral("Datos"));
}

/// The shape of the file that was opened.
struct Shape {
    int columns;
    int rows;

    bool isThatOf(const grid::TNTabEd& table) const
    {
        return table.NrOfColumns() == columns && table.NrOfRows() == rows;
    }
};

void analyse(const QString& fileName, Shape shape, ScriptedDialogs& dialogs)
{
    window::HandOff handOff;
    QMainWindow host;
    analysis::TAnalisis* analysis = nullptr;
    timed("abrir", dialogs, [&] {
        dialogs.openAnswers.emplace_back(fileName);
        analysis = new analysis::TAnalisis(handOff, dialogs, &host);
        host.setCentralWidget(analysis);
        host.show();
        return QString();
    });
    must(shape.isThatOf(dataOf(*analysis)), "the analysis has a table of another size");
    auto& report = *analysis->findChild<QPlainTextEdit*>(QStringLiteral("Reporte"));
    struct Choice {
        const char* name;
        int approach;
        int test;
    };
    for (const Choice& choice : {Choice{"F", 0, 0}, Choice{"Zimmerman", 1, 0},
                                 Choice{"Bennett", 1, 1}, Choice{"C", 2, 0}, Choice{"M", 2, 1}}) {
        auto& approaches =
            *analysis->findChild<controls::RadioGroup*>(QStringLiteral("RadioGroup1"));
        approaches.setItemIndex(choice.approach);
        analysis->RadioGroup1Click();
        analysis->findChild<controls::RadioGroup*>(QStringLiteral("RadioGroup2"))
            ->setItemIndex(choice.test);
        timed(choice.name, dialogs, [&] {
            analysis->SpeedButton1Click();
            return resultOf(report);
        });
        must(!report.toPlainText().isEmpty(), "there is no report");
        report.clear();
    }
}

void edit(const QString& fileName, Shape shape, ScriptedDialogs& dialogs)
{
    const int columns = shape.columns;
    window::HandOff handOff;
    QMainWindow host;
    square::TEditor* editor = nullptr;
    timed("cargar", dialogs, [&] {
        handOff.openOnCreate = true;
        dialogs.openAnswers.emplace_back(fileName);
        editor = new square::TEditor(handOff, dialogs, &host);
        host.setCentralWidget(editor);
        host.show();
        return QString();
    });
    auto& table = dataOf(*editor);
    must(shape.isThatOf(table), "the editor has a table of another size");
    timed("escribir", dialogs, [&] {
        typeIntoCell(table, columns, 1, QStringLiteral("12.5"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        return QString();
    });
    must(table.value(columns, 1) == 12.5, "what was typed is not in the table");
    QGuiApplication::clipboard()->setText(QStringLiteral("7.5\t").repeated(columns).chopped(1));
    table.setCurrentIndex(table.model()->index(0, 0));
    timed("pegar una fila", dialogs, [&] {
        QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
        return QString();
    });
    must(table.value(1, 1) == 7.5 && table.value(columns, 1) == 7.5, "the row is not in the table");
    timed("deshacer", dialogs, [&] {
        table.undo();
        return QString();
    });
    must(table.value(columns, 1) == 12.5 && !editor->Saved(), "it was not undone");
    timed("guardar", dialogs, [&] {
        editor->Guardar1Click();
        return QString();
    });
    must(editor->Saved() && editor->FileName() == fileName, "it was not saved");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 3)
        return 2;
    const Shape shape{std::atoi(argv[1]), std::atoi(argv[2])};
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("medida.asc"));
    if (base::writeFile(fileName, fileOf(shape.columns, shape.rows)))
        return 1;
    ScriptedDialogs dialogs;
    if (argc > 3)
        edit(fileName, shape, dialogs);
    else
        analyse(fileName, shape, dialogs);
    must(!::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed(),
         "a dialog was not expected, or a cell did not open");
    return 0;
}
