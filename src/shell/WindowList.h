// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <memory>

class QActionGroup;
class QMdiArea;
class QMenu;

namespace shell {

/// The list of the open child windows at the end of a menu: each with its number and caption, the
/// active one ticked; choosing one activates it. The list is made anew each time the menu opens.
class WindowList : public QObject {
    Q_OBJECT

public:
    /// The list lives as long as `menu`, its parent; `area` must outlive both.
    WindowList(QMdiArea& area, QMenu& menu);
    ~WindowList() override;

private:
    void fill();

    QMdiArea& m_area;
    QMenu& m_menu;
    std::unique_ptr<QActionGroup> m_entries;
};

} // namespace shell
