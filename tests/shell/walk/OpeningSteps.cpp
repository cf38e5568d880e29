// SPDX-License-Identifier: GPL-3.0-or-later
// Opening children from the menus, with the buttons of the tool bar and with keys.
#include "shell/walk/FrameWalk.h"

#include <QToolButton>

namespace walk {

namespace {

const QStringList newEditor{QStringLiteral("&Archivo"), QStringLiteral("&Editor"),
                            QStringLiteral("&Nuevo Archivo")};
const QStringList openFile{QStringLiteral("&Archivo"), QStringLiteral("&Editor"),
                           QStringLiteral("&Abrir Archivo...")};
const QStringList newAnalysis{QStringLiteral("&Archivo"), QStringLiteral("&Nuevo"),
                              QStringLiteral("Análisis de &Datos...")};
const QStringList newPower{QStringLiteral("&Archivo"), QStringLiteral("&Nuevo"),
                           QStringLiteral("&Cálculo de Potencia...")};

} // namespace

void FrameWalk::addOpeningSteps()
{
    const auto room = [this] { return hasRoom(); };
    const auto button = [this](const char* name) {
        return [this, name] {
            const auto* bar = m_frame.findChild<QWidget*>(QStringLiteral("BarraHerramientas"));
            m_hands.click(bar->findChild<QToolButton*>(QString::fromLatin1(name)));
        };
    };
    const auto menu = [this](const QStringList& path) { return [this, path] { choose(path); }; };

    add("new editor, by menu", room, [=, this] { openEditorOf(std::nullopt, menu(newEditor)); });
    add("new editor, by button", room,
        [=, this] { openEditorOf(std::nullopt, button("SpeedButton1")); });
    add("new editor, by key", room, [this] {
        openEditorOf(std::nullopt, [this] { m_hands.press(Qt::Key_N, Qt::ControlModifier); });
    });

    add("open a file, by menu", room, [=, this] { openEditorOf(sample(), menu(openFile)); });
    const auto isKeyFree = [this] {
        for (const LiveKey& live : m_model.liveKeys()) {
            if (live.key == QKeySequence(Qt::CTRL | Qt::Key_A))
                return true;
        }
        return false;
    };
    const auto openKey = [this] { m_hands.press(Qt::Key_A, Qt::ControlModifier); };
    add(
        "open a file, by key", [=] { return room() && isKeyFree(); },
        [=, this] { openEditorOf(sample(), openKey); });
    add("open no file after all", isKeyFree, [=, this] {
        m_dialogs.openAnswers = {std::nullopt};
        openKey();
    });

    add("new analysis, by menu", room, [=, this] { openAnalysisOf(sample(), menu(newAnalysis)); });
    add("new analysis, by button", room,
        [=, this] { openAnalysisOf(sample(), button("SpeedButton2")); });
    add(
        "no analysis after all", [] { return true; },
        [=, this] {
            m_dialogs.openAnswers = {std::nullopt};
            button("SpeedButton2")();
        });
    add(
        "analysis of a file without a square", [] { return true; },
        [=, this] {
            m_dialogs.openAnswers = {QStringLiteral(CL_SOURCE_DIR "/ejemplos/LEEME.md")};
            menu(newAnalysis)();
            EXPECT_EQ(m_dialogs.errors.size(), 1U);
            m_dialogs.errors.clear();
        });

    add("new power window, by menu", room, [=, this] {
        menu(newPower)();
        m_model.open(power());
    });
    add("new power window, by button", room, [=, this] {
        button("SpeedButton3")();
        m_model.open(power());
    });
}

/// An empty editor, or one of a file that the user is asked for.
void FrameWalk::openEditorOf(const std::optional<Sample>& file, const Action& command)
{
    Child opened = editor();
    if (file) {
        m_dialogs.openAnswers = {file->fileName};
        opened.caption = QStringLiteral("Editor - ") + file->fileName;
        opened.isSaved = true;
        opened.hasFile = true;
        opened.order = file->order;
    }
    command();
    m_model.open(opened);
}

void FrameWalk::openAnalysisOf(const std::optional<Sample>& file, const Action& command)
{
    m_dialogs.openAnswers = {file->fileName};
    command();
    m_model.open(analysis(QStringLiteral("Análisis - ") + file->fileName, file->order));
}

} // namespace walk
