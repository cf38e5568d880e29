// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QString>
#include <QStringView>

#include <vector>

namespace base {

/// A table in a text, as spreadsheets copy it and people write it: lines of fields, ended by LF or
/// CRLF, the last one perhaps by nothing.
///
/// Fields are separated by tabs where the text has one, otherwise by semicolons, otherwise by
/// commas where these cannot all be decimal signs, otherwise by blanks. So a blank inside a field
/// of a tab-separated text separates nothing. A field in double quotes may hold anything, quotes
/// doubled; its line ends and tabs count as blanks. Lines without a field that is not empty, and
/// columns without one, do not count where they come last.
struct TableText {
    QString unquoted;      ///< What `rest` lies in where the text had quotes; not to be changed.
    QStringView rest;      ///< The lines that takeFields() has not taken.
    QChar separator;       ///< In `rest`.
    qsizetype lines = 0;   ///< 0 for a text without a field.
    qsizetype columns = 0; ///< Fields of the longest line.
    bool byCommas = false;
    /// Whether commas separate that, between bare numbers, could also be decimal signs or set
    /// thousands apart: "24,5,20,1" or "12,500".
    bool unclearNumbers = false;
};

/// The table of a text that outlives it. Refused with unclearCommas() where some commas seem to
/// separate and others to belong to numbers.
Outcome<TableText> tableIn(QStringView text);

/// Takes the fields of the next line, without blanks around them; none for an empty line.
std::vector<QStringView> takeFields(TableText& table);

/// Why commas are refused of which it is not clear what they are for.
QString unclearCommas();

} // namespace base
