// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/ShowSquare.h"

#include "grid/view/NTabEd.h"
#include "square/editor/Freeze.h"

namespace square {

void showSquare(const SquareData& data, grid::TNTabEd& table)
{
    const Freeze freeze(table);
    table.resetTable(data.NrOfColumns(), data.NrOfRows());
    table.setIdentifier(data.Identifier());
    for (int column = 1; column <= data.NrOfColumns(); ++column)
        table.setColumnName(column, data.columnName(column));
    for (int row = 1; row <= data.NrOfRows(); ++row) {
        table.setRowName(row, data.rowName(row));
        table.setRowAttribute(row, data.rowAttribute(row));
        for (int column = 1; column <= data.NrOfColumns(); ++column)
            table.setValue(column, row, data.observation(column, row));
    }
}

SquareData squareOf(const grid::TNTabEd& table)
{
    SquareData data(table.NrOfColumns(), table.NrOfRows());
    data.setIdentifier(table.Identifier());
    for (int column = 1; column <= data.NrOfColumns(); ++column)
        data.setColumnName(column, table.columnName(column));
    for (int row = 1; row <= data.NrOfRows(); ++row) {
        data.setRowName(row, table.rowName(row));
        data.setRowAttribute(row, table.rowAttribute(row));
        for (int column = 1; column <= data.NrOfColumns(); ++column)
            data.setObservation(column, row, table.value(column, row));
    }
    return data;
}

} // namespace square
