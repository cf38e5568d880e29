// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/SquareData.h"

#include <QStringList>

#include <vector>

/// The observations of a square, row by row.
inline std::vector<double> observations(const record::SquareData& square)
{
    std::vector<double> values;
    for (int row = 1; row <= square.NrOfRows(); ++row) {
        for (int column = 1; column <= square.NrOfColumns(); ++column)
            values.push_back(square.value(column, row));
    }
    return values;
}

inline QStringList columnNames(const record::SquareData& square)
{
    QStringList names;
    for (int column = 1; column <= square.NrOfColumns(); ++column)
        names += square.columnName(column);
    return names;
}

inline QStringList rowNames(const record::SquareData& square)
{
    QStringList names;
    for (int row = 1; row <= square.NrOfRows(); ++row)
        names += square.rowName(row);
    return names;
}

inline std::vector<int> rowAttributes(const record::SquareData& square)
{
    std::vector<int> attributes;
    for (int row = 1; row <= square.NrOfRows(); ++row)
        attributes.push_back(square.rowAttribute(row));
    return attributes;
}
