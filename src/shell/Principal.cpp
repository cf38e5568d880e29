// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Principal.h"

#include "analysis/Frmanalisis.h"
#include "manual/ManualWindow.h"
#include "power/window/Frmpotencia.h"
#include "shell/Acercade.h"
#include "shell/ActivationTiling.h"
#include "shell/Arrangement.h"
#include "shell/ChildPlace.h"
#include "shell/StatusLine.h"
#include "shell/Tiling.h"
#include "square/editor/Formeditor.h"
#include "window/ChildWindow.h"
#include "window/Icons.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusTipEvent>
#include <QWindow>

namespace shell {

namespace {

window::ChildWindow* childIn(const QMdiSubWindow& place)
{
    return qobject_cast<window::ChildWindow*>(place.widget());
}

/// Qt knows one key or the other, by the desktop.
void setCloseKeys(const QMdiSubWindow& subWindow)
{
    for (QAction* action : subWindow.systemMenu()->actions())
        if (action->shortcuts().contains(QKeySequence(QKeySequence::Close)))
            action->setShortcuts({Qt::CTRL | Qt::Key_F4, Qt::CTRL | Qt::Key_W});
}

} // namespace

TPrincipal::TPrincipal(window::Dialogs& dialogs, QWidget* parent)
    : QMainWindow(parent)
    , m_dialogs(dialogs)
    , m_area(new QMdiArea(this))
    , m_about(new TAcerca(this))
    , m_tiling(new ActivationTiling(*m_area, this))
{
    setObjectName(QStringLiteral("Principal"));
    setWindowTitle(QStringLiteral("Cuadrado Latino"));
    setAccessibleName(windowTitle());
    setWindowIcon(window::icon(window::Picture::Program));
    resize(1024, 700);

    m_area->setObjectName(QStringLiteral("Ventanas"));
    m_area->setAccessibleName(QStringLiteral("Ventanas"));
    // A child dragged over the edge stays within reach.
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // Who closes a graph is back at its analysis.
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, &TPrincipal::subWindowActivated);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &TPrincipal::focusWindowChanged);

    createMenus();
    createToolBar();
    createStatusLine();
    auto* systemMenuKey = new QShortcut(Qt::ALT | Qt::Key_Minus, this);
    connect(systemMenuKey, &QShortcut::activated, this, &TPrincipal::openSystemMenu);
    auto* nextKey = new QShortcut(Qt::CTRL | Qt::Key_Tab, this);
    connect(nextKey, &QShortcut::activated, this, [this] { activateNeighbour(1); });
    auto* previousKey = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, this);
    connect(previousKey, &QShortcut::activated, this, [this] { activateNeighbour(-1); });
    auto* manualKey = new QShortcut(Qt::Key_F1, this);
    connect(manualKey, &QShortcut::activated, this, &TPrincipal::showManual);
    setContextMenuPolicy(Qt::NoContextMenu); // the tool bar is not to be hidden by accident
}

TPrincipal::~TPrincipal()
{
    // What is still there leaves it without a frame to tell.
    m_area->disconnect(this);
    qApp->disconnect(this);
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
    tile(*m_area);
}

void TPrincipal::Salir1Click()
{
    close();
}

void TPrincipal::Acercade1Click()
{
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}

void TPrincipal::showManual()
{
    const QString chapter = m_activeChild == nullptr ? QString() : m_activeChild->manualChapter();
    if (m_manual == nullptr) // a start does not wait for what may never be asked for
        m_manual = new manual::TManual(this);
    m_manual->showChapter(chapter.isEmpty() ? QStringLiteral("ventana-principal") : chapter);
}

bool TPrincipal::event(QEvent* event)
{
    if (event->type() != QEvent::StatusTip)
        return QMainWindow::event(event);
    m_status->showTip(static_cast<QStatusTipEvent*>(event)->tip());
    return true;
}

void TPrincipal::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (isActiveWindow()) {
        if (!m_leftForOwnDialog)
            FormActivate();
        return;
    }
    m_leftForOwnDialog = QApplication::activeModalWidget() != nullptr ||
                         companions().contains(QApplication::activeWindow());
    if (!m_leftForOwnDialog)
        m_tiling->frameLeft();
}

/// The windows that stand beside the frame and may stay open: to look into one is not to leave the
/// program.
QList<QWidget*> TPrincipal::companions() const
{
    QList<QWidget*> found{m_about};
    if (m_manual != nullptr)
        found << m_manual;
    return found;
}

/// The frame may be inactive as one of its dialogs opens, and it may be left for a companion and
/// come back to from another program.
void TPrincipal::focusWindowChanged(const QWindow* focused)
{
    const bool isAsking = QApplication::activeModalWidget() != nullptr;
    bool isCompanion = false;
    bool companionIsOpen = false;
    for (const QWidget* companion : companions()) {
        isCompanion = isCompanion || (focused != nullptr && focused == companion->windowHandle());
        companionIsOpen = companionIsOpen || companion->isVisible();
    }
    if (isCompanion || (isAsking && focused != nullptr))
        m_leftForOwnDialog = true;
    else if (focused != windowHandle() && companionIsOpen && !isAsking)
        m_leftForOwnDialog = false;
}

void TPrincipal::closeEvent(QCloseEvent* event)
{
    event->setAccepted(m_wasAsked || mayClose());
    if (!event->isAccepted())
        return;
    for (const QMdiSubWindow* place : m_area->subWindowList())
        childIn(*place)->closeUnasked();
    for (QWidget* companion : companions())
        companion->close();
}

void TPrincipal::closeUnasked()
{
    m_wasAsked = true;
    close();
    m_wasAsked = false; // it may be shown again
}

bool TPrincipal::mayClose()
{
    const Arrangement before(*m_area);
    QList<QPointer<window::ChildWindow>> children;
    for (const QMdiSubWindow* place : m_area->subWindowList(QMdiArea::ActivationHistoryOrder))
        children.prepend(childIn(*place));
    for (const QPointer<window::ChildWindow>& child : children) {
        if (child && !child->mayClose()) {
            before.restore(*m_area);
            return false;
        }
    }
    return true;
}

void TPrincipal::adoptEditor(square::TEditor* editor)
{
    // The editor has left the name of its saved file in the hand-off; it closes itself afterwards.
    connect(editor, &square::TEditor::analysisRequested, this, &TPrincipal::AnlisisdeDatos1Click);
    adopt(editor, Show::Normal);
}

void TPrincipal::adopt(window::ChildWindow* child, Show show)
{
    connect(child, &window::ChildWindow::statusText, this, [this, child](const QString& text) {
        if (child == m_activeChild) // one that closes behind another has nothing to say
            m_status->setText(text);
    });
    connect(child, &window::ChildWindow::notice, m_status, &StatusLine::showNotice);
    QWidget* const firstControl = child->focusWidget(); // which a new parent makes it forget
    auto* place = new ChildPlace(child);
    m_area->addSubWindow(place);
    setCloseKeys(*place);
    connect(child, &window::ChildWindow::closeRequested, place, &ChildPlace::close);
    connect(child, &window::ChildWindow::frontRequested, this,
            [this, place] { bringToFront(place); });
    if (show == Show::Maximised)
        place->showMaximized();
    else
        place->show();
    if (firstControl != nullptr)
        firstControl->setFocus();
}

/// The active child's own menu: restore, move, close...
void TPrincipal::openSystemMenu()
{
    if (QMdiSubWindow* active = m_area->activeSubWindow())
        active->showSystemMenu();
}

/// The child that many places on in the window list, around its end. Qt's own keys, pressed and
/// released at once, only go back and forth between two children.
void TPrincipal::activateNeighbour(int distance)
{
    const QList<QMdiSubWindow*> children = m_area->subWindowList();
    const auto active = children.indexOf(m_area->activeSubWindow());
    if (active >= 0)
        m_area->setActiveSubWindow(
            children.at((active + distance + children.size()) % children.size()));
}

void TPrincipal::bringToFront(QMdiSubWindow* place)
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    m_area->setActiveSubWindow(place);
    if (place->isMinimized())
        place->showNormal();
}

void TPrincipal::FormActivate()
{
    m_tiling->frameActivated();
}

void TPrincipal::subWindowActivated(QMdiSubWindow* subWindow)
{
    window::ChildWindow* child = subWindow == nullptr ? nullptr : childIn(*subWindow);
    if (child == m_activeChild)
        return;
    // What the one says last is not to be read before the other's first word.
    m_status->setUpdatesEnabled(false);
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
    m_status->setUpdatesEnabled(true);
}

} // namespace shell
