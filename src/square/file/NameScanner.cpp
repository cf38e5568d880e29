// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/NameScanner.h"

namespace square {

namespace {

constexpr char quote = '"';

} // namespace

bool isSpace(char character)
{
    return static_cast<unsigned char>(character) < 33;
}

bool NameScanner::take(char character)
{
    switch (m_state) {
    case State::Start:
        return takeAtStart(character);
    case State::AfterOpeningQuote:
        return takeAfterOpeningQuote(character);
    case State::InsideQuotes:
        return takeInsideQuotes(character);
    case State::Bare:
        return takeBare(character);
    }
    return false;
}

bool NameScanner::takeAtStart(char character)
{
    m_text.clear();
    if (isSpace(character))
        return drop(State::Start);
    return character == quote ? drop(State::AfterOpeningQuote) : keep(character, State::Bare);
}

bool NameScanner::takeAfterOpeningQuote(char character)
{
    if (isSpace(character))
        return end();
    return keep(character, character == quote ? State::Bare : State::InsideQuotes);
}

bool NameScanner::takeInsideQuotes(char character)
{
    return character == quote ? drop(State::Bare) : keep(character, State::InsideQuotes);
}

/// Also the state after a closing quote, where a second quote opens a quoted part again.
bool NameScanner::takeBare(char character)
{
    if (isSpace(character))
        return end();
    return character == quote ? drop(State::AfterOpeningQuote) : keep(character, State::Bare);
}

bool NameScanner::keep(char character, State next)
{
    m_text += character;
    m_state = next;
    return false;
}

bool NameScanner::drop(State next)
{
    m_state = next;
    return false;
}

bool NameScanner::end()
{
    m_state = State::Start;
    return true;
}

} // namespace square
