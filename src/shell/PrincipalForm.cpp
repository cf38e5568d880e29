// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of Principal: the menus, the tool bar and the status line of the frame.
#include "shell/Principal.h"

#include "shell/StatusLine.h"
#include "shell/WindowList.h"
#include "window/ChildWindow.h"
#include "window/Command.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace shell {

namespace {

QString editorTip()
{
    return QStringLiteral("Abre un editor vacío de orden 3");
}

QString analysisTip()
{
    return QStringLiteral("Analiza un cuadrado guardado en un archivo");
}

QString powerTip()
{
    return QStringLiteral(
        "Estima por simulación la potencia de las cuatro pruebas no paramétricas");
}

} // namespace

void TPrincipal::createMenus()
{
    using window::addEntry;
    using window::Picture;
    menuBar()->setAccessibleName(QStringLiteral("Menú principal"));
    QMenu* file = menuBar()->addMenu(QStringLiteral("&Archivo"));
    QMenu* create = file->addMenu(QStringLiteral("&Nuevo"));
    create->menuAction()->setStatusTip(QStringLiteral("Abre un análisis o un estudio de potencia"));
    addEntry(*create,
             {QStringLiteral("AnlisisdeDatos1"), QStringLiteral("Análisis de &Datos..."),
              analysisTip(), Picture::Analysis},
             this, &TPrincipal::AnlisisdeDatos1Click);
    addEntry(*create,
             {QStringLiteral("ClculodePotencia1"), QStringLiteral("&Cálculo de Potencia..."),
              powerTip(), Picture::Power},
             this, &TPrincipal::ClculodePotencia1Click);
    QMenu* editor = file->addMenu(QStringLiteral("&Editor"));
    editor->menuAction()->setStatusTip(QStringLiteral("Abre un editor, vacío o con un archivo"));
    addEntry(*editor,
             {QStringLiteral("NuevoArchivo1"), QStringLiteral("&Nuevo Archivo"), editorTip(),
              Picture::Editor, Qt::CTRL | Qt::Key_N},
             this, &TPrincipal::NuevoArchivo1Click);
    addEntry(*editor,
             {QStringLiteral("AbrirArchivo1"), QStringLiteral("&Abrir Archivo..."),
              QStringLiteral("Abre en un editor nuevo un cuadrado guardado"), Picture::Open,
              Qt::CTRL | Qt::Key_A},
             this, &TPrincipal::AbrirArchivo1Click);
    file->addSeparator();
    addEntry(*file,
             {QStringLiteral("Salir1"), QStringLiteral("Salir"),
              QStringLiteral("Cierra todas las ventanas y termina el programa"), Picture::Exit,
              Qt::ALT | Qt::Key_F4},
             this, &TPrincipal::Salir1Click);

    m_windowMenu = menuBar()->addMenu(QStringLiteral("&Ventana"));
    addEntry(*m_windowMenu,
             {QStringLiteral("Cascada1"), QStringLiteral("&Cascada"),
              QStringLiteral("Apila las ventanas y deja ver el título de cada una"),
              Picture::Cascade, Qt::SHIFT | Qt::Key_F4},
             this, &TPrincipal::Cascada1Click);
    addEntry(*m_windowMenu,
             {QStringLiteral("Mosaico1"), QStringLiteral("&Mosaico"),
              QStringLiteral("Reparte las ventanas sin que se tapen"), Picture::Tile,
              Qt::SHIFT | Qt::Key_F5},
             this, &TPrincipal::Mosaico1Click);
    new WindowList(*m_area, *m_windowMenu);

    QMenu* help = menuBar()->addMenu(QStringLiteral("A&yuda"));
    addEntry(*help,
             {QStringLiteral("Acercade1"), QStringLiteral("Acerca de..."),
              QStringLiteral("Dice qué es este programa y quién lo hizo"), Picture::About},
             this, &TPrincipal::Acercade1Click);
}

void TPrincipal::createToolBar()
{
    using window::Picture;
    QToolBar* bar = addToolBar(QStringLiteral("Barra de herramientas"));
    bar->setObjectName(QStringLiteral("BarraHerramientas"));
    bar->setAccessibleName(bar->windowTitle());
    bar->setMovable(false);

    const auto addButton = [this, bar](const window::Command& command,
                                       void (TPrincipal::*handler)()) {
        QToolButton* button = window::createButton(command, bar);
        window::connectCommand(button, &QToolButton::clicked, this, handler);
        bar->addWidget(button);
    };
    addButton({QStringLiteral("SpeedButton1"), QStringLiteral("Nuevo Editor"), editorTip(),
               Picture::Editor},
              &TPrincipal::NuevoArchivo1Click);
    bar->addSeparator();
    addButton({QStringLiteral("SpeedButton2"), QStringLiteral("Nuevo Análisis"), analysisTip(),
               Picture::Analysis},
              &TPrincipal::AnlisisdeDatos1Click);
    bar->addSeparator();
    addButton({QStringLiteral("SpeedButton3"), QStringLiteral("Nueva Potencia"), powerTip(),
               Picture::Power},
              &TPrincipal::ClculodePotencia1Click);
}

void TPrincipal::createStatusLine()
{
    statusBar()->setAccessibleName(QStringLiteral("Línea de estado"));
    m_status = new StatusLine(this);
    m_status->setText(window::restingText());
    // However something is copied, from a table, a chart or a text, the user is told.
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, m_status, [this] {
        if (QGuiApplication::clipboard()->ownsClipboard())
            m_status->showNotice(QStringLiteral("Copiado"));
    });
    statusBar()->addPermanentWidget(m_status, 1);
}

} // namespace shell
