// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/HandOff.h"

#include <QMainWindow>
#include <QPointer>

class QMdiArea;
class QMdiSubWindow;

namespace manual {
class TManual;
}
namespace square {
class TEditor;
}
namespace window {
class ChildWindow;
class Dialogs;
} // namespace window

namespace shell {

class ActivationTiling;
class StatusLine;
class TAcerca;

/// The frame: menu bar, tool bar, status line, and the child windows inside.
///
/// Children are created by the handlers below and live until they are closed. The menu of the
/// active child stands in the bar between "Archivo" and "Ventana". Each time the frame becomes the
/// active window of the desktop it tiles its children. Closing the frame closes every child, once
/// all have agreed; where one does not, every window stays as it was.
class TPrincipal : public QMainWindow {
    Q_OBJECT

public:
    /// `dialogs` asks the user on behalf of every child and must outlive the frame.
    explicit TPrincipal(window::Dialogs& dialogs, QWidget* parent = nullptr);
    ~TPrincipal() override;

    /// Whether the frame may close now: asks the children one after the other, the one in front
    /// first, and closes none. The first that stays ends it, with every window as it was.
    bool mayClose();

    /// Closes without asking, after mayClose().
    void closeUnasked();

public slots:
    void NuevoArchivo1Click();
    void AbrirArchivo1Click();
    void AnlisisdeDatos1Click();
    void ClculodePotencia1Click();
    void Cascada1Click();
    void Mosaico1Click();
    void Salir1Click();
    void Acercade1Click();
    /// Shows the manual at the chapter of the active child.
    void showManual();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum class Show { Normal, Maximised };

    void createMenus();
    void createToolBar();
    void createStatusLine();

    /// Takes a child into the frame and shows it.
    void adopt(window::ChildWindow* child, Show show);
    void adoptEditor(square::TEditor* editor);
    void openSystemMenu();
    void activateNeighbour(int distance);
    void bringToFront(QMdiSubWindow* place);
    void FormActivate();
    QList<QWidget*> companions() const;
    void focusWindowChanged(const QWindow* focused);
    void subWindowActivated(QMdiSubWindow* subWindow);

    window::Dialogs& m_dialogs;
    window::HandOff m_handOff;
    QMdiArea* m_area = nullptr;
    TAcerca* m_about = nullptr;
    manual::TManual* m_manual = nullptr; ///< Once it was asked for.
    ActivationTiling* m_tiling = nullptr;
    StatusLine* m_status = nullptr;
    QMenu* m_windowMenu = nullptr;
    QPointer<window::ChildWindow> m_activeChild;
    bool m_wasAsked = false;
    bool m_leftForOwnDialog = false; ///< The frame lost the focus to a window of its own.
};

} // namespace shell
