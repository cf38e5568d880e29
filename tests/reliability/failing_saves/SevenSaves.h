// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/PrincipalFixture.h"

#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>

/// The windows of the program with all that can be saved from them.
class SevenSaves : public Principal {
protected:
    struct Save {
        const char* file;
        const char* entry; ///< Of its window's menu.
        QPointer<window::ChildWindow>* child;
    };

    SevenSaves()
    {
        openEditor();
        dialogs.openAnswers.push_back(sample("orden3.asc"));
        frame.AnlisisdeDatos1Click();
        m_analysis = newest();
        m_analysis->findChild<QRadioButton*>(QStringLiteral("RadioGroup1Item2"))->click();
        m_analysis->findChild<QToolButton*>(QStringLiteral("SpeedButton1"))->click();
        m_analysis->findChild<QToolButton*>(QStringLiteral("ve"))->click();
        m_graph = newest();
        frame.ClculodePotencia1Click();
        m_power = newest();
        auto* calculate = m_power->findChild<QAbstractButton*>(QStringLiteral("BtnCalcular"));
        auto* log = m_power->findChild<QPlainTextEdit*>(QStringLiteral("log"));
        const QString before = log->toPlainText();
        calculate->click();
        EXPECT_TRUE(QTest::qWaitFor([=] { return log->toPlainText() != before; }, 30000));
        QApplication::processEvents();
    }

    std::vector<Save> saves()
    {
        return {{"cuadrado.asc", "Guardar1", &m_editor},
                {"reporte.txt", "Exportar1", &m_analysis},
                {"puntual.bmp", "GuardarGrfica1", &m_graph},
                {"acumulada.bmp", "GuardaGrficaAcumulada1", &m_graph},
                {"datos.txt", "GuardarDatos1", &m_graph},
                {"potencia.bmp", "GuardarGrafica1", &m_power},
                {"potencia.txt", "GuardarReporte1", &m_power}};
    }

    /// What the user is told of a save, in an error box or in the status line.
    struct Told {
        QString error;
        QString notice;
    };

    /// Saves under a name, and gives up where that fails.
    Told begin(const Save& save, const QString& name)
    {
        Told told;
        dialogs.errors.clear();
        dialogs.saveAnswers = {name, std::nullopt};
        const auto listening = QObject::connect(*save.child, &window::ChildWindow::notice,
                                                [&](const QString& text) { told.notice = text; });
        (*save.child)->findChild<QAction*>(QString::fromLatin1(save.entry))->trigger();
        QObject::disconnect(listening);
        dialogs.saveAnswers.clear();
        if (!dialogs.errors.empty())
            told.error = dialogs.errors.front().text;
        return told;
    }

    /// An editor remembers its file and does not ask for a name again: a new one takes its place.
    void forgetFile(const Save& save)
    {
        if (save.child != &m_editor)
            return;
        if (!m_editor->mayClose())
            ADD_FAILURE() << "the saved editor does not close";
        m_editor->closeUnasked();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        openEditor();
    }

    /// All that the windows show but for the status line.
    QString shown()
    {
        QString text;
        for (const QMdiSubWindow* place : children()) {
            const QWidget* child = place->widget();
            text += child->windowTitle() + QLatin1Char('\n');
            for (const auto* memo : child->findChildren<QPlainTextEdit*>())
                text += memo->toPlainText() + QLatin1Char('\n');
            for (const auto* edit : child->findChildren<QLineEdit*>())
                text += edit->text() + QLatin1Char('\n');
            for (const auto* table : child->findChildren<QTableView*>())
                text += shownIn(*table->model());
            for (const auto* action : child->findChildren<QAction*>())
                text += action->text() + QLatin1Char(action->isEnabled() ? '+' : '-');
        }
        return text;
    }

private:
    static QString shownIn(const QAbstractItemModel& model)
    {
        QString text;
        for (int row = 0; row < model.rowCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column)
                text += model.index(row, column).data().toString() + QLatin1Char('\t');
        return text;
    }

    window::ChildWindow* newest()
    {
        auto* child = area().activeSubWindow()->findChild<window::ChildWindow*>();
        EXPECT_NE(child, nullptr);
        return child;
    }
    void openEditor()
    {
        frame.NuevoArchivo1Click();
        m_editor = newest();
    }

    QPointer<window::ChildWindow> m_editor;
    QPointer<window::ChildWindow> m_analysis;
    QPointer<window::ChildWindow> m_graph;
    QPointer<window::ChildWindow> m_power;
};
