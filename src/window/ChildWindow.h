// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QMenu;

namespace window {

/// The contract between a child window and the frame that holds it.
///
/// The frame shows menu() in its bar while the child is active, writes statusText() into its status
/// line, and calls FormActivate() and FormDeactivate() as the child becomes or ceases to be the
/// active one. A child closes through its closeEvent(): an ignored event keeps it, and the frame,
/// open; closeRequested() asks the frame to close the child's place in it.
class ChildWindow : public QWidget {
    Q_OBJECT

public:
    explicit ChildWindow(QWidget* parent = nullptr);

    /// The child's own menu, merged into the frame's bar between "Archivo" and "Ventana"; owned by
    /// the child. Null for a child without one.
    virtual QMenu* menu() const = 0;

    virtual void FormActivate() = 0;
    virtual void FormDeactivate() = 0;

signals:
    void statusText(const QString& text);
    void closeRequested();
};

} // namespace window
