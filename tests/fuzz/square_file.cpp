// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes have a code, and what loads survives a save; so does any square.
#include "fuzz/Fuzzing.h"
#include "square/file/SquareFile.h"

using fuzzing::require;

namespace {

QByteArray withoutLineEnds(QByteArray line)
{
    return line.replace('\r', "").replace('\n', "");
}

/// Whether a value is another one with its digits rounded, the largest ones cut off, and read back.
bool isRounded(double rounded, double value, int digits)
{
    using Limits = std::numeric_limits<double>;
    const double unit = std::pow(10.0, 1 - digits) * (std::abs(value) > 1e308 ? 1.0 : 0.5);
    return std::abs(rounded - value) <=
           (unit * 1.000001 + Limits::epsilon()) * std::abs(value) + Limits::denorm_min();
}

/// In the file's own form a name with a blank loses its quotes, and blanks that then are at its
/// ends.
/// @return whether it came back as it was
bool checkName(const QString& read, const QString& inFile, const QString& defaultName)
{
    constexpr QChar quote = QLatin1Char('"');
    if (!inFile.contains(quote) || !inFile.contains(QLatin1Char(' '))) {
        require(read == inFile, "a name is kept");
        return true;
    }
    const QString rest = QString(inFile).remove(quote).trimmed();
    require(QString(read).remove(quote).trimmed() == (rest.isEmpty() ? defaultName : rest),
            "a name is kept but for its quotes");
    return false;
}

void checkValues(const record::SquareData& read, const record::SquareData& written, bool rounded,
                 int digits)
{
    bool same = true;
    for (int row = 1; row <= written.NrOfRows(); ++row) {
        require(read.rowAttribute(row) == written.rowAttribute(row), "an attribute is kept");
        for (int column = 1; column <= written.NrOfColumns(); ++column) {
            const double value = written.value(column, row);
            same = same && read.value(column, row) == value;
            require(isRounded(read.value(column, row), value, digits), "an observation is kept");
        }
    }
    require(rounded == !same, "what is rounded is told");
}

/// Neighbours among the subnormal numbers may be further apart than a unit of the last digit that
/// is written, and then what is written changes once more: 1.00E-0321 is read as 9.98E-0322.
bool hasSubnormals(const record::SquareData& square)
{
    for (int row = 1; row <= square.NrOfRows(); ++row) {
        for (int column = 1; column <= square.NrOfColumns(); ++column) {
            if (std::fpclassify(square.value(column, row)) == FP_SUBNORMAL)
                return true;
        }
    }
    return false;
}

/// Saves a square and loads it.
void checkSave(const record::SquareData& square, int digits)
{
    const QString fileName = QStringLiteral("/tmp/a.asc");
    const square::EncodedSquare encoded = square::encode(square, fileName, digits);
    const square::DecodedSquare read = square::decode(encoded.bytes);
    require(read.code == square::Usable && read.problem.isEmpty(), "what was saved loads");
    require(read.data->NrOfColumns() == square.NrOfColumns() &&
                read.data->NrOfRows() == square.NrOfRows(),
            "the size is kept");
    const QByteArray title = withoutLineEnds(square.Identifier());
    require(title.isEmpty() ? !read.data->Identifier().isEmpty() : read.data->Identifier() == title,
            "the title is kept");
    bool sameNames = true;
    for (int column = 1; column <= square.NrOfColumns(); ++column)
        sameNames &= checkName(read.data->columnName(column), encoded.columnNames[column - 1],
                               record::defaultColumnName(column));
    for (int row = 1; row <= square.NrOfRows(); ++row)
        sameNames &= checkName(read.data->rowName(row), encoded.rowNames[row - 1],
                               record::defaultRowName(row));
    checkValues(*read.data, square, encoded.rounded, digits);
    require(!sameNames || hasSubnormals(*read.data) ||
                square::encode(*read.data, fileName, digits).bytes == encoded.bytes,
            "what was loaded is saved as the same bytes");
}

void checkFile(const QByteArray& bytes)
{
    const square::DecodedSquare read = square::decode(bytes);
    const square::SquareHeader header = square::readHeader(bytes);
    if (header.code != square::Usable)
        require(read.code == header.code, "the header's fault is that of the file");
    require(read.data.has_value() ==
                (read.code == square::Usable || read.code == square::NoAttribute ||
                 read.code == square::NoObservation),
            "a square comes with the codes that promise one");
    if (read.data) {
        require(read.data->NrOfColumns() == header.nrOfColumns &&
                    read.data->NrOfRows() == header.nrOfRows &&
                    read.data->Identifier() == header.identifier,
                "the header is that of the file");
    }
    require(read.problem.isEmpty() || read.code == square::NoObservation ||
                read.code == square::NoRoomOrLineFeed,
            "no problem with what is usable");
    if (read.code == square::NoObservation)
        require(!read.problem.isEmpty(), "a missing observation is told");
    if (read.code == square::Usable)
        checkSave(*read.data, square::fileDigits);
}

QString anyName(FuzzedDataProvider& data)
{
    const std::string units = data.ConsumeRandomLengthString(12);
    if (data.ConsumeBool())
        return QString::fromUtf8(units.data(), static_cast<qsizetype>(units.size()));
    QString name; // perhaps half a surrogate pair
    for (std::size_t i = 0; i + 1 < units.size(); i += 2)
        name += QChar(static_cast<uchar>(units[i]), static_cast<uchar>(units[i + 1]));
    return name;
}

/// A square of any names, marks and values.
record::SquareData anySquare(FuzzedDataProvider& data)
{
    record::SquareData square(data.ConsumeIntegralInRange(1, 5), data.ConsumeIntegralInRange(1, 5));
    square.setIdentifier(QByteArray::fromStdString(data.ConsumeRandomLengthString(20)));
    for (int column = 1; column <= square.NrOfColumns(); ++column)
        square.setColumnName(column, anyName(data));
    for (int row = 1; row <= square.NrOfRows(); ++row) {
        square.setRowName(row, anyName(data));
        square.setRowAttribute(row, data.ConsumeIntegral<quint8>());
        for (int column = 1; column <= square.NrOfColumns(); ++column)
            square.setValue(column, row, fuzzing::anyFinite(data));
    }
    return square;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const fuzzing::Stopwatch stopwatch;
    FuzzedDataProvider data(bytes, size);
    checkFile(QByteArray::fromStdString(data.ConsumeBytesAsString(size)));
    FuzzedDataProvider again(bytes, size);
    const int digits = again.ConsumeIntegralInRange(2, 17);
    checkSave(anySquare(again), digits);
    return 0;
}
