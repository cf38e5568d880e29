// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/ContextMenus.h"

#include "grid/model/TableData.h"
#include "window/StatusTips.h"

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
    m_clearMenu->menuAction()->setStatusTip(QStringLiteral("Pone en cero las celdas"));
    addScopeEntries(m_clearMenu, QStringLiteral("Pone en cero"), &ContextMenus::clearRequested);
    m_copyMenu = m_cellMenu->addMenu(QStringLiteral("Copy"));
    m_copyMenu->menuAction()->setStatusTip(QStringLiteral("Copia las celdas al portapapeles"));
    addScopeEntries(m_copyMenu, QStringLiteral("Copia"), &ContextMenus::copyRequested);
    m_paste = m_cellMenu->addAction(QStringLiteral("Paste"), this, &ContextMenus::pasteRequested);
    m_paste->setStatusTip(
        QStringLiteral("Pega los números del portapapeles desde la celda del cursor"));
    m_editing = m_cellMenu->addAction(QStringLiteral("Edit on/Off"), this,
                                      &ContextMenus::editingSwitchRequested);
    m_editing->setStatusTip(QStringLiteral("Permite o impide cambiar las celdas"));
    m_extract = m_cellMenu->addAction(QStringLiteral("Extract from Clpbrd"), this,
                                      &ContextMenus::extractionRequested);
    m_extract->setStatusTip(QStringLiteral(
        "Trae del portapapeles un experimento entero: filas, columnas y tratamientos"));

    m_headerMenu->setObjectName(QStringLiteral("HeaderMenu"));
    m_headerMenu->setAccessibleName(QStringLiteral("Menú de los encabezados"));
    m_identifier = m_headerMenu->addAction(QStringLiteral("Edit Identifier"), this,
                                           &ContextMenus::identifierRequested);
    m_identifier->setStatusTip(QStringLiteral("Cambia el comentario de la tabla"));
    m_headerMenu
        ->addAction(QStringLiteral("Change Precision"), this, &ContextMenus::precisionRequested)
        ->setStatusTip(QStringLiteral("Cambia los decimales que muestra la columna"));
    for (QMenu* const menu : {m_cellMenu, m_headerMenu})
        window::tellStatusTips(*menu, *grid);
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
        QString tip;
        Mark set;
        Mark unset;
    };
    const Entry entries[] = {{QStringLiteral("Mark as type A"),
                              QStringLiteral("Marca las celdas con el tipo A"), MarkA, NoMark},
                             {QStringLiteral("Mark as type B"),
                              QStringLiteral("Marca las celdas con el tipo B"), MarkB, NoMark},
                             {QStringLiteral("Unmark type A"),
                              QStringLiteral("Quita de las celdas la marca A"), NoMark, MarkA},
                             {QStringLiteral("Unmark type B"),
                              QStringLiteral("Quita de las celdas la marca B"), NoMark, MarkB}};
    for (const Entry& entry : entries) {
        m_cellMenu
            ->addAction(entry.text, this,
                        [this, entry] { emit markRequested(entry.set, entry.unset); })
            ->setStatusTip(entry.tip);
    }
    m_cellMenu->addAction(QStringLiteral("Unmark All"), this, &ContextMenus::unmarkAllRequested)
        ->setStatusTip(QStringLiteral("Quita todas las marcas de la tabla"));
}

/// `verb` begins the tips: "Copia" the column, the row...
void ContextMenus::addScopeEntries(QMenu* menu, const QString& verb,
                                   void (ContextMenus::*requested)(Scope))
{
    struct Entry {
        QString text;
        QString object;
        Scope scope;
    };
    const Entry entries[] = {
        {QStringLiteral("Range"), QStringLiteral("las celdas elegidas"), Scope::Range},
        {QStringLiteral("Column"), QStringLiteral("la columna del cursor"), Scope::Column},
        {QStringLiteral("Row"), QStringLiteral("la fila del cursor"), Scope::Row},
        {QStringLiteral("All"), QStringLiteral("toda la tabla"), Scope::All}};
    for (const Entry& entry : entries) {
        menu->addAction(entry.text, this,
                        [this, requested, scope = entry.scope] { emit(this->*requested)(scope); })
            ->setStatusTip(QStringLiteral("%1 %2").arg(verb, entry.object));
    }
}

} // namespace grid
