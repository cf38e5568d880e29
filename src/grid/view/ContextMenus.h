// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <cstdint>

class QAction;
class QMenu;
class QPoint;
class QWidget;

namespace grid {

/// The cells that "Clear" and "Copy" act on.
enum class Scope { Range, Column, Row, All };

/// What a menu about to open has to know.
struct MenuState {
    bool editingAllowed = true;
    bool readOnly = false;
};

/// The two menus of a grid: entries, order, labels and which of them can be chosen.
class ContextMenus : public QObject {
    Q_OBJECT

public:
    explicit ContextMenus(QWidget* grid);

    void openCellMenu(const QPoint& globalPosition, const MenuState& state);
    void openHeaderMenu(const QPoint& globalPosition, const MenuState& state);

signals:
    void markRequested(std::uint8_t set, std::uint8_t unset);
    void unmarkAllRequested();
    void clearRequested(grid::Scope scope);
    void copyRequested(grid::Scope scope);
    void pasteRequested();
    void editingSwitchRequested();
    void extractionRequested();
    void identifierRequested();
    void precisionRequested();

private:
    void addMarkEntries();
    void addScopeEntries(QMenu* menu, const QString& verb, void (ContextMenus::*requested)(Scope));

    QMenu* m_cellMenu;
    QMenu* m_clearMenu = nullptr;
    QMenu* m_copyMenu = nullptr;
    QAction* m_paste = nullptr;
    QAction* m_editing = nullptr;
    QAction* m_extract = nullptr;
    QMenu* m_headerMenu;
    QAction* m_identifier = nullptr;
};

} // namespace grid
