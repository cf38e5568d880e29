// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMdiSubWindow>
#include <QPointer>

namespace shell {

/// The place of a child in the frame: title bar and border around it.
///
/// The focus stays on the control where the user left it, however often the child is maximised,
/// restored, minimised, left and come back to. It is deleted once it is closed.
class ChildPlace : public QMdiSubWindow {
    Q_OBJECT

public:
    explicit ChildPlace(QWidget* child);
    ~ChildPlace() override;

protected:
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void focusMoved(QWidget* from, QWidget* to);
    bool canTakeFocus(const QWidget* control) const;
    bool giveFocusBack();

    QList<QPointer<QWidget>> m_focus; ///< The control that had it last, and those around that.
    bool m_isComingBack = false;      ///< Qt is activating the child, and chooses a control.
    bool m_isTabbing = false; ///< Tab leads over the place, from the last control to the first.
};

} // namespace shell
