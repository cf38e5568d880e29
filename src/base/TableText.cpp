// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TableText.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"

#include <algorithm>

namespace base {

namespace {

constexpr QChar blank = QLatin1Char(' ');
constexpr QChar comma = QLatin1Char(',');
constexpr QChar lineFeed = QLatin1Char('\n');
constexpr QChar carriageReturn = QLatin1Char('\r');
constexpr QChar quote = QLatin1Char('"');
constexpr QChar semicolon = QLatin1Char(';');
constexpr QChar tab = QLatin1Char('\t');

QStringView takeLine(QStringView& text)
{
    const qsizetype end = text.indexOf(lineFeed);
    QStringView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QStringView() : text.sliced(end + 1);
    if (line.endsWith(carriageReturn))
        line.chop(1);
    return line;
}

/// Whether a field in quotes may end in front of this; whichever separator the text has.
bool endsField(QChar c)
{
    return c.isSpace() || c == semicolon || c == comma;
}

/// The length of a field in quotes at the start of a text, quotes included; 0 where there is none,
/// as in front of a lone quote.
qsizetype quotedLength(QStringView text)
{
    if (!text.startsWith(quote))
        return 0;
    qsizetype end = text.indexOf(quote, 1);
    while (end >= 0 && end + 1 < text.size() && text[end + 1] == quote)
        end = text.indexOf(quote, end + 2);
    return end >= 0 && (end + 1 == text.size() || endsField(text[end + 1])) ? end + 1 : 0;
}

QString contentOfQuotes(QStringView quoted)
{
    QString content = quoted.sliced(1, quoted.size() - 2).toString();
    content.replace(QStringLiteral("\"\""), QStringLiteral("\""));
    for (const QChar space : {tab, lineFeed, carriageReturn})
        content.replace(space, blank);
    return content;
}

/// The text with its quoted fields as they read and with tabs for separators.
QString withoutQuotes(QStringView text, QChar separator)
{
    QString plain;
    bool atStart = true; // of a field
    while (!text.isEmpty()) {
        const qsizetype quoted = atStart ? quotedLength(text) : 0;
        if (quoted > 0) {
            plain += contentOfQuotes(text.first(quoted));
            text = text.sliced(quoted);
            atStart = false;
            continue;
        }
        const QChar c = text.front();
        text = text.sliced(1);
        if (c == separator) {
            // Blanks separate once however many there are.
            if (separator != blank || !atStart)
                plain += tab;
            atStart = true;
        } else {
            plain += c;
            atStart = c == lineFeed || (atStart && c.isSpace());
        }
    }
    return plain;
}

/// Whether the only comma of a word may be a decimal sign: "24,5", "-,5", "A24,5".
bool isDecimal(QStringView word)
{
    const qsizetype at = word.indexOf(comma);
    const bool digitBehind = at + 1 < word.size() && isDigit(word[at + 1]);
    return digitBehind && (at == 0 || isDigit(word[at - 1]) || word[at - 1] == QLatin1Char('-') ||
                           word[at - 1] == QLatin1Char('+'));
}

/// Whether some comma is no decimal sign by the rule that a number has one sign.
bool commasSeparate(QStringView text)
{
    const auto isSpace = [](QChar c) { return c.isSpace(); };
    const auto* start = std::find_if_not(text.begin(), text.end(), isSpace);
    while (start != text.end()) {
        const auto* const end = std::find_if(start, text.end(), isSpace);
        const QStringView word(start, end);
        const qsizetype commas = word.count(comma);
        if (commas > 1 || (commas == 1 && (word.contains(QLatin1Char('.')) || !isDecimal(word))))
            return true;
        start = std::find_if_not(end, text.end(), isSpace);
    }
    return false;
}

/// What stands around the commas of a text.
struct CommaPlaces {
    bool beforeBlank = false;
    bool betweenDigits = false;
    bool thousands = false; ///< As in "12,500".
};

CommaPlaces commaPlaces(QStringView text)
{
    CommaPlaces places;
    for (qsizetype at = text.indexOf(comma); at >= 0; at = text.indexOf(comma, at + 1)) {
        const auto isFrom = [&text](qsizetype first, qsizetype last) {
            return first >= 0 && last < text.size() &&
                   std::all_of(text.begin() + first, text.begin() + last + 1, isDigit);
        };
        const QChar next = at + 1 < text.size() ? text[at + 1] : lineFeed;
        places.beforeBlank = places.beforeBlank || next == blank;
        places.betweenDigits = places.betweenDigits || (isFrom(at - 1, at - 1) && isDigit(next));
        qsizetype head = at;
        while (head > 0 && isDigit(text[head - 1]))
            --head;
        const bool isWhole = head == 0 || text[head - 1] != QLatin1Char('.');
        places.thousands = places.thousands || (isWhole && head < at && at - head <= 3 &&
                                                isFrom(at + 1, at + 3) && !isFrom(at + 4, at + 4));
    }
    return places;
}

/// Drops the lines at the end that hold nothing but blanks and separators.
QStringView withoutEmptyEnd(QStringView text, QChar separator)
{
    qsizetype used = text.size();
    while (used > 0 && (text[used - 1].isSpace() || text[used - 1] == separator))
        --used;
    const qsizetype lineEnd = text.indexOf(lineFeed, used);
    return used == 0 ? QStringView() : text.first(lineEnd < 0 ? text.size() : lineEnd);
}

/// The fields of a line up to the last that is not empty.
qsizetype usedFields(QStringView line, QChar separator)
{
    while (!line.isEmpty() && (line.back().isSpace() || line.back() == separator))
        line.chop(1);
    if (line.isEmpty())
        return 0;
    if (separator != blank)
        return line.count(separator) + 1;
    qsizetype count = 0;
    for ([[maybe_unused]] const QStringView field : line.tokenize(blank, Qt::SkipEmptyParts))
        ++count;
    return count;
}

/// Counts lines and columns. Where commas separate, one too many may come from a decimal: there
/// empty fields at the end do not count only if all lines have them.
void measure(TableText& table)
{
    qsizetype longest = 0;
    bool asLong = true;
    for (QStringView rest = table.rest; !rest.isEmpty(); ++table.lines) {
        const QStringView line = takeLine(rest);
        const qsizetype length = line.count(table.separator) + 1;
        asLong = asLong && (table.lines == 0 || length == longest);
        longest = std::max(longest, length);
        table.columns = std::max(table.columns, usedFields(line, table.separator));
    }
    if (table.byCommas && !asLong)
        table.columns = longest;
}

QChar separatorOf(QStringView text)
{
    // Inside quotes they are none.
    for (const QChar separator : {tab, semicolon}) {
        if (text.contains(separator) &&
            (!text.contains(quote) || withoutQuotes(text, separator).contains(tab)))
            return separator;
    }
    return commasSeparate(text) ? comma : blank;
}

} // namespace

Outcome<TableText> tableIn(QStringView text)
{
    TableText table;
    table.separator = separatorOf(text);
    table.rest = text;
    table.byCommas = table.separator == comma;
    const CommaPlaces commas = table.byCommas ? commaPlaces(text) : CommaPlaces();
    if (commas.beforeBlank && commas.betweenDigits)
        return Outcome<TableText>::refused(unclearCommas());
    if (text.contains(quote)) {
        table.unquoted = withoutQuotes(text, table.separator);
        // The commas that are left stood in quotes.
        if (table.byCommas && commaPlaces(table.unquoted).thousands)
            return Outcome<TableText>::refused(unclearCommas());
        table.rest = table.unquoted;
        table.separator = tab;
    }
    table.rest = withoutEmptyEnd(table.rest, table.separator);
    measure(table);
    // A point shows that the decimal sign is the point.
    const bool mayBeDecimal = commas.betweenDigits && !text.contains(QLatin1Char('.'));
    table.unclearNumbers = mayBeDecimal || commas.thousands;
    return Outcome<TableText>::of(std::move(table));
}

std::vector<QStringView> takeFields(TableText& table)
{
    const QStringView line = takeLine(table.rest);
    if (usedFields(line, table.separator) == 0)
        return {};
    std::vector<QStringView> fields = fieldsOf(line, table.separator);
    if (static_cast<qsizetype>(fields.size()) > table.columns)
        fields.resize(static_cast<std::size_t>(table.columns));
    return fields;
}

QString unclearCommas()
{
    return QStringLiteral("No se sabe qué comas separan campos y cuáles son decimales o de miles. "
                          "Separe los campos con tabuladores o con punto y coma.");
}

} // namespace base
