// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "square/file/SquareBytes.h"

/// Files that no window may load, each with the code that says why.
namespace badfiles {

struct BadFile {
    const char* what;
    QByteArray bytes;
    int code;
};

/// A file whose header says `columns` and `rows` and whose line 4 is `presence`, and the lines
/// behind it.
inline QByteArray fileOf(const QByteArray& columns, const QByteArray& rows,
                         const QByteArray& presence, const QByteArrayList& body)
{
    return squarebytes::lines(QByteArrayList{"titulo", columns, rows, presence} + body);
}

/// A file without names whose last line of data is `row`.
inline QByteArray withLastRow(const QByteArray& row)
{
    return fileOf("3", "3", "FALSE FALSE FALSE", {"1 2 3", "4 5 6", row});
}

/// A file with attributes whose first is `attribute`.
inline QByteArray withAttribute(const QByteArray& attribute)
{
    return fileOf("2", "2", "TRUE FALSE FALSE", {attribute + " 1 2", "0 3 4"});
}

inline std::vector<BadFile> all()
{
    const QByteArray body = "1 2 3\r\n4 5 6\r\n7 8 9\r\n";
    const QByteArray flags = "FALSE FALSE FALSE";
    const QByteArrayList rows = {"1 2 3", "4 5 6", "7 8 9"};
    QByteArray nulls(64, '\0');
    return {
        // No column count.
        {"empty", "", -1},
        {"a lone carriage return", "\r", -1},
        {"a lone line end", "\r\n", -1},
        {"a title only", "titulo", -1},
        {"a title and its end", "titulo\r\n", -1},
        {"an empty count line", fileOf("", "3", flags, rows), -1},
        {"a blank count line", fileOf("  \t ", "3", flags, rows), -1},
        {"a word for the count", fileOf("tres", "3", flags, rows), -1},
        {"a comment for the count", fileOf(";3", "3", flags, rows), -1},
        {"a quoted count", fileOf("\"3\"", "3", flags, rows), -1},
        {"a sign without digits", fileOf("-", "3", flags, rows), -1},
        {"two signs", fileOf("+-3", "3", flags, rows), -1},
        {"a sign away from its digits", fileOf("- 3", "3", flags, rows), -1},
        {"a decimal point first", fileOf(".3", "3", flags, rows), -1},
        {"the count on the next line", fileOf("\r\n3", "3", flags, rows), -1},
        {"one beyond 32 bits", fileOf("2147483648", "3", flags, rows), -1},
        {"one below 32 bits", fileOf("-2147483649", "3", flags, rows), -1},
        {"far beyond 64 bits", fileOf("99999999999999999999999", "3", flags, rows), -1},
        {"a count in wide digits", fileOf("\xEF\xBC\x93", "3", flags, rows), -1},
        {"zero bytes", nulls, -1},
        {"a bitmap", QByteArray("BM\x8A\x00\x00\x00\r\x00\x7C", 9), -1},
        {"line feed in the title and a bad count", "a\nb\r\ntres\r\n3\r\n" + flags + "\r\n" + body,
         -1},
        {"line feed in the title and a count beyond 32 bits", "a\nb\r\n2147483648\r\n", -1},
        // No row count.
        {"end after the column count", "titulo\r\n3", -2},
        {"end after the column line", "titulo\r\n3\r\n", -2},
        {"an empty row line", fileOf("3", "", flags, rows), -2},
        {"a word for the rows", fileOf("3", "tres", flags, rows), -2},
        {"both counts on one line", fileOf("3 3", flags, "1 2 3", rows), -2},
        {"rows beyond 32 bits", fileOf("3", "4294967299", flags, rows), -2},
        {"a comment for the rows", fileOf("3", "\t;nr. of rows", flags, rows), -2},
        // No presence line.
        {"end after the row count", "titulo\r\n3\r\n3", -3},
        {"end after the row line", "titulo\r\n3\r\n3\r\n", -3},
        {"an empty presence line", fileOf("3", "3", "", rows), -3},
        {"YES", fileOf("3", "3", "YES YES YES", rows), -3},
        {"Spanish words", fileOf("3", "3", "VERDADERO FALSO FALSO", rows), -3},
        {"one word", fileOf("3", "3", "TRUE", rows), -3},
        {"two words", fileOf("3", "3", "TRUE TRUE", rows), -3},
        {"two words and a comment", fileOf("3", "3", "TRUE TRUE\t;row attributes", rows), -3},
        {"a cut word", fileOf("3", "3", "TRUE TRUE FALS", rows), -3},
        {"one for yes", fileOf("3", "3", "1 1 1", rows), -3},
        {"a tab before the first word", fileOf("3", "3", "\tTRUE TRUE TRUE", rows), -3},
        {"a tab between the words", fileOf("3", "3", "TRUE\tTRUE\tTRUE", rows), -3},
        {"words with commas", fileOf("3", "3", "TRUE, TRUE, TRUE", rows), -3},
        {"observations for the presence line", fileOf("3", "3", "1 2 3", rows), -3},
        {"words over two lines", fileOf("3", "3", "TRUE\r\nTRUE TRUE", rows), -3},
        // Line feed in line 1, or a size that no square has.
        {"line-feed line ends", squarebytes::ofOrder3().replace("\r\n", "\n"), -4},
        {"one line feed", "\n", -4},
        {"line feed in the title", "a\nb\r\n3\r\n3\r\n" + flags + "\r\n" + body, -4},
        {"line feed first", "\n" + squarebytes::ofOrder3(), -4},
        {"line feed in the title, empty count line", "a\nb\r\n\r\n3\r\n", -4},
        {"line feed in the title, then nothing", "a\nb\r\n", -4},
        {"no columns", fileOf("0", "3", flags, rows), -4},
        {"no rows", fileOf("3", "0", flags, rows), -4},
        {"fewer than no columns", fileOf("-3", "3", flags, rows), -4},
        {"two negative counts", fileOf("-3", "-3", flags, rows), -4},
        {"the lowest counts", fileOf("-2147483648", "-2147483648", flags, rows), -4},
        {"the highest counts", fileOf("2147483647", "2147483647", flags, rows), -4},
        {"one cell more than 16 million", fileOf("16000001", "1", flags, rows), -4},
        {"a product of 2^32", fileOf("65536", "65536", flags, rows), -4},
        // No attribute.
        {"end before the attributes", fileOf("2", "2", "TRUE FALSE FALSE", {}), -5},
        {"a word for an attribute", withAttribute("A"), -5},
        {"an infinite attribute", withAttribute("inf"), -5},
        {"an attribute that is no number", withAttribute("nan"), -5},
        {"an attribute beyond the doubles", withAttribute("1e999"), -5},
        {"an attribute with a comma", withAttribute("0,0"), -5},
        {"an attribute glued to its name", fileOf("1", "1", "TRUE FALSE TRUE", {"0\"Fila 1\" 24"}),
         -5},
        {"end before the second attribute", fileOf("2", "2", "TRUE FALSE FALSE", {"0 1 2"}), -5},
        {"a column name too many", fileOf("2", "1", "TRUE TRUE FALSE", {"a b c", "0 1 2"}), -5},
        // No observation.
        {"no body", fileOf("3", "3", flags, {}), -6},
        {"a row too few", fileOf("3", "3", flags, {"1 2 3", "4 5 6"}), -6},
        {"a cell too few", withLastRow("7 8"), -6},
        {"a word", withLastRow("7 8 nueve"), -6},
        {"nan", withLastRow("7 8 nan"), -6},
        {"inf", withLastRow("7 inf 9"), -6},
        {"-infinity", withLastRow("-infinity 8 9"), -6},
        {"hexadecimal", withLastRow("7 8 0x9"), -6},
        {"a decimal comma", withLastRow("7 8 9,5"), -6},
        {"a number with a tail", withLastRow("7 8 1.5x"), -6},
        {"two points", withLastRow("7 8 1.2.3"), -6},
        {"an exponent without digits", withLastRow("7 8 9E"), -6},
        {"an exponent with a point", withLastRow("7 8 9E1.5"), -6},
        {"a number beyond the doubles", withLastRow("7 8 1E309"), -6},
        {"an exponent at the end of 64 bits", withLastRow("7 8 10e9223372036854775807"), -6},
        {"a lone point", withLastRow("7 8 ."), -6},
        {"a lone sign", withLastRow("7 8 -"), -6},
        {"a quoted number", withLastRow("7 8 \"9\""), -6},
        {"a typographic minus",
         withLastRow("7 8 \xE2\x88\x92"
                     "9"),
         -6},
        {"a sign away from its digits in the data", withLastRow("7 8 - 9"), -6},
        {"semicolons between the numbers", withLastRow("7;8;9"), -6},
        {"a file cut inside its column names",
         fileOf("3", "3", "FALSE TRUE FALSE", {"\tuno\t\"dos y"}), -6},
        {"a column name too few", fileOf("2", "2", "FALSE TRUE TRUE", {"a", "b 1 2", "c 3 4"}), -6},
        {"16 million cells and two numbers", fileOf("4000", "4000", flags, {"1 2"}), -6},
        {"16 million columns and no name", fileOf("16000000", "1", "TRUE TRUE TRUE", {}), -5},
    };
}

} // namespace badfiles
