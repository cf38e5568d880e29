// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/ContextMenus.h"

#include "grid/model/TableData.h"
#include "grid/view/GridCommands.h"
#include "window/StatusTips.h"

#include <QAbstractButton>
#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>

#include <algorithm>

namespace grid {

ContextMenus::ContextMenus(GridCommands& commands, QTableView* grid)
    : QObject(grid)
    , m_commands(commands)
    , m_grid(*grid)
    , m_cellMenu(new QMenu(grid))
    , m_headerMenu(new QMenu(grid))
{
    m_cellMenu->setObjectName(QStringLiteral("CellMenu"));
    m_cellMenu->setAccessibleName(QStringLiteral("Menú de las celdas"));
    addMarkEntries();
    addCellEntries();
    m_headerMenu->setObjectName(QStringLiteral("HeaderMenu"));
    m_headerMenu->setAccessibleName(QStringLiteral("Menú de los encabezados"));
    addHeaderEntries();
    for (QMenu* const menu : {m_cellMenu, m_headerMenu})
        window::tellStatusTips(*menu, *grid);
    openOn(grid->horizontalHeader());
    openOn(grid->verticalHeader());
    if (auto* corner = grid->findChild<QAbstractButton*>(QStringLiteral("Corner")))
        openOn(corner);
}

void ContextMenus::openCellMenu(const QPoint& globalPosition)
{
    const EditRights& rights = m_commands.rights();
    m_clearMenu->setEnabled(rights.canEdit());
    m_paste->setEnabled(rights.canEdit());
    m_extract->setEnabled(rights.canEdit());
    m_editing->setEnabled(!rights.readOnly);
    m_editing->setText(rights.canEdit() ? QStringLiteral("Disable Editing")
                                        : QStringLiteral("Enable Editing"));
    m_cellMenu->popup(globalPosition);
}

void ContextMenus::openHeaderMenu(const QPoint& globalPosition, int column)
{
    m_column = column >= 1 ? column : std::max(1, m_grid.currentIndex().column() + 1);
    m_identifier->setEnabled(!m_commands.rights().readOnly);
    m_headerMenu->popup(globalPosition);
}

void ContextMenus::openByKey(Qt::KeyboardModifiers modifiers)
{
    const QPoint cursor = m_grid.visualRect(m_grid.currentIndex()).center();
    const QPoint position = m_grid.viewport()->mapToGlobal(cursor);
    if (modifiers.testFlag(Qt::ControlModifier))
        openHeaderMenu(position, 0);
    else
        openCellMenu(position);
}

QAction* ContextMenus::addEntry(QMenu* menu, const QString& text, const QString& tip,
                                const Command& command)
{
    QAction* entry = menu->addAction(text, this, [this, command] { m_commands.run(command); });
    entry->setStatusTip(tip);
    return entry;
}

void ContextMenus::addMarkEntries()
{
    const struct {
        QString text;
        QString tip;
        Scope scope;
        Mark set;
        Mark unset;
    } entries[] = {
        {QStringLiteral("Mark as type A"), QStringLiteral("Marca las celdas con el tipo A"),
         Scope::Range, MarkA, NoMark},
        {QStringLiteral("Mark as type B"), QStringLiteral("Marca las celdas con el tipo B"),
         Scope::Range, MarkB, NoMark},
        {QStringLiteral("Unmark type A"), QStringLiteral("Quita de las celdas la marca A"),
         Scope::Range, NoMark, MarkA},
        {QStringLiteral("Unmark type B"), QStringLiteral("Quita de las celdas la marca B"),
         Scope::Range, NoMark, MarkB},
        {QStringLiteral("Unmark All"), QStringLiteral("Quita todas las marcas de la tabla"),
         Scope::All, NoMark, MarkBoth},
    };
    for (const auto& [text, tip, scope, set, unset] : entries) {
        addEntry(m_cellMenu, text, tip, [this, scope = scope, set = set, unset = unset] {
            m_commands.mark(scope, set, unset);
        });
    }
}

void ContextMenus::addCellEntries()
{
    m_clearMenu = addScopeMenu(QStringLiteral("Clear"), QStringLiteral("Pone en cero las celdas"),
                               QStringLiteral("Pone en cero"), &GridCommands::clear);
    addScopeMenu(QStringLiteral("Copy"), QStringLiteral("Copia las celdas al portapapeles"),
                 QStringLiteral("Copia"), &GridCommands::copy);
    m_paste =
        addEntry(m_cellMenu, QStringLiteral("Paste"),
                 QStringLiteral("Pega los números del portapapeles desde la celda del cursor"),
                 [this] { m_commands.paste(); });
    m_editing = addEntry(m_cellMenu, QStringLiteral("Edit on/Off"),
                         QStringLiteral("Permite o impide cambiar las celdas"),
                         [this] { m_commands.switchEditing(); });
    m_extract =
        addEntry(m_cellMenu, QStringLiteral("Extract from Clpbrd"),
                 QStringLiteral(
                     "Trae del portapapeles un experimento entero: filas, columnas y tratamientos"),
                 [this] { m_commands.extract(); });
}

void ContextMenus::addHeaderEntries()
{
    m_identifier = addEntry(m_headerMenu, QStringLiteral("Edit Identifier"),
                            QStringLiteral("Cambia el comentario de la tabla"),
                            [this] { m_commands.editIdentifier(); });
    addEntry(m_headerMenu, QStringLiteral("Change Precision"),
             QStringLiteral("Cambia los decimales que muestra la columna"),
             [this] { m_commands.changePrecision(m_column); });
}

/// `verb` begins the tips: "Copia" the column, the row...
QMenu* ContextMenus::addScopeMenu(const QString& text, const QString& tip, const QString& verb,
                                  void (GridCommands::*command)(Scope))
{
    QMenu* menu = m_cellMenu->addMenu(text);
    menu->menuAction()->setStatusTip(tip);
    const struct {
        QString text;
        QString object;
        Scope scope;
    } entries[] = {
        {QStringLiteral("Range"), QStringLiteral("las celdas elegidas"), Scope::Range},
        {QStringLiteral("Column"), QStringLiteral("la columna del cursor"), Scope::Column},
        {QStringLiteral("Row"), QStringLiteral("la fila del cursor"), Scope::Row},
        {QStringLiteral("All"), QStringLiteral("toda la tabla"), Scope::All}};
    for (const auto& entry : entries) {
        addEntry(menu, entry.text, QStringLiteral("%1 %2").arg(verb, entry.object),
                 [this, command, scope = entry.scope] { (m_commands.*command)(scope); });
    }
    return menu;
}

void ContextMenus::openOn(QWidget* header)
{
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint& position) {
                const QHeaderView* columns = m_grid.horizontalHeader();
                openHeaderMenu(header->mapToGlobal(position),
                               header == columns ? columns->logicalIndexAt(position) + 1 : 0);
            });
}

} // namespace grid
