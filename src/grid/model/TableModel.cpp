// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/model/TableModel.h"

#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace grid {

namespace {

constexpr int initialSize = 3;

QString markText(std::uint8_t marks)
{
    const std::array texts = {QString(), QStringLiteral("marca A"), QStringLiteral("marca B"),
                              QStringLiteral("marcas A y B")};
    return texts.at(marks);
}

/// As light as the white of the cells that the numbers' colours are made for.
QColor pointedBackground()
{
    return {0xFF, 0xE3, 0x8C};
}

} // namespace

TableModel::TableModel(QObject* parent)
    : QAbstractTableModel(parent)
    , m_table(record::SquareData(initialSize, initialSize))
{
}

void TableModel::resize(int columns, int rows)
{
    m_table.reserve(columns, rows);
    // The smaller first: between the steps the table is never larger than what was reserved.
    if (columns < square().NrOfColumns()) {
        beginRemoveColumns({}, columns, square().NrOfColumns() - 1);
        m_table.resize(columns, square().NrOfRows());
        endRemoveColumns();
    }
    if (rows < square().NrOfRows()) {
        beginRemoveRows({}, rows, square().NrOfRows() - 1);
        m_table.resize(square().NrOfColumns(), rows);
        endRemoveRows();
    }
    if (columns > square().NrOfColumns()) {
        beginInsertColumns({}, square().NrOfColumns(), columns - 1);
        m_table.resize(columns, square().NrOfRows());
        endInsertColumns();
    }
    if (rows > square().NrOfRows()) {
        beginInsertRows({}, square().NrOfRows(), rows - 1);
        m_table.resize(square().NrOfColumns(), rows);
        endInsertRows();
    }
}

void TableModel::setShape(const TableShape& shape)
{
    resize(shape.columns, shape.rows);
    m_table.setShape(shape);
    announceAll();
}

void TableModel::exchange(TableData& other)
{
    bool exchanged = false;
    exchange(other, exchanged);
}

void TableModel::exchange(TableData& other, bool& exchanged)
{
    beginResetModel();
    std::swap(m_table, other);
    exchanged = !exchanged;
    endResetModel();
}

void TableModel::setValue(int column, int row, double value)
{
    m_table.square.setValue(column, row, value);
    announce({column, row, 1, 1});
}

void TableModel::setStoredValues(const CellRange& range, const std::vector<double>& values)
{
    range.forEachCell([this, value = values.begin()](int column, int row) mutable {
        m_table.square.store().set(column, row, *value++);
    });
    announce(range);
}

void TableModel::setStoredMarks(const CellRange& range, const std::vector<std::uint8_t>& marks)
{
    range.forEachCell([this, mark = marks.begin()](int column, int row) mutable {
        m_table.setStoredMarks(column, row, *mark++);
    });
    announce(range);
}

void TableModel::setPrecision(int column, int decimals)
{
    const int before = m_table.precision(column);
    m_table.setPrecision(column, decimals);
    if (m_table.precision(column) != before)
        announce({column, 1, 1, square().NrOfRows()});
}

void TableModel::setColumnName(int column, const QString& name)
{
    m_table.square.setColumnName(column, name);
    announceHeader(Qt::Horizontal, column, column);
}

void TableModel::setRowName(int row, const QString& name)
{
    m_table.square.setRowName(row, name);
    announceHeader(Qt::Vertical, row, row);
}

void TableModel::setRowAttribute(int row, std::uint8_t attribute)
{
    m_table.square.setRowAttribute(row, attribute);
}

void TableModel::setIdentifier(const QByteArray& identifier)
{
    m_table.square.setIdentifier(identifier);
}

void TableModel::setColors(const MarkColors& colors)
{
    if (m_colors == colors)
        return;
    m_colors = colors;
    announce(m_table.range());
}

void TableModel::pointAt(int column, int row)
{
    const CellRange before{m_pointedColumn, m_pointedRow, 1, 1};
    m_pointedColumn = column;
    m_pointedRow = row;
    announce(before);
    announce({column, row, 1, 1});
}

void TableModel::setSilent(bool silent)
{
    if (m_silent == silent)
        return;
    m_silent = silent;
    announceAll();
}

int TableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : square().NrOfRows();
}

int TableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : square().NrOfColumns();
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
        return square().value(column, row);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return colorOf(m_table.marks(column, row));
    case Qt::AccessibleDescriptionRole:
        return markText(m_table.marks(column, row));
    case Qt::BackgroundRole:
        return column == m_pointedColumn && row == m_pointedRow ? QVariant(pointedBackground())
                                                                : QVariant();
    case Qt::ToolTipRole:
        return m_cellTip ? m_cellTip(column, row) : QString();
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
        return horizontal ? square().columnName(section + 1) : square().rowName(section + 1);
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
    const double value = square().value(column, row);
    const int precision = m_table.precision(column);
    return precision < 0 ? base::generalText(value) : base::fixedText(value, precision);
}

const QColor& TableModel::colorOf(std::uint8_t marks) const
{
    const std::array colors = {&m_colors.normal, &m_colors.markedA, &m_colors.markedB,
                               &m_colors.markedBoth};
    return *colors.at(marks);
}

void TableModel::announce(const CellRange& range)
{
    const int lastColumn = std::min(range.lastColumn(), square().NrOfColumns());
    const int lastRow = std::min(range.lastRow(), square().NrOfRows());
    if (m_silent || range.column < 1 || range.row < 1 || lastColumn < range.column ||
        lastRow < range.row)
        return;
    emit dataChanged(index(range.row - 1, range.column - 1), index(lastRow - 1, lastColumn - 1));
}

void TableModel::announceAll()
{
    announce(m_table.range());
    announceHeader(Qt::Horizontal, 1, square().NrOfColumns());
    announceHeader(Qt::Vertical, 1, square().NrOfRows());
}

void TableModel::announceHeader(Qt::Orientation orientation, int first, int last)
{
    const int count = orientation == Qt::Horizontal ? square().NrOfColumns() : square().NrOfRows();
    if (!m_silent && first >= 1 && last <= count)
        emit headerDataChanged(orientation, first - 1, last - 1);
}

} // namespace grid
