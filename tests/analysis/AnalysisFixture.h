// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/Frmanalisis.h"
#include "base/SafeFile.h"
#include "controls/RadioGroup.h"
#include "grid/view/NTabEd.h"
#include "support/CellTyping.h"
#include "support/Propellant.h"
#include "support/ScriptedDialogs.h"
#include "support/Text.h"
#include "window/HandOff.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <vector>

/// Observations of a square, row by row.
using Rows = std::vector<std::vector<double>>;

/// A made-up square of order 3.
inline const Rows orderThree{{12.5, 14, 9.75}, {11, 10.2, 16.1}, {8.3, 12, 13}};

/// Positions of the items in their groups.
enum Approach { classical, ranks, sequences };

/// An analysis window with scripted dialogs and a folder of its own.
class AnalysisFixture : public ::testing::Test {
protected:
    AnalysisFixture() { QLocale::setDefault(QLocale::c()); }
    ~AnalysisFixture() override
    {
        delete window;
        QLocale::setDefault(QLocale::system());
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    void writeBytes(const QString& name, const QByteArray& bytes) const
    {
        ASSERT_EQ(base::writeFile(path(name), bytes), std::nullopt);
    }

    /// A square file with names and attributes.
    static QByteArray squareFile(const Rows& rows)
    {
        const qsizetype columns = static_cast<qsizetype>(rows.front().size());
        QByteArray bytes = "Prueba\r\n" + QByteArray::number(columns) + "\t;nr. of columns\r\n" +
                           QByteArray::number(static_cast<qsizetype>(rows.size())) +
                           "\t;nr. of rows\r\nTRUE TRUE TRUE\t;row attributes\r\n";
        for (qsizetype column = 1; column <= columns; ++column)
            bytes += "\t\"Col " + QByteArray::number(column) + '"';
        bytes += "\r\n";
        for (std::size_t row = 0; row < rows.size(); ++row) {
            bytes += "0\t\"Fila " + QByteArray::number(static_cast<int>(row) + 1) + '"';
            for (const double value : rows[row])
                bytes += '\t' + QByteArray::number(value, 'g', 17);
            bytes += "\r\n";
        }
        return bytes;
    }

    /// Opens a window on a square as the frame does: its creation asks for the file.
    void openSquare(const Rows& rows)
    {
        writeBytes(QStringLiteral("datos.asc"), squareFile(rows));
        openFile(path(QStringLiteral("datos.asc")));
    }

    /// Opens a window whose open dialog is answered so; nothing stands for a cancelled one.
    void openFile(const std::optional<QString>& fileName)
    {
        dialogs.openAnswers.push_back(fileName);
        create();
    }

    void create() { take(new analysis::TAnalisis(handOff, dialogs)); }

    void take(analysis::TAnalisis* created)
    {
        delete window;
        window = created;
        statusTexts.clear();
        QObject::connect(created, &window::ChildWindow::statusText, created,
                         [this](const QString& text) { statusTexts << text; });
    }

    void show()
    {
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }

    template <typename Widget>
    Widget* find(const char* name) const
    {
        auto* found = window->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    controls::RadioGroup& approaches() const { return *find<controls::RadioGroup>("RadioGroup1"); }
    controls::RadioGroup& tests() const { return *find<controls::RadioGroup>("RadioGroup2"); }
    QScrollBar& level() const { return *find<QScrollBar>("ScrollBar1"); }
    grid::TNTabEd& datos() const { return *find<grid::TNTabEd>("Datos"); }
    QToolButton& ve() const { return *find<QToolButton>("ve"); }
    QPlainTextEdit& report() const { return *find<QPlainTextEdit>("Reporte"); }

    QStringList reportLines() const { return report().toPlainText().split(QLatin1Char('\n')); }
    /// What follows `label` in the report line that begins with it.
    QString afterLabel(const QString& label) const
    {
        for (const QString& line : reportLines())
            if (line.startsWith(label))
                return line.sliced(label.size());
        ADD_FAILURE() << "no line begins with " << label.toStdString() << " in\n"
                      << report().toPlainText().toStdString();
        return {};
    }

    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    void choose(controls::RadioGroup& group, int index) const
    {
        click(find<QRadioButton>(
            QStringLiteral("%1Item%2").arg(group.objectName()).arg(index).toLatin1().constData()));
        ASSERT_EQ(group.itemIndex(), index);
    }
    void run() const { click(find<QToolButton>("SpeedButton1")); }
    void run(int approach, int test) const
    {
        choose(approaches(), approach);
        choose(tests(), test);
        run();
    }

    /// Opens a cell of the grid and types into it without confirming.
    void typeIntoCell(int column, int row, const QString& text) const
    {
        ::typeIntoCell(datos(), column, row, text);
    }

    window::HandOff handOff;
    ScriptedDialogs dialogs;
    QPointer<analysis::TAnalisis> window;
    QStringList statusTexts;

private:
    QTemporaryDir m_folder;
};
