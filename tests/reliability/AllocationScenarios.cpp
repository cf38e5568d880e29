// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/AllocationScenarios.h"

#include "analysis/Frmanalisis.h"
#include "base/SafeFile.h"
#include "controls/RadioGroup.h"
#include "grid/view/NTabEd.h"
#include "reliability/FigureScenarios.h"
#include "square/editor/Formeditor.h"
#include "square/editor/GridFile.h"
#include "square/file/LoadedSquare.h"
#include "square/file/SquareFile.h"
#include "support/ScriptedDialogs.h"
#include "window/HandOff.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTemporaryDir>

namespace {

QString outOfMemory()
{
    return record::outOfMemoryMessage();
}

record::SquareData squareOfOrder(int order, double factor)
{
    record::SquareData square(order, order);
    for (int row = 1; row <= order; ++row) {
        square.setRowName(row, QStringLiteral("Parcela de la fila %1").arg(row));
        for (int column = 1; column <= order; ++column)
            square.setValue(column, row, factor * ((column * 7 + row * row * 3) % 11));
    }
    square.setIdentifier("Ensayo de memoria");
    return square;
}

/// Everything that a square holds, as the bytes of its file.
QByteArray held(const record::SquareData& square)
{
    return square::encode(square, QString()).bytes;
}

/// A folder with a file that is to be whole whatever happens.
class FileScenario : public Scenario {
public:
    bool filesAreWhole() const override
    {
        const QByteArray now = base::readFile(m_name).value_or(QByteArray());
        const bool whole = now == m_before || now == m_after;
        if (now != m_before)
            (void)base::writeFile(m_name, m_before); // for the next process
        return whole;
    }

protected:
    FileScenario() { (void)base::writeFile(m_name, m_before); }

    bool isAlone() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size() == 1;
    }

    QTemporaryDir m_folder;
    const QString m_name = m_folder.filePath(QStringLiteral("datos.asc"));
    const record::SquareData m_square = squareOfOrder(5, 1.5);
    const QByteArray m_before = held(squareOfOrder(6, 0.25));
    const QByteArray m_after = held(m_square);
};

class Reading : public FileScenario {
public:
    void run() override { m_loaded = square::loadSquare(m_name); }
    Outcome judge(bool thrown, std::string& damage) override
    {
        const auto again = square::loadSquare(m_name);
        damage = "it cannot be read any more";
        if (!again.value || held(again.value->square) != m_before)
            return Outcome::Damaged;
        if (thrown)
            return Outcome::Thrown;
        if (m_loaded.value) {
            const bool same = held(m_loaded.value->square) == m_before;
            damage = "another square was read";
            return same ? Outcome::Unaffected : Outcome::Damaged;
        }
        damage = m_loaded.reason.toStdString();
        return m_loaded.reason == outOfMemory() ? Outcome::Told : Outcome::Damaged;
    }

private:
    base::Outcome<square::LoadedSquare> m_loaded;
};

class Writing : public FileScenario {
public:
    Writing() { m_table.setSquare(m_square); }
    void run() override { m_written = square::Export(m_table, m_name); }
    Outcome judge(bool thrown, std::string& damage) override
    {
        const QByteArray now = base::readFile(m_name).value_or(QByteArray());
        damage = held(m_table.square()) != m_after   ? "the table has changed"
                 : now != m_before && now != m_after ? "the file is damaged"
                 : !isAlone()                        ? "another file was left"
                                                     : "it is not written and nobody was told";
        const bool whole = damage.ends_with("told");
        if (!whole || !canBeWrittenAgain(damage))
            return Outcome::Damaged;
        if (thrown)
            return Outcome::Thrown;
        if (m_written.value)
            return now == m_after ? Outcome::Unaffected : Outcome::Damaged;
        return m_written.reason.isEmpty() ? Outcome::Damaged : Outcome::Told;
    }

private:
    bool canBeWrittenAgain(std::string& damage)
    {
        const bool written = square::Export(m_table, m_name).value.has_value();
        const bool can =
            written && base::readFile(m_name).value_or(QByteArray()) == m_after && isAlone();
        if (!can)
            damage = "it cannot be written any more";
        return can;
    }

    ScriptedDialogs m_dialogs;
    grid::TNTabEd m_table{m_dialogs};
    base::Outcome<square::ExportedSquare> m_written;
};

void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&widget, &event);
}

class PastingAndUndoing : public Scenario {
public:
    PastingAndUndoing()
    {
        m_table.setSquare(squareOfOrder(6, 0.5));
        QGuiApplication::clipboard()->setText(
            QStringLiteral("1,5\t2,5\t3,5\n4,5\t5,5\t6,5\n7,5\t8,5\t9,5"));
        m_before = held(m_table.square());
        paste();
        m_pasted = held(m_table.square());
        m_table.undo();
        m_table.clearHistory();
    }
    void run() override
    {
        paste();
        m_between = m_table.value(1, 1);
        m_table.undo();
    }
    Outcome judge(bool thrown, std::string& damage) override
    {
        const QByteArray now = held(m_table.square());
        const bool told = !m_dialogs.errors.empty();
        for (int step = 0; step < 3; ++step)
            m_table.undo();
        damage = now != m_before && now != m_pasted   ? "the table holds something else"
                 : held(m_table.square()) != m_before ? "it cannot be undone"
                 : told && m_dialogs.errors[0].text != outOfMemory()
                     ? m_dialogs.errors[0].text.toStdString()
                     : "nobody was told";
        if (damage != "nobody was told")
            return Outcome::Damaged;
        paste();
        if (held(m_table.square()) != m_pasted) {
            damage = "it cannot be pasted any more";
            return Outcome::Damaged;
        }
        if (thrown)
            return Outcome::Thrown;
        const bool isDone = m_between == pastedValue && now == m_before;
        return told ? Outcome::Told : isDone ? Outcome::Unaffected : Outcome::Damaged;
    }

private:
    void paste() { press(m_table, Qt::Key_V, Qt::ControlModifier); }

    static constexpr double pastedValue = 1.5; ///< In the first cell.
    double m_between = 0.0;                    ///< What stood there before it was undone.
    ScriptedDialogs m_dialogs;
    grid::TNTabEd m_table{m_dialogs};
    QByteArray m_before;
    QByteArray m_pasted;
};

class Loading : public FileScenario {
public:
    Loading()
    {
        m_host.setCentralWidget(m_editor);
        m_before = state();
    }
    void run() override
    {
        m_dialogs.openAnswers.emplace_back(m_name);
        m_editor->Cargar1Click();
    }
    Outcome judge(bool thrown, std::string& damage) override
    {
        const State now = state();
        const bool told = !m_dialogs.errors.empty();
        const bool isOld = now.data == m_before.data && now.fileName == m_before.fileName;
        const bool isNew = now.data == FileScenario::m_before && now.fileName == m_name;
        damage = told && m_dialogs.errors[0].text != outOfMemory()
                     ? m_dialogs.errors[0].text.toStdString()
                 : !isOld && !isNew ? "the square and its file do not belong together"
                                    : "";
        if (!damage.empty())
            return Outcome::Damaged;
        // The table of the treatments may have stayed behind: it follows the next square.
        m_dialogs.openAnswers.assign(1, m_name);
        m_editor->Cargar1Click();
        damage = "it cannot be loaded any more, or nobody was told";
        if (state() != State{FileScenario::m_before, 6, 5.0, m_name})
            return Outcome::Damaged;
        return told                                              ? Outcome::Told
               : thrown                                          ? Outcome::Thrown
               : isNew && now.order == 6 && now.treatment == 5.0 ? Outcome::Unaffected
                                                                 : Outcome::Damaged;
    }

private:
    struct State {
        QByteArray data;
        int order;
        double treatment;
        QString fileName;

        bool operator==(const State&) const = default;
    };
    State state() const
    {
        const auto& reference =
            *m_editor->findChild<grid::TNTabEd*>(QStringLiteral("RefTratamientos"));
        return {held(m_editor->findChild<grid::TNTabEd*>(QStringLiteral("Datos"))->square()),
                reference.NrOfColumns(), reference.value(6, 6), m_editor->FileName()};
    }

    ScriptedDialogs m_dialogs;
    window::HandOff m_handOff;
    QMainWindow m_host;
    square::TEditor* m_editor = new square::TEditor(m_handOff, m_dialogs, &m_host);
    State m_before;
};

template <int approach, int test>
class Reporting : public FileScenario {
public:
    Reporting()
    {
        // Order 3, where C and M have exact distributions and draw no numbers.
        const QString name = m_folder.filePath(QStringLiteral("tres.asc"));
        (void)base::writeFile(name, held(squareOfOrder(3, 1.25)));
        m_dialogs.openAnswers.emplace_back(name);
        m_window = std::make_unique<analysis::TAnalisis>(m_handOff, m_dialogs);
        m_window->findChild<controls::RadioGroup*>(QStringLiteral("RadioGroup1"))
            ->setItemIndex(approach);
        m_window->RadioGroup1Click();
        m_window->findChild<controls::RadioGroup*>(QStringLiteral("RadioGroup2"))
            ->setItemIndex(test);
        run();
        m_report = report();
        m_data = data();
    }
    void run() override { m_window->SpeedButton1Click(); }
    Outcome judge(bool thrown, std::string& damage) override
    {
        const QString now = report();
        const bool told = !m_dialogs.errors.empty();
        damage = data() != m_data                    ? "the table has changed"
                 : now != m_report && !now.isEmpty() ? "there is half a report"
                 : told && m_dialogs.errors[0].text !=
                               QStringLiteral("No se pudo completar el análisis: no hay memoria "
                                              "suficiente.")
                     ? m_dialogs.errors[0].text.toStdString()
                     : "";
        if (!damage.empty())
            return Outcome::Damaged;
        run();
        damage = "there is no report any more";
        if (report() != m_report)
            return Outcome::Damaged;
        damage = "the report is there, and yet said not to be";
        if (told)
            return now.isEmpty() ? Outcome::Told : Outcome::Damaged;
        damage = "nobody was told";
        if (thrown)
            return Outcome::Thrown;
        return now == m_report ? Outcome::Unaffected : Outcome::Damaged;
    }

private:
    QString report() const
    {
        return m_window->findChild<QPlainTextEdit*>(QStringLiteral("Reporte"))->toPlainText();
    }
    QByteArray data() const
    {
        return held(m_window->findChild<grid::TNTabEd*>(QStringLiteral("Datos"))->square());
    }

    ScriptedDialogs m_dialogs;
    window::HandOff m_handOff;
    std::unique_ptr<analysis::TAnalisis> m_window;
    QString m_report;
    QByteArray m_data;
};

template <typename Kind>
std::unique_ptr<Scenario> made()
{
    return std::make_unique<Kind>();
}

} // namespace

const std::vector<NamedScenario>& allScenarios()
{
    static const std::vector<NamedScenario> all = {
        {"read", made<Reading>},
        {"write", made<Writing>},
        {"paste", made<PastingAndUndoing>},
        {"load", made<Loading>},
        {"draw", drawing},
        {"F", made<Reporting<0, 0>>},
        {"Zimmerman", made<Reporting<1, 0>>},
        {"Bennett", made<Reporting<1, 1>>},
        {"C", made<Reporting<2, 0>>},
        {"M", made<Reporting<2, 1>>},
        {"power", studying},
    };
    return all;
}
