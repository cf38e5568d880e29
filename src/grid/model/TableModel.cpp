// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/TableModel.h"

#include "base/NumberText.h"

#include <algorithm>
#include <utility>

namespace grid {

namespace {

constexpr int initialSize = 3;

QString markText(std::uint8_t marks)
{
    switch (marks) {
    case MarkA:
        return QStringLiteral("marca A");
    case MarkB:
        return QStringLiteral("marca B");
    case MarkBoth:
        return QStringLiteral("marcas A y B");
    default:
        return {};
    }
}

} // namespace

TableModel::TableModel(QObject* parent)
    : QAbstractTableModel(parent)
    , m_table(initialSize, initialSize)
{
}

void TableModel::resize(int columns, int rows)
{
    m_table.reserve(columns, rows);
    // The smaller first: between the steps the table is never larger than what was reserved.
    if (columns < m_table.columns()) {
        beginRemoveColumns({}, columns, m_table.columns() - 1);
        m_table.resize(columns, m_table.rows());
        endRemoveColumns();
    }
    if (rows < m_table.rows()) {
        beginRemoveRows({}, rows, m_table.rows() - 1);
        m_table.resize(m_table.columns(), rows);
        endRemoveRows();
    }
    if (columns > m_table.columns()) {
        beginInsertColumns({}, m_table.columns(), columns - 1);
        m_table.resize(columns, m_table.rows());
        endInsertColumns();
    }
    if (rows > m_table.rows()) {
        beginInsertRows({}, m_table.rows(), rows - 1);
        m_table.resize(m_table.columns(), rows);
        endInsertRows();
    }
}

void TableModel::exchange(TableData& other)
{
    beginResetModel();
    std::swap(m_table, other);
    endResetModel();
}

void TableModel::setValue(int column, int row, double value)
{
    m_table.setValue(column, row, value);
    announce({column, row, 1, 1});
}

void TableModel::setStoredValues(const CellRange& range, const std::vector<double>& values)
{
    auto value = values.begin();
    for (int row = range.row; row <= range.lastRow(); ++row) {
        for (int column = range.column; column <= range.lastColumn(); ++column)
            m_table.setStoredValue(column, row, *value++);
    }
    announce(range);
}

void TableModel::setStoredMarks(const CellRange& range, const std::vector<std::uint8_t>& marks)
{
    auto mark = marks.begin();
    for (int row = range.row; row <= range.lastRow(); ++row) {
        for (int column = range.column; column <= range.lastColumn(); ++column)
            m_table.setStoredMarks(column, row, *mark++);
    }
    announce(range);
}

void TableModel::clearMarks()
{
    m_table.clearMarks();
    announce(m_table.range());
}

void TableModel::setPrecision(int column, int decimals)
{
    const int before = m_table.precision(column);
    m_table.setPrecision(column, decimals);
    if (m_table.precision(column) != before)
        announce({column, 1, 1, m_table.rows()});
}

void TableModel::setColumnName(int column, const QString& name)
{
    m_table.setColumnName(column, name);
    announceHeader(Qt::Horizontal, column, column);
}

void TableModel::setRowName(int row, const QString& name)
{
    m_table.setRowName(row, name);
    announceHeader(Qt::Vertical, row, row);
}

void TableModel::setRowAttribute(int row, std::uint8_t attribute)
{
    m_table.setRowAttribute(row, attribute);
}

void TableModel::setIdentifier(const QByteArray& identifier)
{
    m_table.identifier = identifier;
}

void TableModel::setColors(const MarkColors& colors)
{
    if (m_colors == colors)
        return;
    m_colors = colors;
    announce(m_table.range());
}

void TableModel::setSilent(bool silent)
{
    if (m_silent == silent)
        return;
    m_silent = silent;
    announce(m_table.range());
    announceHeader(Qt::Horizontal, 1, m_table.columns());
    announceHeader(Qt::Vertical, 1, m_table.rows());
}

void TableModel::setEditable(bool editable)
{
    m_editable = editable;
}

int TableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_table.rows();
}

int TableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_table.columns();
}

QVariant TableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int column = index.column() + 1;
    const int row = index.row() + 1;
    switch (role) {
    case Qt::DisplayRole:
        return cellText(column, row);
    case Qt::EditRole:
        return m_table.value(column, row);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return colorOf(m_table.marks(column, row));
    case Qt::AccessibleDescriptionRole:
        return markText(m_table.marks(column, row));
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool horizontal = orientation == Qt::Horizontal;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: // the name may be longer than its header is wide
        return horizontal ? m_table.columnName(section + 1) : m_table.rowName(section + 1);
    case Qt::TextAlignmentRole:
        return QVariant((horizontal ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return m_editable ? flags | Qt::ItemIsEditable : flags;
}

QString TableModel::cellText(int column, int row) const
{
    const double value = m_table.value(column, row);
    const int precision = m_table.precision(column);
    return precision < 0 ? base::generalText(value) : base::fixedText(value, precision);
}

const QColor& TableModel::colorOf(std::uint8_t marks) const
{
    switch (marks) {
    case MarkA:
        return m_colors.markedA;
    case MarkB:
        return m_colors.markedB;
    case MarkBoth:
        return m_colors.markedBoth;
    default:
        return m_colors.normal;
    }
}

void TableModel::announce(const CellRange& range)
{
    const int lastColumn = std::min(range.lastColumn(), m_table.columns());
    const int lastRow = std::min(range.lastRow(), m_table.rows());
    if (m_silent || range.column < 1 || range.row < 1 || lastColumn < range.column ||
        lastRow < range.row)
        return;
    emit dataChanged(index(range.row - 1, range.column - 1), index(lastRow - 1, lastColumn - 1));
}

void TableModel::announceHeader(Qt::Orientation orientation, int first, int last)
{
    const int count = orientation == Qt::Horizontal ? m_table.columns() : m_table.rows();
    if (!m_silent && first >= 1 && last <= count)
        emit headerDataChanged(orientation, first - 1, last - 1);
}

} // namespace grid
