// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of SquareFile: from bytes to a square.
#include "square/file/SquareFile.h"

#include "base/FieldLines.h"
#include "base/FileText.h"
#include "base/NumberText.h"
#include "base/ShortText.h"
#include "square/file/NameScanner.h"
#include "square/file/TextReader.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace square {

namespace {

/// Takes "TRUE" or "FALSE" off the front of a line, in whatever case.
std::optional<bool> takeFlag(std::string_view& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    for (const std::string_view word : {"FALSE", "TRUE"}) {
        if (line.size() < word.size() || qstrnicmp(line.data(), word.data(), word.size()) != 0)
            continue;
        line.remove_prefix(word.size());
        return word == "TRUE";
    }
    return std::nullopt;
}

bool takePresenceLine(std::string_view line, SquareHeader& header)
{
    for (bool* const present :
         {&header.hasRowAttributes, &header.hasColumnNames, &header.hasRowNames}) {
        const std::optional<bool> flag = takeFlag(line);
        if (!flag)
            return false;
        *present = *flag;
    }
    return true;
}

/// Takes the four lines of the header; afterwards the reader stands before the column names.
SquareHeader takeHeader(TextReader& reader)
{
    SquareHeader header;
    const std::string_view title = reader.lineUpToCarriageReturn();
    header.identifier = QByteArray(title.data(), static_cast<qsizetype>(title.size()));
    header.code = title.find('\n') == std::string_view::npos ? Usable : NoRoomOrLineFeed;

    const std::string_view columnLine = reader.line();
    if (const std::optional<int> columns = leadingInteger(columnLine))
        header.nrOfColumns = *columns;
    else if (header.code == Usable || !std::all_of(columnLine.begin(), columnLine.end(), isSpace))
        header.code = NoColumnCount; // a file of line feeds only has nothing here and keeps its -4
    if (header.code != Usable)
        return header;

    const std::optional<int> rows = leadingInteger(reader.line());
    if (!rows) {
        header.code = NoRowCount;
        return header;
    }
    header.nrOfRows = *rows;
    if (!takePresenceLine(reader.line(), header))
        header.code = NoPresenceLine;
    return header;
}

void takeColumnNames(TextReader& reader, record::SquareData& data)
{
    for (int column = 1; column <= data.NrOfColumns(); ++column) {
        const std::optional<QByteArray> name = reader.name();
        if (!name)
            return;
        data.setColumnName(column, base::decodedText(*name));
    }
}

bool takeRowAttribute(TextReader& reader, record::SquareData& data, int row)
{
    const std::optional<double> number = reader.number();
    if (!number)
        return false;
    const double remainder = std::fmod(std::round(*number), 256.0);
    data.setRowAttribute(row, static_cast<quint8>(remainder < 0 ? remainder + 256.0 : remainder));
    return true;
}

/// What stands in the place of an observation.
QString noObservation(const QString& row, const QString& column, std::string_view word)
{
    const QString text = base::withoutControlCharacters(
        base::shortened(base::decodedText({word.data(), static_cast<qsizetype>(word.size())})));
    const QString problem = text.isEmpty() ? QStringLiteral("Falta una observación")
                                           : QStringLiteral("«%1» no es un número").arg(text);
    return QStringLiteral("%1: fila «%2», columna «%3». %4")
        .arg(problem, row, column, base::adviceOnObservation(text));
}

/// @return what was wrong with one of them; else empty
QString takeObservations(TextReader& reader, record::SquareData& data, int row)
{
    for (int column = 1; column <= data.NrOfColumns(); ++column) {
        const std::string_view word = reader.word();
        const std::optional<double> value = base::readPlainNumber(word);
        if (!value)
            return noObservation(data.rowName(row), data.columnName(column), word);
        data.setValue(column, row, *value);
    }
    return {};
}

void takeRows(TextReader& reader, const SquareHeader& header, DecodedSquare& decoded)
{
    record::SquareData& data = *decoded.data;
    for (int row = 1; row <= data.NrOfRows(); ++row) {
        if (header.hasRowAttributes && !takeRowAttribute(reader, data, row)) {
            decoded.code = NoAttribute;
            return;
        }
        if (header.hasRowNames) {
            if (const std::optional<QByteArray> name = reader.name())
                data.setRowName(row, base::decodedText(*name));
        }
        decoded.problem = takeObservations(reader, data, row);
        if (!decoded.problem.isEmpty()) {
            decoded.code = NoObservation;
            return;
        }
    }
}

} // namespace

SquareHeader readHeader(const QByteArray& bytes)
{
    TextReader reader(bytes);
    return takeHeader(reader);
}

DecodedSquare decode(const QByteArray& bytes)
{
    TextReader reader(bytes);
    const SquareHeader header = takeHeader(reader);
    if (header.code != Usable)
        return {header.code, std::nullopt, {}};
    const QString badSize = record::sizeProblem(header.nrOfColumns, header.nrOfRows);
    if (!badSize.isEmpty())
        return {NoRoomOrLineFeed, std::nullopt, badSize};

    DecodedSquare decoded{Usable, record::SquareData(header.nrOfColumns, header.nrOfRows), {}};
    decoded.data->setIdentifier(header.identifier);
    if (header.hasColumnNames)
        takeColumnNames(reader, *decoded.data);
    takeRows(reader, header, decoded);
    return decoded;
}

} // namespace square
