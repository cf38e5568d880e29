// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>
#include <string_view>

namespace square {

/// Reads lines, numbers and names of a square file from its bytes, in order.
///
/// The bytes must outlive the reader and the views that it hands out.
class TextReader {
public:
    explicit TextReader(const QByteArray& bytes);

    /// The text up to the next carriage return, which is taken too, with a line feed that follows
    /// it. Line feeds before it are part of the text.
    std::string_view lineUpToCarriageReturn();

    /// The text up to the next line end (CR, LF or CRLF), which is taken too.
    std::string_view line();

    /// The next word; empty where none is left. Line ends are spaces like any other.
    std::string_view word();

    /// The next word as a number in ordinary notation with "."; nothing where it is no finite
    /// number or no word is left.
    std::optional<double> number();

    /// The next name, as NameScanner takes it. At the end of the bytes it is what is there;
    /// nothing when not one character of it is.
    std::optional<QByteArray> name();

private:
    std::string_view takeLine(std::size_t length);

    std::string_view m_rest;
};

/// The integer that a line starts with, after blanks and tabs; what follows it is a comment.
/// Nothing where there is no digit or the value lies outside 32 bits.
std::optional<int> leadingInteger(std::string_view line);

} // namespace square
