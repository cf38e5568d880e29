// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/TableData.h"

#include <QAbstractTableModel>
#include <QColor>

#include <functional>
#include <utility>
#include <vector>

namespace grid {

/// The colour of a cell's number by its marks.
struct MarkColors {
    QColor normal;
    QColor markedA;
    QColor markedB;
    QColor markedBoth;

    bool operator==(const MarkColors&) const = default;
};

/// What to tell of a cell beside its number; empty for nothing.
using CellTip = std::function<QString(int column, int row)>;

/// A TableData as item views see it: numbers as they are shown, names in the headers.
///
/// The model's own indexes count from 0, as the toolkit wants it; the routines of this class count
/// columns and rows from 1. It does not take edits through setData(): they pass through the undo
/// history of the view, which calls the routines below.
class TableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// 3 x 3. @throws GridError
    explicit TableModel(QObject* parent = nullptr);

    const TableData& table() const { return m_table; }
    const record::SquareData& square() const { return m_table.square; }
    /// Both throw GridError, with everything as it was.
    void resize(int columns, int rows);
    void setShape(const TableShape& shape);
    /// Swaps the whole table.
    void exchange(TableData& other);
    /// The same; `exchanged` becomes its opposite with the swap, after which a view may still
    /// throw.
    void exchange(TableData& other, bool& exchanged);

    void setValue(int column, int row, double value);
    /// Writes a rectangle of values or marks, row by row, hidden cells included.
    void setStoredValues(const CellRange& range, const std::vector<double>& values);
    void setStoredMarks(const CellRange& range, const std::vector<std::uint8_t>& marks);
    void setPrecision(int column, int decimals);
    void setColumnName(int column, const QString& name);
    void setRowName(int row, const QString& name);
    void setRowAttribute(int row, std::uint8_t attribute);
    void setIdentifier(const QByteArray& identifier);

    const MarkColors& colors() const { return m_colors; }
    void setColors(const MarkColors& colors);
    /// The tool tips of the cells, asked for as they show.
    void setCellTip(CellTip tip) { m_cellTip = std::move(tip); }
    /// The one cell with another background; none outside the table.
    void pointAt(int column, int row);
    /// While silent the model tells no view of new values, marks and names; it makes up for it in
    /// one go at the end.
    void setSilent(bool silent);
    /// Whether cells call themselves editable.
    void setEditable(bool editable) { m_editable = editable; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QString cellText(int column, int row) const;
    const QColor& colorOf(std::uint8_t marks) const;
    /// Tells the views that the shown part of a range has changed.
    void announce(const CellRange& range);
    void announceAll();
    void announceHeader(Qt::Orientation orientation, int first, int last);

    TableData m_table;
    MarkColors m_colors;
    CellTip m_cellTip;
    int m_pointedColumn = 0;
    int m_pointedRow = 0;
    bool m_editable = true;
    bool m_silent = false;
};

} // namespace grid
