// SPDX-License-Identifier: GPL-3.0-or-later
// What children are there for: typing, files, tests, graphs, studies.
#include "shell/walk/FrameWalk.h"

#include <QAbstractButton>
#include <QMenu>
#include <QTest>

namespace walk {

void FrameWalk::addTypingSteps()
{
    const auto isInGrid = [this] {
        return m_model.hasChild() && !m_model.child().isMinimised &&
               m_model.child().control == QStringLiteral("Datos");
    };
    const auto typeNumber = [this] {
        m_hands.type(QStringLiteral("%1,25").arg(1000 + ++m_names)); // unlike any before
        m_model.child().cellIsOpen = true;
    };
    add("a number and Enter", isInGrid, [=, this] {
        if (!m_model.child().cellIsOpen)
            typeNumber();
        m_hands.press(Qt::Key_Return);
        m_model.commit();
    });
    add(
        "a number without Enter", [=, this] { return isInGrid() && !m_model.child().cellIsOpen; },
        typeNumber);
    add(
        "no number after all", [=, this] { return isInGrid() && m_model.child().cellIsOpen; },
        [this] {
            m_hands.press(Qt::Key_Escape);
            m_model.child().cellIsOpen = false;
        });
}

void FrameWalk::addEditorSteps()
{
    add(
        "other row names", [this] { return m_model.isActive(Kind::Editor) && canClick("NFilas"); },
        [this] {
            click("NFilas");
            m_hands.press(Qt::Key_A, Qt::ControlModifier);
            m_hands.type(QString::number(++m_names));
            m_model.changed();
        });

    const auto isEditor = [this] { return m_model.isActive(Kind::Editor); };
    add("save, by key", isEditor, [this] { save([this] { m_hands.press(Qt::Key_F2); }); });
    add("save, by menu", isEditor, [this] {
        save([this] { choose({QStringLiteral("E&ditor"), QStringLiteral("&Guardar...")}); });
    });
    add("load, by key", isEditor, [this] { load([this] { m_hands.press(Qt::Key_F3); }); });
    add("load, by menu", isEditor, [this] {
        load([this] { choose({QStringLiteral("E&ditor"), QStringLiteral("&Cargar...")}); });
    });
}

void FrameWalk::save(const Action& command)
{
    m_model.commit();
    Child& child = m_model.child();
    if (!child.hasFile && flag()) {
        m_dialogs.saveAnswers = {std::nullopt};
        command();
        return;
    }
    const QString captionBeforeName = QStringLiteral("Editor - ");
    if (!child.hasFile) {
        const QString fileName = freshName();
        m_dialogs.saveAnswers = {fileName};
        child.caption = captionBeforeName + fileName;
    }
    command();
    child.hasFile = true;
    child.isSaved = true;
    m_model.notice = QStringLiteral("Guardado: ") + child.caption.mid(captionBeforeName.size());
}

void FrameWalk::load(const Action& command)
{
    m_model.commit();
    if (flag()) {
        m_dialogs.openAnswers = {std::nullopt};
        command();
        return;
    }
    const Sample file = sample();
    m_dialogs.openAnswers = {file.fileName};
    command();
    Child& child = m_model.child();
    child.caption = QStringLiteral("Editor - ") + file.fileName;
    child.hasFile = true;
    child.isSaved = true;
    child.order = file.order;
    m_model.comeBack();
}

/// Prepares the answer of the user who is about to be asked for a name.
void FrameWalk::saveOrNot(const QString& told, const QString& suffix)
{
    if (flag()) {
        m_dialogs.saveAnswers = {std::nullopt};
        m_model.notice.clear();
        return;
    }
    const QString name = freshName(suffix);
    m_dialogs.saveAnswers = {name};
    m_model.notice = told + name;
}

void FrameWalk::addAnalysisSteps()
{
    const auto canChoose = [this](const char* approach) {
        return [this, approach] { return m_model.canWork(Kind::Analysis) && canClick(approach); };
    };
    const char* const classical = "RadioGroup1Item0";
    const char* const sequences = "RadioGroup1Item2";
    add("test F", canChoose(classical), [=, this] { runTest(classical, "RadioGroup2Item0", {}); });
    add("test C", canChoose(sequences),
        [=, this] { runTest(sequences, "RadioGroup2Item0", QStringLiteral("C")); });
    add("test M", canChoose(sequences),
        [=, this] { runTest(sequences, "RadioGroup2Item1", QStringLiteral("M")); });
    add(
        "a click into the report",
        [this] { return m_model.canWork(Kind::Analysis) && m_hands.canClick(viewport("Reporte")); },
        [this] {
            m_hands.click(viewport("Reporte"));
            m_model.focus(QStringLiteral("Reporte"));
        });
    add(
        "export, or not", [this] { return m_model.isActive(Kind::Analysis); },
        [this] {
            m_model.commit();
            saveOrNot(m_model.child().stale.isEmpty()
                          ? QStringLiteral("Exportado: ")
                          : QStringLiteral("Exportado el reporte de antes del cambio: "));
            if (flag())
                m_hands.press(Qt::Key_E, Qt::ControlModifier);
            else
                choose({QStringLiteral("Aná&lisis"), QStringLiteral("&Exportar...")});
        });
}

void FrameWalk::runTest(const char* approach, const char* test, const QString& statistic)
{
    const QString approachName = QString::fromLatin1(approach);
    click(approach);
    if (m_model.child().choice.approach != approachName) // which chooses the first of its tests
        m_model.choose({approachName, QStringLiteral("RadioGroup2Item0")});
    m_hands.settle();
    if (!canClick(test)) // not in so small a window
        return;
    click(test);
    m_model.choose({approachName, QString::fromLatin1(test)});
    runBy("SpeedButton1");
    Child& child = m_model.child();
    child.exact = child.order == 3 ? statistic : QString();
    m_model.report();
}

void FrameWalk::addGraphSteps()
{
    add(
        "show a distribution",
        [this] { return m_model.isActive(Kind::Analysis) && hasRoom() && canClick("ve"); },
        [this] {
            m_hands.click(control("ve"));
            m_model.open(graph(m_model.child().exact));
        });
    const auto isGraph = [this] { return m_model.isActive(Kind::Graph); };
    const QString menu = QStringLiteral("&Gráfica");
    add("the graph's table, or not", isGraph, [this, menu] {
        saveOrNot(QStringLiteral("Guardado: "));
        if (flag())
            m_hands.press(Qt::Key_F2);
        else
            choose({menu, QStringLiteral("Guardar &Datos...")});
    });
    add("the graph's picture, or not", isGraph, [this, menu] {
        saveOrNot(QStringLiteral("Guardado: "), QStringLiteral(".bmp"));
        choose({menu, QStringLiteral("&Guardar Gráfica...")});
    });
    add("copy the graph", isGraph, [this, menu] {
        choose({menu, QStringLiteral("Copiar Acumu&lada")});
    });
}

void FrameWalk::addPowerSteps()
{
    add(
        "a level of significance",
        [this] { return m_model.canWork(Kind::Power) && canClick("BtnSig"); },
        [this] {
            click("BtnSig");
            auto* popup = place(m_model.active).findChild<QMenu*>(QStringLiteral("MenuSig"));
            if (flag()) {
                m_hands.clickEntry(*popup, popup->actions().at(static_cast<int>(below(4))));
                m_model.say(QStringLiteral("Listo."));
            } else {
                readAndLeave(*popup);
            }
        });
    constexpr int mostStudies = 6; // they take long
    add(
        "a study",
        [this] {
            return m_model.canWork(Kind::Power) && m_studies < mostStudies && canClick("Edit2");
        },
        [this] { runStudy(); });
    add(
        "the power's report, or not", [this] { return m_model.isActive(Kind::Power); },
        [this] {
            saveOrNot(QStringLiteral("Guardado: "));
            choose({QStringLiteral("&Potencia"), QStringLiteral("Guardar &Reporte...")});
        });
}

void FrameWalk::runStudy()
{
    ++m_studies;
    m_hands.click(control("Edit2"));
    m_model.focus(QStringLiteral("UpDown2"));
    m_hands.press(Qt::Key_PageDown); // down to 500 trials
    runBy("BtnCalcular");
    m_model.say(QStringLiteral("Listo."));
}

/// By mouse as a rule: the button of a study stays down for a tenth of a second where it is pressed
/// by its key.
void FrameWalk::runBy(const char* button)
{
    const auto* run = qobject_cast<QAbstractButton*>(control(button));
    if (canClick(button) && below(4) != 0) {
        m_hands.click(control(button));
        if (run->focusPolicy() == Qt::StrongFocus)
            m_model.focus(QString::fromLatin1(button));
        return;
    }
    m_hands.press(Qt::Key_F9);
    EXPECT_TRUE(QTest::qWaitFor([run] { return !run->isDown(); }));
}

} // namespace walk
