// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace base {

namespace {

constexpr int generalDigits = 15;
constexpr int lowestFixedExponent = -5; // 1e-5 is still written out
constexpr int lowestScientificExponent = 15;

bool isZero(const Decimal& decimal)
{
    return decimal.digits == "0";
}

void dropTrailingZeros(std::string& digits)
{
    const auto lastKept = digits.find_last_not_of('0');
    digits.resize(lastKept == std::string::npos ? 1 : lastKept + 1);
}

/// Takes "-d.ddde+xx", as std::to_chars writes it, apart, without trailing zeros.
Decimal takeApart(std::string_view scientific)
{
    Decimal result;
    result.digits.clear();
    if (scientific.front() == '-') {
        result.negative = true;
        scientific.remove_prefix(1);
    }
    const auto mark = scientific.find('e');
    for (const char c : scientific.substr(0, mark)) {
        if (c != '.')
            result.digits += c;
    }
    std::string_view exponent = scientific.substr(mark + 1);
    if (exponent.front() == '+')
        exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), result.exponent);
    dropTrailingZeros(result.digits);
    if (isZero(result))
        result.negative = false;
    return result;
}

using Buffer = std::array<char, 512>; // the longest fixed text of a double has 309 + 1 + 20 digits

template <typename... Form>
std::string_view digitsOf(Buffer& buffer, double value, Form... form)
{
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form...).ptr;
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

Decimal roundedTo(double value, int significantDigits)
{
    Buffer buffer;
    return takeApart(digitsOf(buffer, value, std::chars_format::scientific, significantDigits - 1));
}

Decimal shortestExact(double value)
{
    Buffer buffer;
    return takeApart(digitsOf(buffer, value, std::chars_format::scientific));
}

QString notFiniteText(double value)
{
    if (std::isnan(value))
        return QStringLiteral("NAN");
    return value > 0 ? QStringLiteral("INF") : QStringLiteral("-INF");
}

/// The text with the user's decimal sign in place of the point.
QString localised(std::string text)
{
    return QString::fromStdString(text).replace(QLatin1Char('.'), decimalSeparator());
}

std::string fixedNotation(const Decimal& decimal)
{
    const int length = static_cast<int>(decimal.digits.size());
    const int wholeDigits = decimal.exponent + 1;
    if (wholeDigits <= 0)
        return "0." + std::string(static_cast<std::size_t>(-wholeDigits), '0') + decimal.digits;
    if (wholeDigits >= length)
        return decimal.digits + std::string(static_cast<std::size_t>(wholeDigits - length), '0');
    std::string text = decimal.digits;
    return text.insert(static_cast<std::size_t>(wholeDigits), 1, '.');
}

std::string scientificNotation(const Decimal& decimal)
{
    std::string text = decimal.digits;
    if (text.size() > 1)
        text.insert(1, 1, '.');
    return text + 'E' + std::to_string(decimal.exponent);
}

QString generalForm(const Decimal& decimal)
{
    const bool fixed = isZero(decimal) || (decimal.exponent >= lowestFixedExponent &&
                                           decimal.exponent < lowestScientificExponent);
    return localised((decimal.negative ? "-" : "") +
                     (fixed ? fixedNotation(decimal) : scientificNotation(decimal)));
}

/// Adds one unit to the last digit of a row of digits; "99" becomes "100".
std::string incremented(std::string digits)
{
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return digits;
        }
        *digit = '0';
    }
    return '1' + digits;
}

/// The first `kept` of some digits, rounded half up, with zeros where there are fewer: one digit
/// more where all were 9, "0" or "1" where none is kept.
std::string roundedTo(std::string digits, std::size_t kept)
{
    if (kept >= digits.size())
        return digits + std::string(kept - digits.size(), '0');
    const bool up = digits[kept] >= '5';
    digits.resize(kept);
    if (digits.empty())
        digits = "0";
    return up ? incremented(digits) : digits;
}

/// |decimal| x 100, rounded half up to a whole number, as its digits.
std::string roundedHundredths(const Decimal& decimal)
{
    const int kept = decimal.exponent + 3; // digits up to the second decimal
    return kept < 0 ? "0" : roundedTo(decimal.digits, static_cast<std::size_t>(kept));
}

/// The decimal with the significant digits of the general form, rounded half away from zero.
Decimal shortened(const Decimal& decimal)
{
    Decimal result = decimal;
    result.digits = roundedTo(decimal.digits, generalDigits);
    if (result.digits.size() > generalDigits)
        ++result.exponent;
    dropTrailingZeros(result.digits);
    return result;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isSign(char c)
{
    return c == '+' || c == '-';
}

void skipDigits(std::string_view text, std::size_t& at)
{
    while (at < text.size() && isDigit(text[at]))
        ++at;
}

/// Whether `text` is sign, digits with at most one point, and exponent, and nothing else.
bool isOrdinaryNotation(std::string_view text)
{
    std::size_t at = 0;
    if (at < text.size() && isSign(text[at]))
        ++at;
    const std::size_t firstDigit = at;
    skipDigits(text, at);
    std::size_t digits = at - firstDigit;
    if (at < text.size() && text[at] == '.') {
        const std::size_t firstDecimal = ++at;
        skipDigits(text, at);
        digits += at - firstDecimal;
    }
    if (digits == 0)
        return false;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        if (++at < text.size() && isSign(text[at]))
            ++at;
        const std::size_t firstExponentDigit = at;
        skipDigits(text, at);
        if (at == firstExponentDigit)
            return false;
    }
    return at == text.size();
}

/// Whether a number that std::from_chars found out of range is too small rather than too large.
bool isTooSmall(std::string_view text)
{
    const auto mark = std::min(text.find_first_of("eE"), text.size());
    // Far beyond any text's length, and far enough from the end of long to be added to one.
    constexpr long furthest = std::numeric_limits<long>::max() / 2;
    long exponent = 0;
    if (mark < text.size()) {
        std::string_view digits = text.substr(mark + 1);
        const bool negative = digits.front() == '-';
        if (digits.front() == '+')
            digits.remove_prefix(1);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (read.ec == std::errc::result_out_of_range)
            return negative;
        exponent = std::clamp(exponent, -furthest, furthest);
    }
    const auto point = std::min(text.find('.'), mark);
    const auto firstSignificant = text.find_first_of("123456789");
    return static_cast<long>(point) - static_cast<long>(firstSignificant) + exponent < 0;
}

TypedNumber refused(const QString& reason)
{
    return {std::nullopt, reason};
}

} // namespace

QString decimalSeparator()
{
    const QString point = QLocale().decimalPoint();
    return point == QLatin1String(",") ? point : QStringLiteral(".");
}

QString generalText(double value)
{
    return std::isfinite(value) ? generalForm(roundedTo(value, generalDigits))
                                : notFiniteText(value);
}

QString fullText(double value)
{
    return std::isfinite(value) ? generalForm(shortestExact(value)) : notFiniteText(value);
}

QString tableText(const Decimal& decimal)
{
    if (decimal.exponent >= lowestScientificExponent)
        return generalForm(shortened(decimal));

    std::string hundredths = roundedHundredths(decimal);
    if (hundredths.find_first_not_of('0') == std::string::npos)
        return QStringLiteral("0");
    if (hundredths.size() < 2)
        hundredths.insert(0, 2 - hundredths.size(), '0');
    std::string whole = hundredths.substr(0, hundredths.size() - 2);
    std::string decimals = hundredths.substr(hundredths.size() - 2);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return localised((decimal.negative ? "-" : "") + whole +
                     (decimals.empty() ? "" : '.' + decimals));
}

QString tableText(double value)
{
    return std::isfinite(value) ? tableText(roundedTo(value, generalDigits)) : notFiniteText(value);
}

QString fixedText(double value, int decimals)
{
    if (!std::isfinite(value) || std::abs(value) >= 1e15)
        return generalText(value);
    Buffer buffer;
    std::string_view text =
        digitsOf(buffer, value, std::chars_format::fixed, std::max(decimals, 0));
    if (text.front() == '-' && text.find_first_of("123456789") == std::string_view::npos)
        text.remove_prefix(1);
    return localised(std::string(text));
}

QByteArray scientificField(double value, int precision)
{
    Buffer buffer;
    const std::string_view text =
        digitsOf(buffer, value, std::chars_format::scientific, precision - 1);
    const auto mark = text.find('e');
    const std::string_view exponent = text.substr(mark + 2);
    std::string field(text.substr(0, mark));
    field += 'E';
    field += text[mark + 1];
    field.append(4 - exponent.size(), '0').append(exponent);
    return QByteArray::fromStdString(field).rightJustified(precision + 8, ' ');
}

std::optional<double> readPlainNumber(std::string_view text)
{
    if (!isOrdinaryNotation(text))
        return std::nullopt;
    const std::string_view unsignedPlus = text.front() == '+' ? text.substr(1) : text;
    double value = 0.0;
    const auto [end, error] =
        std::from_chars(unsignedPlus.data(), unsignedPlus.data() + unsignedPlus.size(), value);
    if (error == std::errc::result_out_of_range)
        return isTooSmall(text) ? std::optional(text.front() == '-' ? -0.0 : 0.0) : std::nullopt;
    return value;
}

TypedNumber readTypedNumber(QStringView text)
{
    const QString trimmed = text.trimmed().toString();
    if (trimmed.isEmpty())
        return refused(QStringLiteral("Falta el número."));
    const qsizetype separators = trimmed.count(QLatin1Char(',')) + trimmed.count(QLatin1Char('.'));
    if (separators > 1) {
        return refused(
            QStringLiteral("«%1» tiene más de un separador decimal. Escriba el número sin "
                           "separador de miles y con una sola coma o un solo punto.")
                .arg(trimmed));
    }
    const std::string plain =
        QString(trimmed).replace(QLatin1Char(','), QLatin1Char('.')).toStdString();
    if (!isOrdinaryNotation(plain))
        return refused(QStringLiteral("«%1» no es un número.").arg(trimmed));
    const std::optional<double> value = readPlainNumber(plain);
    if (!value)
        return refused(QStringLiteral("«%1» es demasiado grande.").arg(trimmed));
    return {value, QString()};
}

} // namespace base
