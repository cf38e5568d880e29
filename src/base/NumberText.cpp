// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberText.h"

#include "base/ShortText.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace base {

namespace {

constexpr int generalDigits = 15;
constexpr int mostDigits = 17;          // that tell a double from its neighbours
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
    const auto mark = scientific.find('e');
    result.digits = scientific.substr(0, mark);
    std::erase_if(result.digits, [](char c) { return c == '-' || c == '.'; });
    dropTrailingZeros(result.digits);
    result.negative = scientific.front() == '-' && !isZero(result);
    const std::size_t exponent = mark + (scientific[mark + 1] == '+' ? 2 : 1);
    std::from_chars(scientific.data() + exponent, scientific.data() + scientific.size(),
                    result.exponent);
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

/// The digits of a value: as few as read back as it, or, rounded, `decimals` behind the first.
template <typename... Decimals>
Decimal decimalOf(double value, Decimals... decimals)
{
    Buffer buffer;
    return takeApart(digitsOf(buffer, value, std::chars_format::scientific, decimals...));
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

/// The first `kept` digits of a decimal, rounded half away from zero, without trailing zeros.
Decimal shortened(Decimal decimal, int kept)
{
    if (kept < 0)
        return {};
    const auto length = static_cast<std::size_t>(kept);
    const bool up = length < decimal.digits.size() && decimal.digits[length] >= '5';
    if (length < decimal.digits.size())
        decimal.digits.resize(length);
    // One more in the last digit makes zeros of the nines before it.
    decimal.digits.resize(decimal.digits.find_last_not_of(up ? '9' : '0') + 1);
    if (up && !decimal.digits.empty()) {
        ++decimal.digits.back();
    } else if (up) {
        decimal.digits = "1";
        ++decimal.exponent;
    }
    return decimal.digits.empty() ? Decimal() : decimal;
}

/// Whether a number that no double holds is too large, not too small: by the power of ten that its
/// first digit stands for. Qt would tell it too, but takes seconds for a hundred million digits.
bool isTooLarge(std::string_view number)
{
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, mark);
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
    std::int64_t exponent = 0;
    if (mark < number.size()) {
        std::string_view power = number.substr(mark + 1);
        if (power.starts_with('+'))
            power.remove_prefix(1);
        const bool fits =
            std::from_chars(power.data(), power.data() + power.size(), exponent).ec == std::errc();
        if (!fits)
            return !power.starts_with('-');
    }
    return exponent > first - point;
}

/// The number that the whole of a text is in ordinary notation, infinity where it is too large;
/// nothing where it is none.
std::optional<double> numberOrInfinity(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double value = 0.0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    const bool isWord = error == std::errc() && !std::isfinite(value); // "inf", "nan"
    if (end != last || error == std::errc::invalid_argument || isWord)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const double size = isTooLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
        value = text.starts_with('-') ? -size : size;
    }
    return value;
}

} // namespace

QString decimalSeparator()
{
    const QString point = QLocale().decimalPoint();
    return point == QLatin1String(",") ? point : QStringLiteral(".");
}

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool areDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(), isDigit);
}

QString generalText(double value)
{
    return std::isfinite(value) ? generalForm(decimalOf(value, generalDigits - 1))
                                : notFiniteText(value);
}

QString fullText(double value)
{
    return std::isfinite(value) ? generalForm(decimalOf(value)) : notFiniteText(value);
}

QString tableText(const Decimal& decimal)
{
    if (decimal.exponent >= lowestScientificExponent)
        return generalForm(shortened(decimal, generalDigits));

    const Decimal rounded = shortened(decimal, decimal.exponent + 1 + tableDecimals);
    std::string text = fixedNotation(rounded);
    if (text.starts_with("0."))
        text.erase(0, 1);
    return localised((rounded.negative ? "-" : "") + text);
}

QString tableText(double value)
{
    return std::isfinite(value) ? tableText(decimalOf(value, generalDigits - 1))
                                : notFiniteText(value);
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
    std::string_view text = digitsOf(buffer, value, std::chars_format::scientific, precision - 1);
    const std::size_t length = text.find('e');
    if (std::abs(value) > 1e308 && !readPlainNumber(text))
        text = digitsOf(buffer, value, std::chars_format::scientific, mostDigits - 1);
    const auto mark = text.find('e');
    const std::string_view exponent = text.substr(mark + 2);
    const auto padding = static_cast<qsizetype>(precision) + 8 -
                         static_cast<qsizetype>(length + 6); // "E+0000" behind the digits
    QByteArray field;
    field.reserve(precision + 8);
    field.append(padding, ' ');
    field.append(text.data(), static_cast<qsizetype>(length)).append('E').append(text[mark + 1]);
    field.append(4 - static_cast<qsizetype>(exponent.size()), '0');
    return field.append(exponent.data(), static_cast<qsizetype>(exponent.size()));
}

std::optional<double> readPlainNumber(std::string_view text)
{
    const std::optional<double> value = numberOrInfinity(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

Outcome<double> readTypedNumber(QStringView text)
{
    using Number = Outcome<double>;
    const QStringView trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return Number::refused(QStringLiteral("Falta el número."));
    const QString shown = base::shortened(trimmed);
    const std::string plain = trimmed.toUtf8().replace(',', '.').toStdString();
    if (std::count(plain.begin(), plain.end(), '.') > 1) {
        return Number::refused(
            QStringLiteral("«%1» tiene más de un separador decimal. Escriba el número sin "
                           "separador de miles y con una sola coma o un solo punto.")
                .arg(shown));
    }
    const std::optional<double> value = numberOrInfinity(plain);
    if (!value)
        return Number::refused(QStringLiteral("«%1» no es un número.").arg(shown));
    if (std::isinf(*value))
        return Number::refused(QStringLiteral("«%1» es demasiado grande.").arg(shown));
    return Number::of(*value);
}

} // namespace base
