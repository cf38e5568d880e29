// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>

class QAction;
class QMenu;
class QPoint;
class QTableView;

namespace grid {

class GridCommands;
enum class Scope;

/// The two menus of a grid: entries, order, labels, which of them can be chosen, and the command of
/// each. The menu of the names opens at a click on them; the grid opens the others.
class ContextMenus : public QObject {
    Q_OBJECT

public:
    /// The commands outlive the menus, which the grid owns.
    ContextMenus(GridCommands& commands, QTableView* grid);

    void openCellMenu(const QPoint& globalPosition);
    /// For the menu key and Shift+F10; with Control the menu of the names, which cannot have the
    /// focus, for the cursor's column.
    void openByKey(Qt::KeyboardModifiers modifiers);

private:
    using Command = std::function<void()>;

    QAction* addEntry(QMenu* menu, const QString& text, const QString& tip, const Command& command);
    QMenu* addScopeMenu(const QString& text, const QString& tip, const QString& verb,
                        void (GridCommands::*command)(Scope));
    void addMarkEntries();
    void addCellEntries();
    void addHeaderEntries();
    void openOn(QWidget* header);
    /// `column` counts from 1 and is 0 where none was clicked: then it is the cursor's.
    void openHeaderMenu(const QPoint& globalPosition, int column);

    GridCommands& m_commands;
    QTableView& m_grid;
    QMenu* m_cellMenu;
    QMenu* m_clearMenu = nullptr;
    QAction* m_paste = nullptr;
    QAction* m_editing = nullptr;
    QAction* m_extract = nullptr;
    QMenu* m_headerMenu;
    QAction* m_identifier = nullptr;
    int m_column = 1; ///< Whose precision the menu of the names changes.
};

} // namespace grid
