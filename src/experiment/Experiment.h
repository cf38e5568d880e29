// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

/// An experiment as it is copied from a spreadsheet: a list of its observations or a square of
/// cells.
namespace experiment {

/// One observation of an experiment with its labels, and the clipboard line that it came from.
struct Observation {
    QString row;
    QString column;
    QString treatment;
    double value = 0.0;
    int line = 0;   ///< From 1.
    QString number; ///< The observation as it was written.
};

using Experiment = std::vector<Observation>;

/// The fields of a clipboard text, line by line.
using FieldLines = std::vector<std::vector<QStringView>>;

/// Whether commas separate the fields, where a decimal comma would look like one of them.
enum class Separators { Commas, Others };

/// A label without blanks around it and with single blanks inside, so that "A  1" is "A 1".
inline QString labelText(QStringView field)
{
    return field.toString().simplified();
}

/// What more there is to say of a field that does not tell the observation of a row and column.
QString unreadableNotice(const QString& row, const QString& column, QStringView field);

/// Which entry is for observations that come without their treatments.
QString numbersArePasted();

} // namespace experiment
