// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QStringView>

#include <vector>

/// The fields of tables in a text, and what users are told of them.
namespace base {

/// The fields of a line without blanks around them. Blanks as separators count once however many
/// there are; between two tabs or semicolons there is always a field, perhaps an empty one.
std::vector<QStringView> fieldsOf(QStringView line, QChar separator);

/// The number in a field, or a reason that names the line and the field, both counted from 1. What
/// more than 2000 characters are is no number: a double has at most 1075 decimals.
Outcome<double> numberIn(QStringView field, qsizetype lineNumber, qsizetype fieldNumber);

/// Asks after a letter O or l that stands beside a digit or its decimal sign; empty for other
/// texts.
QString letterQuestion(QStringView text);

/// What to say of a text that should hold an observation and does not: the question, that a square
/// with missing data is not analysed, and where to read on.
QString adviceOnObservation(QStringView text);

/// Why a clipboard without any text is refused, and an empty line in one.
QString noText();
QString emptyLine(qsizetype lineNumber);

/// Why lines with different numbers of fields are refused.
QString raggedLine(qsizetype lineNumber, qsizetype fields, qsizetype fieldsOfFirst);

/// "1 campo", "2 campos": a number of things whose plural ends in "s".
QString counted(qsizetype count, const QString& singular);
} // namespace base
