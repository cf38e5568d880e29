// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace square {

/// Takes the names of a square file apart, one character at a time.
///
/// A name ends at the first blank, tab or other character below 33 that does not stand inside
/// double quotes. In a bare name a doubled quote reads as one quote; inside a quoted name it reads
/// as nothing. Quotes and blanks are ASCII, so the scanner works on the bytes of the file whatever
/// their encoding.
class NameScanner {
public:
    /// Takes the next character. @return whether it ended the name, which text() then holds; the
    /// character after it starts the next name.
    bool take(char character);

    /// The text of the name so far.
    const QByteArray& text() const { return m_text; }

    /// Whether any character of a name was taken since the last one ended.
    bool insideName() const { return m_state != State::Start; }

private:
    /// Bare is also the state after a closing quote, where a second quote opens a part again.
    enum class State { Start, AfterOpeningQuote, InsideQuotes, Bare };

    // Both say that the name goes on.
    bool keep(char character, State next);
    bool drop(State next);

    State m_state = State::Start;
    QByteArray m_text;
};

/// Blank, tab, line end and every other character with a code below 33.
bool isSpace(char character);

} // namespace square
