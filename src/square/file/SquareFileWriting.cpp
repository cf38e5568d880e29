// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of SquareFile: from a square to bytes.
#include "square/file/SquareFile.h"

#include "base/FileText.h"
#include "base/NumberText.h"
#include "square/file/NameScanner.h"

#include <algorithm>
#include <string_view>

namespace square {

namespace {

constexpr QChar blank = u' ';
constexpr QChar quote = u'"';
constexpr auto lineEnd = "\r\n";

QString withoutBlanksAtTheEnds(const QString& text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text.at(first) == blank)
        ++first;
    while (last > first && text.at(last - 1) == blank)
        --last;
    return text.mid(first, last - first);
}

/// The name as UTF-8 can carry it to decodedText() and back.
QString encodable(QString name)
{
    name.remove(QChar(QChar::ByteOrderMark));
    return base::withoutControlCharacters(QString::fromUtf8(name.toUtf8()));
}

QByteArray writtenName(const QString& name)
{
    QString doubled = name;
    doubled.replace(quote, QStringLiteral("\"\""));
    return (name.contains(blank) ? quote + doubled + quote : doubled).toUtf8();
}

/// Whether the reader takes all of a written name as one name: not none, and not only its front.
bool isTakenWhole(const QByteArray& written)
{
    NameScanner scanner;
    const auto ends = [&scanner](char character) { return scanner.take(character); };
    return std::none_of(written.begin(), written.end(), ends) && scanner.take('\t');
}

/// The name that stands in the file for `name`.
QString nameInFile(const QString& name, const QString& defaultName)
{
    QString kept = withoutBlanksAtTheEnds(encodable(name));
    if (!isTakenWhole(writtenName(kept)))
        kept = withoutBlanksAtTheEnds(kept.remove(quote));
    return kept.isEmpty() ? defaultName : kept;
}

/// Whether a written observation is read back as the same value.
bool readsAs(const QByteArray& field, double value)
{
    std::string_view number(field.constData(), static_cast<std::size_t>(field.size()));
    number.remove_prefix(number.find_first_not_of(' '));
    return base::readPlainNumber(number) == value;
}

QByteArray firstLine(const record::SquareData& data, const QString& fileName)
{
    // A line end in the title would shift every line behind it. None was read from a file.
    QByteArray title = data.Identifier();
    title.replace('\r', "").replace('\n', "");
    if (!title.isEmpty())
        return title;
    return "Exported by NTabED component: " + base::withoutControlCharacters(fileName).toUtf8();
}

} // namespace

EncodedSquare encode(const record::SquareData& data, const QString& fileName, int precision)
{
    EncodedSquare encoded;
    QByteArray& bytes = encoded.bytes;
    bytes += firstLine(data, fileName) + lineEnd;
    bytes += QByteArray::number(data.NrOfColumns()) + "\t;nr. of columns" + lineEnd;
    bytes += QByteArray::number(data.NrOfRows()) + "\t;nr. of rows" + lineEnd;
    bytes += QByteArray("TRUE TRUE TRUE\t;row attributes, column names, row names") + lineEnd;

    for (int column = 1; column <= data.NrOfColumns(); ++column) {
        encoded.columnNames +=
            nameInFile(data.columnName(column), record::defaultColumnName(column));
        bytes += '\t' + writtenName(encoded.columnNames.constLast());
    }
    bytes += lineEnd;

    for (int row = 1; row <= data.NrOfRows(); ++row) {
        encoded.rowNames += nameInFile(data.rowName(row), record::defaultRowName(row));
        bytes += QByteArray::number(data.rowAttribute(row));
        bytes += '\t' + writtenName(encoded.rowNames.constLast());
        for (int column = 1; column <= data.NrOfColumns(); ++column) {
            const double value = data.value(column, row);
            const QByteArray field = base::scientificField(value, precision);
            bytes += '\t' + field;
            encoded.rounded = encoded.rounded || !readsAs(field, value);
        }
        bytes += lineEnd;
    }
    return encoded;
}

} // namespace square
