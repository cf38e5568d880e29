// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Principal.h"

#include "analysis/Frmanalisis.h"
#include "power/Frmpotencia.h"
#include "shell/WindowList.h"
#include "square/Formeditor.h"
#include "window/ChildWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace shell {

TPrincipal::TPrincipal(window::Dialogs& dialogs, QWidget* parent)
    : QMainWindow(parent)
    , m_dialogs(dialogs)
    , m_area(new QMdiArea(this))
{
    setObjectName(QStringLiteral("Principal"));
    setWindowTitle(QStringLiteral("Cuadrado Latino"));
    resize(1024, 700);

    m_area->setObjectName(QStringLiteral("Ventanas"));
    m_area->setAccessibleName(QStringLiteral("Ventanas"));
    // A child dragged over the edge stays within reach.
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, &TPrincipal::subWindowActivated);

    createMenus();
    createToolBar();
    createStatusLine();
    setContextMenuPolicy(Qt::NoContextMenu); // the tool bar is not to be hidden by accident
}

TPrincipal::~TPrincipal()
{
    m_area->disconnect(this); // children that are still there leave it without a frame to tell
}

void TPrincipal::NuevoArchivo1Click()
{
    adoptEditor(new square::TEditor(m_handOff, m_dialogs, m_area));
}

void TPrincipal::AbrirArchivo1Click()
{
    m_handOff.openOnCreate = true;
    auto* editor = new square::TEditor(m_handOff, m_dialogs, m_area);
    if (m_handOff.fileOpened)
        adoptEditor(editor);
    else
        delete editor;
}

void TPrincipal::AnlisisdeDatos1Click()
{
    auto* analysis = new analysis::TAnalisis(m_handOff, m_dialogs, m_area);
    if (!m_handOff.fileOpened) {
        delete analysis;
        return;
    }
    connect(analysis, &analysis::TAnalisis::graphOpened, this,
            [this](window::ChildWindow* graph) { adopt(graph, Show::Normal); });
    adopt(analysis, Show::Maximised);
}

void TPrincipal::ClculodePotencia1Click()
{
    adopt(new power::TPotencia(m_dialogs, m_area), Show::Normal);
}

void TPrincipal::Cascada1Click()
{
    m_area->cascadeSubWindows();
}

void TPrincipal::Mosaico1Click()
{
    m_area->tileSubWindows();
}

void TPrincipal::Salir1Click()
{
    close();
}

void TPrincipal::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (!isActiveWindow())
        m_leftForOwnDialog = QApplication::activeModalWidget() != nullptr;
    else if (!m_leftForOwnDialog)
        FormActivate();
}

void TPrincipal::closeEvent(QCloseEvent* event)
{
    m_area->closeAllSubWindows();
    event->setAccepted(m_area->subWindowList().isEmpty());
}

void TPrincipal::createMenus()
{
    QMenu* file = menuBar()->addMenu(QStringLiteral("&Archivo"));
    QMenu* create = file->addMenu(QStringLiteral("&Nuevo"));
    create->addAction(QStringLiteral("Análisis de &Datos..."), this,
                      &TPrincipal::AnlisisdeDatos1Click);
    create->addAction(QStringLiteral("&Cálculo de Potencia..."), this,
                      &TPrincipal::ClculodePotencia1Click);
    QMenu* editor = file->addMenu(QStringLiteral("&Editor"));
    editor->addAction(QStringLiteral("&Nuevo Archivo"), this, &TPrincipal::NuevoArchivo1Click)
        ->setShortcut(Qt::CTRL | Qt::Key_N);
    editor->addAction(QStringLiteral("&Abrir Archivo..."), this, &TPrincipal::AbrirArchivo1Click)
        ->setShortcut(Qt::CTRL | Qt::Key_A);
    file->addSeparator();
    file->addAction(QStringLiteral("Salir"), this, &TPrincipal::Salir1Click)
        ->setShortcut(Qt::ALT | Qt::Key_F4);

    m_windowMenu = menuBar()->addMenu(QStringLiteral("&Ventana"));
    m_windowMenu->addAction(QStringLiteral("&Cascada"), this, &TPrincipal::Cascada1Click)
        ->setShortcut(Qt::SHIFT | Qt::Key_F4);
    m_windowMenu->addAction(QStringLiteral("&Mosaico"), this, &TPrincipal::Mosaico1Click)
        ->setShortcut(Qt::SHIFT | Qt::Key_F5);
    new WindowList(*m_area, *m_windowMenu);

    QMenu* help = menuBar()->addMenu(QStringLiteral("A&yuda"));
    help->addAction(QStringLiteral("Acerca de..."))->setEnabled(false);
}

void TPrincipal::createToolBar()
{
    QToolBar* bar = addToolBar(QStringLiteral("Barra de herramientas"));
    bar->setObjectName(QStringLiteral("BarraHerramientas"));
    bar->setMovable(false);

    const auto addButton = [bar](const QString& name, const QString& text) {
        auto* button = new QToolButton(bar);
        button->setObjectName(name);
        button->setText(text);
        button->setFocusPolicy(Qt::TabFocus);
        bar->addWidget(button);
        return button;
    };
    const auto* newEditor =
        addButton(QStringLiteral("SpeedButton1"), QStringLiteral("Nuevo Editor"));
    bar->addSeparator();
    const auto* newAnalysis =
        addButton(QStringLiteral("SpeedButton2"), QStringLiteral("Nuevo Análisis"));
    bar->addSeparator();
    const auto* newPower =
        addButton(QStringLiteral("SpeedButton3"), QStringLiteral("Nueva Potencia"));
    connect(newEditor, &QToolButton::clicked, this, &TPrincipal::NuevoArchivo1Click);
    connect(newAnalysis, &QToolButton::clicked, this, &TPrincipal::AnlisisdeDatos1Click);
    connect(newPower, &QToolButton::clicked, this, &TPrincipal::ClculodePotencia1Click);
}

void TPrincipal::createStatusLine()
{
    // A lasting text: what showMessage() shows is wiped whenever a menu opens.
    m_status = new QLabel(QStringLiteral("Listo."), this);
    m_status->setObjectName(QStringLiteral("Status"));
    m_status->setTextFormat(Qt::PlainText);
    // A long text is cut at the frame's edge, it does not widen the frame.
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addPermanentWidget(m_status, 1);
}

void TPrincipal::adoptEditor(square::TEditor* editor)
{
    // The editor has left the name of its saved file in the hand-off; it closes itself afterwards.
    connect(editor, &square::TEditor::analysisRequested, this, &TPrincipal::AnlisisdeDatos1Click);
    adopt(editor, Show::Normal);
}

void TPrincipal::adopt(window::ChildWindow* child, Show show)
{
    connect(child, &window::ChildWindow::statusText, this, &TPrincipal::setStatus);
    QMdiSubWindow* subWindow = m_area->addSubWindow(child); // deleted once it is closed
    connect(child, &window::ChildWindow::closeRequested, subWindow, &QMdiSubWindow::close);
    if (show == Show::Maximised)
        subWindow->showMaximized();
    else
        subWindow->show();
}

void TPrincipal::setStatus(const QString& text)
{
    m_status->setText(text);
    m_status->repaint(); // now, since what the text announces may keep the program busy
}

void TPrincipal::FormActivate()
{
    m_area->tileSubWindows();
}

void TPrincipal::subWindowActivated(QMdiSubWindow* subWindow)
{
    auto* child =
        subWindow == nullptr ? nullptr : qobject_cast<window::ChildWindow*>(subWindow->widget());
    if (child == m_activeChild)
        return;
    if (m_activeChild != nullptr) {
        menuBar()->removeAction(m_activeChild->menu()->menuAction());
        // A child on its way out is hidden by now and has written its last status text.
        if (!m_activeChild->isHidden())
            m_activeChild->FormDeactivate();
    }
    m_activeChild = child;
    if (child != nullptr) {
        menuBar()->insertAction(m_windowMenu->menuAction(), child->menu()->menuAction());
        child->FormActivate();
    }
}

} // namespace shell
