// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/NameScanner.h"

#include <utility>

namespace square {

bool isSpace(char character)
{
    return static_cast<unsigned char>(character) < 33;
}

bool NameScanner::take(char character)
{
    if (m_state == State::Start)
        m_text.clear();
    if (isSpace(character) && m_state != State::InsideQuotes)
        return std::exchange(m_state, State::Start) != State::Start;
    const bool isQuote = character == '"';
    switch (m_state) {
    case State::Start:
    case State::Bare:
        return isQuote ? drop(State::AfterOpeningQuote) : keep(character, State::Bare);
    case State::AfterOpeningQuote:
        return keep(character, isQuote ? State::Bare : State::InsideQuotes);
    case State::InsideQuotes:
        return isQuote ? drop(State::Bare) : keep(character, State::InsideQuotes);
    }
    return false;
}

bool NameScanner::keep(char character, State next)
{
    m_text += character;
    return drop(next);
}

bool NameScanner::drop(State next)
{
    m_state = next;
    return false;
}

} // namespace square
