// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/NTabEd.h"

#include "grid/model/EditHistory.h"
#include "grid/model/TableModel.h"
#include "grid/view/CellDelegate.h"
#include "grid/view/ContextMenus.h"

#include <QHeaderView>

#include <new>

namespace grid {

QColor colorFromInteger(std::uint32_t blueGreenRed)
{
    return {static_cast<int>(blueGreenRed & 0xFFU), static_cast<int>(blueGreenRed >> 8U & 0xFFU),
            static_cast<int>(blueGreenRed >> 16U & 0xFFU)};
}

TNTabEd::TNTabEd(window::Dialogs& dialogs, QWidget* parent)
try : QTableView(parent), m_dialogs(dialogs), m_model(new TableModel(this)),
    m_history(new EditHistory(*m_model, this)),
    m_delegate(new CellDelegate(*m_model, dialogs, this)), m_menus(new ContextMenus(this)) {
    setUpView();
    connectWidths();
    connectUser();
} catch (const std::bad_alloc&) {
    throw GridError("NTABED: failed to initialize table editor (out of memory)");
}

TNTabEd::~TNTabEd() = default;

int TNTabEd::NrOfColumns() const
{
    return m_model->table().columns();
}

int TNTabEd::NrOfRows() const
{
    return m_model->table().rows();
}

void TNTabEd::setNrOfColumns(int columns)
{
    resizeTable(columns, NrOfRows());
}

void TNTabEd::setNrOfRows(int rows)
{
    resizeTable(NrOfColumns(), rows);
}

void TNTabEd::resizeTable(int columns, int rows)
{
    m_model->resize(columns, rows);
}

void TNTabEd::resetTable(int columns, int rows)
{
    TableData fresh(columns, rows);
    m_columnsSetByUser.clear();
    m_model->exchange(fresh);
    clearHistory();
}

int TNTabEd::precision(int column) const
{
    return m_model->table().precision(column);
}

void TNTabEd::setPrecision(int column, int decimals)
{
    m_model->setPrecision(column, decimals);
}

QString TNTabEd::columnName(int column) const
{
    return m_model->table().columnName(column);
}

void TNTabEd::setColumnName(int column, const QString& name)
{
    m_model->setColumnName(column, name);
}

QString TNTabEd::rowName(int row) const
{
    return m_model->table().rowName(row);
}

void TNTabEd::setRowName(int row, const QString& name)
{
    m_model->setRowName(row, name);
}

double TNTabEd::value(int column, int row) const
{
    return m_model->table().value(column, row);
}

void TNTabEd::setValue(int column, int row, double value)
{
    m_model->setValue(column, row, value);
}

std::uint8_t TNTabEd::rowAttribute(int row) const
{
    return m_model->table().rowAttribute(row);
}

void TNTabEd::setRowAttribute(int row, std::uint8_t attribute)
{
    m_model->setRowAttribute(row, attribute);
}

QByteArray TNTabEd::Identifier() const
{
    return m_model->table().identifier;
}

void TNTabEd::setIdentifier(const QByteArray& identifier)
{
    m_model->setIdentifier(identifier);
}

void TNTabEd::clearMarks()
{
    m_model->clearMarks();
}

void TNTabEd::clearHistory()
{
    m_history->forget();
}

void TNTabEd::freeze()
{
    if (m_frozen)
        return;
    m_frozen = true;
    m_model->setSilent(true);
    setUpdatesEnabled(false);
}

void TNTabEd::release()
{
    if (!m_frozen)
        return;
    m_model->setSilent(false);
    m_frozen = false;
    fitAllColumns();
    setUpdatesEnabled(true);
}

bool TNTabEd::commitEdit()
{
    return m_delegate->accept();
}

bool TNTabEd::editingAllowed() const
{
    return m_editingAllowed;
}

void TNTabEd::setEditingAllowed(bool allowed)
{
    m_editingAllowed = allowed;
    applyEditability();
}

bool TNTabEd::readOnly() const
{
    return m_readOnly;
}

void TNTabEd::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    applyEditability();
}

bool TNTabEd::AutoAdvance() const
{
    return m_autoAdvance;
}

void TNTabEd::setAutoAdvance(bool advance)
{
    m_autoAdvance = advance;
}

void TNTabEd::setDefaultColWidth(int width)
{
    m_defaultColWidth = width;
    fitAllColumns();
}

void TNTabEd::setHeaderColumnWidth(int width)
{
    verticalHeader()->setFixedWidth(width);
}

QColor TNTabEd::ColorNormal() const
{
    return m_model->colors().normal;
}

QColor TNTabEd::ColorMarkedA() const
{
    return m_model->colors().markedA;
}

QColor TNTabEd::ColorMarkedB() const
{
    return m_model->colors().markedB;
}

QColor TNTabEd::ColorMarkedBoth() const
{
    return m_model->colors().markedBoth;
}

void TNTabEd::setColorNormal(const QColor& color)
{
    changeColors([&](MarkColors& colors) { colors.normal = color; });
}

void TNTabEd::setColorMarkedA(const QColor& color)
{
    changeColors([&](MarkColors& colors) { colors.markedA = color; });
}

void TNTabEd::setColorMarkedB(const QColor& color)
{
    changeColors([&](MarkColors& colors) { colors.markedB = color; });
}

void TNTabEd::setColorMarkedBoth(const QColor& color)
{
    changeColors([&](MarkColors& colors) { colors.markedBoth = color; });
}

void TNTabEd::changeColors(const std::function<void(MarkColors&)>& change)
{
    MarkColors colors = m_model->colors();
    change(colors);
    m_model->setColors(colors);
}

} // namespace grid
