// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/ContextMenus.h"

#include "grid/TableData.h"

#include <QAction>
#include <QMenu>

namespace grid {

ContextMenus::ContextMenus(QWidget* grid)
    : QObject(grid)
    , m_cellMenu(new QMenu(grid))
    , m_headerMenu(new QMenu(grid))
{
    m_cellMenu->setObjectName(QStringLiteral("CellMenu"));
    m_cellMenu->setAccessibleName(QStringLiteral("Menú de las celdas"));
    addMarkEntries();
    m_clearMenu = m_cellMenu->addMenu(QStringLiteral("Clear"));
    addScopeEntries(m_clearMenu, &ContextMenus::clearRequested);
    m_copyMenu = m_cellMenu->addMenu(QStringLiteral("Copy"));
    addScopeEntries(m_copyMenu, &ContextMenus::copyRequested);
    m_paste = m_cellMenu->addAction(QStringLiteral("Paste"), this, &ContextMenus::pasteRequested);
    m_editing = m_cellMenu->addAction(QStringLiteral("Edit on/Off"), this,
                                      &ContextMenus::editingSwitchRequested);
    m_extract = m_cellMenu->addAction(QStringLiteral("Extract from Clpbrd"), this,
                                      &ContextMenus::extractionRequested);

    m_headerMenu->setObjectName(QStringLiteral("HeaderMenu"));
    m_headerMenu->setAccessibleName(QStringLiteral("Menú de los encabezados"));
    m_identifier = m_headerMenu->addAction(QStringLiteral("Edit Identifier"), this,
                                           &ContextMenus::identifierRequested);
    m_headerMenu->addAction(QStringLiteral("Change Precision"), this,
                            &ContextMenus::precisionRequested);
}

void ContextMenus::openCellMenu(const QPoint& globalPosition, const MenuState& state)
{
    const bool canEdit = state.editingAllowed && !state.readOnly;
    m_clearMenu->setEnabled(canEdit);
    m_paste->setEnabled(canEdit);
    m_extract->setEnabled(canEdit);
    m_editing->setEnabled(!state.readOnly);
    m_editing->setText(canEdit ? QStringLiteral("Disable Editing")
                               : QStringLiteral("Enable Editing"));
    m_cellMenu->popup(globalPosition);
}

void ContextMenus::openHeaderMenu(const QPoint& globalPosition, const MenuState& state)
{
    m_identifier->setEnabled(!state.readOnly);
    m_headerMenu->popup(globalPosition);
}

void ContextMenus::addMarkEntries()
{
    struct Entry {
        QString text;
        Mark set;
        Mark unset;
    };
    const Entry entries[] = {{QStringLiteral("Mark as type A"), MarkA, NoMark},
                             {QStringLiteral("Mark as type B"), MarkB, NoMark},
                             {QStringLiteral("Unmark type A"), NoMark, MarkA},
                             {QStringLiteral("Unmark type B"), NoMark, MarkB}};
    for (const Entry& entry : entries) {
        m_cellMenu->addAction(entry.text, this,
                              [this, entry] { emit markRequested(entry.set, entry.unset); });
    }
    m_cellMenu->addAction(QStringLiteral("Unmark All"), this, &ContextMenus::unmarkAllRequested);
}

void ContextMenus::addScopeEntries(QMenu* menu, void (ContextMenus::*requested)(Scope))
{
    const std::pair<QString, Scope> entries[] = {{QStringLiteral("Range"), Scope::Range},
                                                 {QStringLiteral("Column"), Scope::Column},
                                                 {QStringLiteral("Row"), Scope::Row},
                                                 {QStringLiteral("All"), Scope::All}};
    for (const auto& [text, scope] : entries)
        menu->addAction(text, this,
                        [this, requested, scope = scope] { emit(this->*requested)(scope); });
}

} // namespace grid
