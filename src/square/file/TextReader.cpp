// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/TextReader.h"

#include "base/NumberText.h"
#include "square/file/NameScanner.h"

#include <algorithm>
#include <charconv>

namespace square {

TextReader::TextReader(const QByteArray& bytes)
    : m_rest(bytes.constData(), static_cast<std::size_t>(bytes.size()))
{
}

std::string_view TextReader::lineUpToCarriageReturn()
{
    return takeLine(std::min(m_rest.find('\r'), m_rest.size()));
}

std::string_view TextReader::line()
{
    return takeLine(std::min(m_rest.find_first_of("\r\n"), m_rest.size()));
}

/// Takes `length` characters and the line end behind them.
std::string_view TextReader::takeLine(std::size_t length)
{
    const std::string_view taken = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    if (m_rest.starts_with("\r\n"))
        m_rest.remove_prefix(2);
    else if (!m_rest.empty())
        m_rest.remove_prefix(1);
    return taken;
}

std::string_view TextReader::word()
{
    const auto* const first = std::find_if_not(m_rest.begin(), m_rest.end(), isSpace);
    const auto* const last = std::find_if(first, m_rest.end(), isSpace);
    const std::string_view word(first, static_cast<std::size_t>(last - first));
    m_rest.remove_prefix(static_cast<std::size_t>(last - m_rest.begin()));
    return word;
}

std::optional<double> TextReader::number()
{
    return base::readPlainNumber(word());
}

std::optional<QByteArray> TextReader::name()
{
    NameScanner scanner;
    std::size_t taken = 0;
    while (taken < m_rest.size()) {
        if (scanner.take(m_rest[taken++])) {
            m_rest.remove_prefix(taken);
            return scanner.text();
        }
    }
    m_rest = {};
    return scanner.insideName() ? std::optional(scanner.text()) : std::nullopt;
}

std::optional<int> leadingInteger(std::string_view line)
{
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    // std::from_chars takes a minus sign, but no plus sign.
    if (line.starts_with('+') && !line.starts_with("+-"))
        line.remove_prefix(1);
    int value = 0;
    const auto read = std::from_chars(line.data(), line.data() + line.size(), value);
    return read.ec == std::errc() ? std::optional(value) : std::nullopt;
}

} // namespace square
