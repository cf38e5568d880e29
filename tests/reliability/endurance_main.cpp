// SPDX-License-Identifier: GPL-3.0-or-later
// Many days of work in one process: endurance CYCLES opens a square, edits, saves and analyses it
// by all five tests, looks at a distribution, runs a power study and closes everything, that often.
// After each cycle it tells what is left on the standard output:
//
//   cycle, bytes on the heap, kB of memory that no file gives, widgets, windows, open files
//
// and at the end, after "step", how many bytes a step costs that can be undone.
#include "shell/Application.h"
#include "shell/Principal.h"
#include "support/CellTyping.h"
#include "support/ScriptedDialogs.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <malloc.h>

namespace {

/// One user and his frame.
class Day {
public:
    Day()
    {
        QFile::copy(QStringLiteral(CL_SOURCE_DIR "/ejemplos/orden3.asc"), m_file);
        m_frame.show();
        m_frame.activateWindow();
        QApplication::processEvents();
    }

    void work(int number)
    {
        m_dialogs.openAnswers.emplace_back(m_file);
        m_frame.AbrirArchivo1Click();
        edit(number);
        analyse();
        study();
        while (QMdiSubWindow* place = area().activeSubWindow()) {
            place->close();
            settle();
        }
        m_dialogs.openRequests.clear(); // what the script remembers is no memory of the program
        m_dialogs.saveRequests.clear();
        m_dialogs.questions.clear();
        EXPECT_TRUE(m_dialogs.errors.empty());
    }

    /// Bytes that a corrected observation keeps, so that it can be undone.
    std::size_t costOfStep()
    {
        constexpr int steps = 1000;
        m_dialogs.openAnswers.emplace_back(m_file);
        m_frame.AbrirArchivo1Click();
        settle();
        edit(-1); // what the first one makes for good
        const std::size_t before = mallinfo2().uordblks;
        auto& table = control<QTableView>("Datos");
        for (int step = 1; step <= steps; ++step) {
            typeIntoCell(table, 1, 1, QString::number(step));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            settle();
        }
        return (mallinfo2().uordblks - before) / steps;
    }

private:
    QMdiArea& area() { return *m_frame.findChild<QMdiArea*>(); }
    QWidget& child() { return *area().activeSubWindow()->widget(); }
    template <typename Control>
    Control& control(const char* name)
    {
        return *child().findChild<Control*>(QString::fromLatin1(name));
    }
    static void settle()
    {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void edit(int number)
    {
        auto& table = control<QTableView>("Datos");
        typeIntoCell(table, 1, 1, QString::number(number));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        settle();
    }

    /// Saves, and goes through every test of every approach.
    void analyse()
    {
        const auto actions = child().findChildren<QAction*>(QStringLiteral("GuardaryAnalizar1"));
        ASSERT_EQ(actions.size(), 1);
        actions.constFirst()->trigger();
        settle();
        for (int approach = 0; approach < 3; ++approach) {
            choose("RadioGroup1", approach);
            for (int test = 0; test < 3; ++test) {
                if (choose("RadioGroup2", test))
                    control<QAbstractButton>("SpeedButton1").click();
                settle();
            }
        }
        control<QAbstractButton>("ve").click(); // the last test has an exact distribution
        settle();
        EXPECT_EQ(child().objectName(), QStringLiteral("Grafica"));
    }

    /// @return whether there is such a choice
    bool choose(const char* group, int item)
    {
        auto* choice = child().findChild<QRadioButton*>(
            QStringLiteral("%1Item%2").arg(QLatin1String(group)).arg(item));
        if (choice == nullptr || !choice->isEnabled())
            return false;
        choice->click();
        return true;
    }

    void study()
    {
        m_frame.ClculodePotencia1Click();
        settle();
        QTest::keyClick(&control<QSpinBox>("UpDown2"), Qt::Key_PageDown); // to 500 trials
        control<QAbstractButton>("BtnCalcular").click();
        settle();
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("cuadrado.asc"));
    ScriptedDialogs m_dialogs;
    shell::TPrincipal m_frame{m_dialogs};
};

/// Memory in kB that no file gives, resident or swapped out, by the system's account of this
/// process.
long ownMemory()
{
    QFile account(QStringLiteral("/proc/self/smaps_rollup"));
    if (!account.open(QFile::ReadOnly))
        return 0;
    long kilobytes = 0;
    for (const QByteArray& line : account.readAll().split('\n')) {
        if (line.startsWith("Anonymous:") || line.startsWith("Swap:"))
            kilobytes +=
                line.mid(line.indexOf(':') + 1).simplified().split(' ').constFirst().toLong();
    }
    return kilobytes;
}

} // namespace

int main(int argc, char** argv)
{
    ScriptedDialogs dialogs;
    shell::Application application(argc, argv, dialogs);
    const int cycles = argc > 1 ? std::atoi(argv[1]) : 1;
    Day day;
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        day.work(cycle);
        const auto files =
            QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot).size();
        std::printf("%d %zu %ld %lld %lld %lld\n", cycle, mallinfo2().uordblks, ownMemory(),
                    static_cast<long long>(QApplication::allWidgets().size()),
                    static_cast<long long>(QApplication::topLevelWidgets().size()),
                    static_cast<long long>(files));
        std::fflush(stdout);
    }
    std::printf("step %zu\n", day.costOfStep());
    return ::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0;
}
