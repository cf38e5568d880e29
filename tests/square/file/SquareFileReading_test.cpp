// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/SquareFile.h"

#include "square/file/BadFiles.h"
#include "square/file/SquareBytes.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

using namespace squarebytes;

namespace {

record::SquareData decoded(const QByteArray& bytes)
{
    const square::DecodedSquare result = square::decode(bytes);
    EXPECT_EQ(result.code, square::Usable);
    return result.data.value_or(record::SquareData(1, 1));
}

int codeOf(const QByteArray& bytes)
{
    return square::decode(bytes).code;
}

using Values = std::vector<double>;
using Names = QStringList;

} // namespace

TEST(ReadHeader, HandsBackTheTitleTheCountsAndTheFlags)
{
    const square::SquareHeader header = square::readHeader(
        lines({"T\xEDtulo \t con todo\x7F", "  4;columnas", "\t3 filas", "true FALSE TrueX"}));
    EXPECT_EQ(header.code, square::Usable);
    EXPECT_EQ(header.identifier, QByteArray("T\xEDtulo \t con todo\x7F"));
    EXPECT_EQ(header.nrOfColumns, 4);
    EXPECT_EQ(header.nrOfRows, 3);
    EXPECT_TRUE(header.hasRowAttributes);
    EXPECT_FALSE(header.hasColumnNames);
    EXPECT_TRUE(header.hasRowNames);
}

TEST(ReadHeader, WordsNeedNoBlanksBetweenThem)
{
    const square::SquareHeader header =
        square::readHeader(lines({"t", "3", "3", "  TRUEfalse   FALSE;comentario"}));
    EXPECT_EQ(header.code, square::Usable);
    EXPECT_TRUE(header.hasRowAttributes);
    EXPECT_FALSE(header.hasColumnNames);
    EXPECT_FALSE(header.hasRowNames);
}

TEST(ReadHeader, CountsAreReadButNotJudged)
{
    const auto counts = [](const QByteArray& columns, const QByteArray& rows) {
        const square::SquareHeader header =
            square::readHeader(lines({"t", columns, rows, "TRUE TRUE TRUE"}));
        EXPECT_EQ(header.code, square::Usable);
        return std::pair(header.nrOfColumns, header.nrOfRows);
    };
    EXPECT_EQ(counts("0", "-7"), std::pair(0, -7));
    EXPECT_EQ(counts("+2147483647", "-2147483648"),
              std::pair(std::numeric_limits<int>::max(), std::numeric_limits<int>::min()));
    EXPECT_EQ(counts("3.9", "003"), std::pair(3, 3)); // ".9" is a comment
}

TEST(ReadHeader, LinesTwoToFourEndInAnyWay)
{
    EXPECT_EQ(square::readHeader("t\r\n3\n3\rTRUE TRUE TRUE").code, square::Usable);
    EXPECT_EQ(square::readHeader("t\r\n3\n3\nTRUE TRUE TRUE\n").code, square::Usable);
    EXPECT_EQ(square::readHeader("t\r3\r3\rTRUE TRUE TRUE\r").code, square::Usable);
}

TEST(ReadHeader, AnEmptyTitleIsATitle)
{
    const square::SquareHeader header = square::readHeader("\r\n3\r\n3\r\nTRUE TRUE TRUE");
    EXPECT_EQ(header.code, square::Usable);
    EXPECT_EQ(header.identifier, QByteArray());
}

TEST(Decode, ReadsWhatTheProgramWrites)
{
    const record::SquareData data = decoded(ofOrder3());
    EXPECT_EQ(data.Identifier(), QByteArray("Parcelas de prueba"));
    EXPECT_EQ(data.NrOfColumns(), 3);
    EXPECT_EQ(data.NrOfRows(), 3);
    EXPECT_EQ(columnNames(data), Names({utf8("Col 1"), utf8("Col 2"), utf8("Col 3")}));
    EXPECT_EQ(rowNames(data), Names({utf8("Fila 1"), utf8("Fila 2"), utf8("Fila 3")}));
    EXPECT_EQ(rowAttributes(data), std::vector<int>({0, 0, 0}));
    EXPECT_EQ(observations(data), Values({1, -2.5, 30, 4, 512.5, 0.006, 7, 8, 0}));
    EXPECT_EQ(data.value(2, 1), -2.5); // column 2, row 1
}

TEST(Decode, ReadsBareNamesAndAttributes)
{
    const record::SquareData data = decoded(ofOrder5());
    EXPECT_EQ(columnNames(data), Names({utf8("uno"), utf8("dos"), utf8("tres y medio"),
                                        utf8("cu\"atro"), utf8("cinco")}));
    EXPECT_EQ(rowAttributes(data), std::vector<int>({0, 1, 2, 3, 255}));
    EXPECT_EQ(data.value(5, 5), 31.0);
}

TEST(Decode, AbsentPartsAreDefaults)
{
    const record::SquareData data = decoded(bare());
    EXPECT_EQ(columnNames(data), Names({utf8("C-1"), utf8("C-2"), utf8("C-3")}));
    EXPECT_EQ(rowNames(data), Names({utf8("R-1"), utf8("R-2"), utf8("R-3")}));
    EXPECT_EQ(rowAttributes(data), std::vector<int>({0, 0, 0}));
    EXPECT_EQ(observations(data), Values({1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(Decode, EveryCombinationOfPartsIsRead)
{
    for (unsigned parts = 0; parts < 8; ++parts) {
        const bool attributes = (parts & 1U) != 0;
        const bool columns = (parts & 2U) != 0;
        const bool rows = (parts & 4U) != 0;
        const auto word = [](bool flag) { return QByteArray(flag ? "TRUE " : "FALSE "); };
        QByteArray bytes = lines({"t", "2", "2", word(attributes) + word(columns) + word(rows)});
        if (columns)
            bytes += "c1 c2\r\n";
        for (const char* row : {"1", "2"}) {
            bytes += attributes ? row + QByteArray(" ") : QByteArray();
            bytes += rows ? QByteArray("r") + row + " " : QByteArray();
            bytes += row + QByteArray("0.5 -3\r\n");
        }
        const record::SquareData data = decoded(bytes);
        EXPECT_EQ(observations(data), Values({10.5, -3, 20.5, -3})) << parts;
        EXPECT_EQ(data.rowAttribute(2), attributes ? 2 : 0) << parts;
        EXPECT_EQ(data.columnName(2), utf8(columns ? "c2" : "C-2")) << parts;
        EXPECT_EQ(data.rowName(1), utf8(rows ? "r1" : "R-1")) << parts;
    }
}

TEST(Decode, FormatIsFreeBehindTheHeader)
{
    const QByteArray header = "t\r\n2\r\n2\r\nTRUE TRUE TRUE\r\n";
    const Values expected = {1, 2, 3, 4};
    for (const char* body : {
             "a b\r\n0 x 1 2\r\n0 y 3 4\r\n",
             "a\nb\n0\nx\n1\n2\n0\ny\n3\n4",
             "a b 0 x 1 2 0 y 3 4",
             "\t\t a\t b \r\n\r\n\r\n 0\t\"x\"\t+1\t2.\t0 y 3E0 0.4e+1\x01",
             "a b 0 x 1 2 0 y 3 4 5 6 siete\r\n\"",
         }) {
        EXPECT_EQ(observations(decoded(header + body)), expected) << body;
    }
}

TEST(Decode, CountsOutsideTheEditorsRangeAndOblongSquaresLoad)
{
    const auto file = [](int columns, int rows) {
        QByteArray bytes = lines(
            {"t", QByteArray::number(columns), QByteArray::number(rows), "FALSE FALSE FALSE"});
        for (int cell = 1; cell <= columns * rows; ++cell)
            bytes += QByteArray::number(cell) + (cell % columns == 0 ? "\r\n" : "\t");
        return bytes;
    };
    for (const auto& [columns, rows] :
         {std::pair(1, 1), {2, 2}, {7, 7}, {8, 8}, {20, 20}, {4, 3}, {3, 4}, {1000, 2}}) {
        const record::SquareData data = decoded(file(columns, rows));
        EXPECT_EQ(data.NrOfColumns(), columns);
        EXPECT_EQ(data.NrOfRows(), rows);
        EXPECT_EQ(data.value(columns, 1), columns);
        EXPECT_EQ(data.value(columns, rows), columns * rows);
        EXPECT_EQ(data.value(1, rows), columns * (rows - 1) + 1);
    }
}

TEST(Decode, AttributesAreRoundedAndTakenModulo256)
{
    const std::pair<const char*, int> cases[] = {
        {"0", 0},      {"1", 1},     {"2.4", 2},  {"2.6", 3},        {"255", 255},  {"256", 0},
        {"257.2", 1},  {"-1", 255},  {"-0.4", 0}, {"-256", 0},       {"-257", 255}, {"1e3", 232},
        {"-300", 212}, {"1e300", 0}, {"1E-9", 0}, {"4294967297", 1},
    };
    for (const auto& [written, attribute] : cases) {
        const record::SquareData data = decoded(badfiles::withAttribute(written));
        EXPECT_EQ(data.rowAttribute(1), attribute) << written;
        EXPECT_EQ(observations(data), Values({1, 2, 3, 4})) << written;
    }
}

TEST(Decode, NamesAreCutToFiftyCharacters)
{
    const QByteArray pair = "\xF0\x9F\x8C\xBE"; // U+1F33E, two code units
    const QByteArray body =
        lines({"2", "1", "FALSE TRUE TRUE",
               "\"" + QByteArray(49, 'a') + " b\" " + QByteArray(49, 'a') + pair,
               QByteArray(60, 'r') + " 1 2"});
    const record::SquareData data = decoded("t\r\n" + body);
    EXPECT_EQ(data.columnName(1), QString(49, u'a') + u' ');
    EXPECT_EQ(data.columnName(2), QString(49, u'a')); // the pair is not cut in two
    EXPECT_EQ(data.rowName(1), QString(50, u'r'));
    EXPECT_EQ(observations(data), Values({1, 2}));
}

TEST(Decode, EachPieceHasItsOwnEncoding)
{
    const record::SquareData data =
        decoded(lines({"A\xF1o", "2", "1", "FALSE TRUE TRUE", "A\xF1o A\xC3\xB1o", "\x80 1 2"}));
    EXPECT_EQ(data.Identifier(), QByteArray("A\xF1o"));
    EXPECT_EQ(data.columnName(1), utf8("Año"));
    EXPECT_EQ(data.columnName(2), utf8("Año"));
    EXPECT_EQ(data.rowName(1), utf8("€"));
}

TEST(Decode, EveryBadFileGivesItsCode)
{
    std::set<int> codes;
    const std::vector<badfiles::BadFile> files = badfiles::all();
    EXPECT_GE(files.size(), 60U);
    for (const badfiles::BadFile& file : files) {
        EXPECT_EQ(codeOf(file.bytes), file.code) << file.what;
        codes.insert(file.code);
    }
    EXPECT_EQ(codes, (std::set<int>{-6, -5, -4, -3, -2, -1}));
}

TEST(Decode, ABadBodyKeepsWhatCameBeforeTheFailure)
{
    const square::DecodedSquare bad = square::decode(
        lines({"t", "2", "3", "TRUE TRUE TRUE", "a b", "7 x 1 2", "8 y 3 cuatro", "9 z 5 6"}));
    EXPECT_EQ(bad.code, square::NoObservation);
    ASSERT_TRUE(bad.data.has_value());
    EXPECT_EQ(bad.data->NrOfRows(), 3);
    EXPECT_EQ(columnNames(*bad.data), Names({utf8("a"), utf8("b")}));
    EXPECT_EQ(rowNames(*bad.data), Names({utf8("x"), utf8("y"), utf8("R-3")}));
    EXPECT_EQ(rowAttributes(*bad.data), std::vector<int>({7, 8, 0}));
    EXPECT_EQ(observations(*bad.data), Values({1, 2, 3, 0, 0, 0}));
}

TEST(Decode, ANameCutByTheEndOfTheFileIsWhatIsThere)
{
    const square::DecodedSquare cut =
        square::decode("t\r\n3\r\n1\r\nFALSE TRUE FALSE\r\nuno \"dos y");
    EXPECT_EQ(cut.code, square::NoObservation);
    ASSERT_TRUE(cut.data.has_value());
    EXPECT_EQ(columnNames(*cut.data), Names({utf8("uno"), utf8("dos y"), utf8("C-3")}));
}

TEST(Decode, BadHeadersGiveNoSquare)
{
    for (const badfiles::BadFile& file : badfiles::all())
        EXPECT_EQ(square::decode(file.bytes).data.has_value(), file.code <= -5) << file.what;
}

namespace {

/// Checks every prefix of a file: usable once its last observation is whole, else refused with one
/// of the codes that an early end can give.
void checkPrefixes(const QByteArray& whole, const std::set<int>& codesOnTheWay)
{
    const record::SquareData all = decoded(whole);
    const qsizetype lastObservation = whole.trimmed().size();
    std::set<int> codes;
    for (qsizetype length = 0; length <= whole.size(); ++length) {
        const square::DecodedSquare prefix = square::decode(whole.left(length));
        codes.insert(prefix.code);
        if (length >= lastObservation) {
            EXPECT_EQ(prefix.code, square::Usable) << length;
            EXPECT_EQ(observations(*prefix.data), observations(all)) << length;
        } else if (prefix.code == square::Usable) {
            // Only a number cut inside its digits can still be a number.
            EXPECT_GT(length, whole.trimmed().lastIndexOf('\t')) << length;
        }
    }
    EXPECT_EQ(codes, codesOnTheWay);
}

} // namespace

TEST(Decode, EveryPrefixOfAFileHasACode)
{
    checkPrefixes(ofOrder3(), {0, -1, -2, -3, -5, -6});
    checkPrefixes(ofOrder5(), {0, -1, -2, -3, -5, -6});
    checkPrefixes(bare().replace(" ", "\t").replace("false\t", "false "), {0, -1, -2, -3, -6});
}
