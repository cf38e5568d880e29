// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QStringView>

#include <vector>

/// Clipboard text taken apart, as spreadsheets and people write tables.
namespace base {

/// Takes the first line off a text that is not empty. Lines end in LF or CRLF; the last one needs
/// no end.
QStringView takeLine(QStringView& text);

/// How many lines takeLine() finds.
qsizetype lineCount(QStringView text);

/// What separates the fields of a whole text: the tab where it has one, otherwise the semicolon,
/// otherwise the blank. So a blank inside a field of a tab-separated text separates nothing.
QChar separatorOf(QStringView text);

/// The fields of a line without blanks around them. Blanks as separators count once however many
/// there are; between two tabs or semicolons there is always a field, perhaps an empty one.
std::vector<QStringView> fieldsOf(QStringView line, QChar separator);

/// How many fields fieldsOf() finds.
qsizetype fieldCount(QStringView line, QChar separator);

/// The number in a field, or a reason that names the line and the field, both counted from 1. A
/// field of more than 2000 characters is none: a double has at most 1075 decimals.
Outcome<double> numberIn(QStringView field, qsizetype lineNumber, qsizetype fieldNumber);

/// Asks after a letter O or l that stands beside a digit; empty for other texts.
QString letterQuestion(QStringView text);

/// What to say of a text that should hold an observation and does not: without a digit, that a
/// square with missing data is not analysed, and where to read on; otherwise letterQuestion().
QString adviceOnObservation(QStringView text);

/// "1 campo", "2 campos": a number of things whose plural ends in "s".
QString counted(qsizetype count, const QString& singular);

/// A text for a message: cut where it is too long to be read there.
QString shortened(QStringView text);

} // namespace base
