// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/SquareData.h"

#include <QStringList>

#include <optional>

/// The ASCII square file (".asc") as functions between its bytes and a record::SquareData.
///
/// Five parts: a free title line; the two counts, a line each, any comment behind the integer;
/// "TRUE" or "FALSE" for each of row attributes, column names and row names; the column names; and
/// per row its attribute, its name and its observations. Names and numbers stand in free format,
/// separated by any run of characters below 33. The title line must end in a carriage return.
namespace square {

/// Digits of an observation in the file.
inline constexpr int fileDigits = 8;

/// What became of reading a file.
enum ReadCode : int {
    Usable = 0,
    NoColumnCount = -1, ///< Also for a file that cannot be opened or ends before its counts.
    NoRowCount = -2,
    NoPresenceLine = -3,
    NoRoomOrLineFeed = -4, ///< Line feed inside line 1, or counts that no square can have.
    NoAttribute = -5,
    NoObservation = -6,
};

/// The first four lines of a file. The fields after one that could not be read keep their defaults.
struct SquareHeader {
    ReadCode code = NoColumnCount; ///< Usable, or NoColumnCount to NoRoomOrLineFeed.
    QByteArray identifier;         ///< Line 1, byte for byte.
    int nrOfColumns = 0;           ///< As read: any 32-bit value.
    int nrOfRows = 0;
    bool hasRowAttributes = false;
    bool hasColumnNames = false;
    bool hasRowNames = false;
};

/// Reads and checks the first four lines, for those who want no more of a file. Counts that can be
/// read are not judged.
SquareHeader readHeader(const QByteArray& bytes);

/// A square read from bytes. With NoAttribute or NoObservation `data` holds what came before the
/// failure; with every other failure it is empty.
struct DecodedSquare {
    ReadCode code = NoColumnCount;
    std::optional<record::SquareData> data;
    QString problem; ///< For the user: record::sizeProblem(), or which observation is none.
};

/// Reads a whole file. Takes time and memory in proportion to the bytes, whatever the counts say.
///
/// Names that the bytes end before keep their defaults. Attributes are rounded to the nearest
/// integer, modulo 256. What follows the last observation is ignored.
DecodedSquare decode(const QByteArray& bytes);

/// A file's bytes and what they hold of the square.
struct EncodedSquare {
    QByteArray bytes;
    QStringList columnNames; ///< As they stand in the file, for the grid to show.
    QStringList rowNames;
    bool rounded = false; ///< Reading the bytes gives another value in some cell.
};

/// Writes a square with `precision` significant digits in each observation.
///
/// An empty Identifier() gives a first line that names the program's grid and `fileName`. Names are
/// written without control characters and without blanks at their ends. Where the reader would not
/// take a name whole (a quote before a blank ends it early) its quotes are dropped, and a name of
/// which nothing is left is written as the default name, so decode() finds every observation in
/// its cell again whatever the names are.
EncodedSquare encode(const record::SquareData& data, const QString& fileName,
                     int precision = fileDigits);

} // namespace square
