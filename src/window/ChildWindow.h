// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QMenu;

namespace window {

/// The contract between a child window and the frame that holds it.
///
/// The frame shows menu() in its bar while the child is active, writes statusText() into its status
/// line, and calls FormActivate() and FormDeactivate() as the child becomes or ceases to be the
/// active one. A child that is asked to close lets mayClose() decide, and stays, and keeps the
/// frame open, where it says no; closeRequested() asks the frame to close the child's place in it.
class ChildWindow : public QWidget {
    Q_OBJECT

public:
    explicit ChildWindow(QWidget* parent = nullptr);

    /// The child's own menu, merged into the frame's bar between "Archivo" and "Ventana"; owned by
    /// the child. Null for a child without one.
    virtual QMenu* menu() const = 0;

    /// The chapter of the manual that tells of this kind of window.
    virtual QString manualChapter() const = 0;

    virtual void FormActivate() = 0;
    virtual void FormDeactivate() = 0;
    /// The child is closing: its last words to the status line.
    virtual void FormClose() = 0;

    /// Whether the child may close now. One with unsaved data asks its user, and saves them where
    /// he wants that; nothing else about it changes.
    virtual bool mayClose() { return true; }

    /// Closes without asking, after mayClose().
    void closeUnasked();

signals:
    void statusText(const QString& text);
    void closeRequested();
    /// The child is about to ask something that the user can answer only with the child in view.
    void frontRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_wasAsked = false;
};

} // namespace window
