// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

/// Numbers into text and typed text into numbers: the only place of the program that does either
/// with what is measured or computed. Counts are whole numbers, written and read where they are.
///
/// The conversions go through std::to_chars and std::from_chars, so no locale of the process can
/// change a digit. Only the decimal sign follows the user: texts for the screen, reports and the
/// clipboard carry decimalSeparator(), square files always carry ".". Digits are never grouped.
namespace base {

/// "," where the user's locale (QLocale's default) writes decimals with a comma, "." elsewhere.
QString decimalSeparator();

/// Whether it is one of 0 to 9, the only digits that numbers are written with here.
bool isDigit(QChar character);
/// Whether all are, as also those of an empty text.
bool areDigits(QStringView text);

/// The general form: the shortest decimal text of the value with at most 15 significant digits.
///
/// Fixed notation for 1e-5 <= |value| < 1e15 (judged on the rounded text), otherwise digits, "E"
/// and the exponent without padding: "1E-6", "1.5E15". Zero of either sign is "0"; not-a-number and
/// the infinities are "NAN", "INF" and "-INF".
QString generalText(double value);

/// As generalText() with as many digits (at most 17) as it takes to read the same double back.
QString fullText(double value);

/// A number by its decimal digits, however many: d.ddd... x 10^exponent.
struct Decimal {
    bool negative = false;
    std::string digits = "0"; ///< The first is not 0, except in zero, which is "0".
    int exponent = 0;         ///< of ten, at the first digit
};

inline constexpr int tableDecimals = 2;

/// The form of the numbers in the analysis-of-variance table, the pattern "#.##".
///
/// At most tableDecimals decimals, rounded half away from zero, no trailing zeros and no digit
/// forced before the point: 0.5 gives ".5". What rounds to zero gives "0", never "-0". From 1e15 on
/// the general form, its 15 digits rounded in the same way.
QString tableText(const Decimal& value);

/// The same of a double, that is of its decimal text with 15 significant digits (so 2.675, stored
/// as 2.67499..., gives "2.68"). The general form for what is not finite.
QString tableText(double value);

/// Exactly `decimals` decimals (0 to 20), correctly rounded; what rounds to zero carries no sign.
///
/// What is not finite, and what has 1e15 or more before the point, is given in the general form.
QString fixedText(double value, int decimals);

/// The scientific field of the square file, right-aligned in `precision` + 8 characters.
///
/// A blank or a minus sign, one digit, ".", `precision` - 1 digits, "E", the exponent's sign and
/// four exponent digits: " 2.4000000E+0001" with precision 8. `precision` is at least 2 and the
/// value finite. Digits that would round to more than the largest double are cut off instead.
QByteArray scientificField(double value, int precision);

/// A number in ordinary notation with "." as its decimal point, the whole of `text`.
///
/// One optional sign, digits with at most one point, an optional exponent. Nothing else: no blanks,
/// no "inf", "nan" or hexadecimal digits. A magnitude beyond the doubles gives nothing; one below
/// them gives the nearest double, which may be zero.
std::optional<double> readPlainNumber(std::string_view text);

/// Reads a number as users type it, by one rule in every field and every locale.
///
/// Blanks around it, one sign, digits, at most one "," or "." as the decimal point, an optional
/// exponent. Two separators are refused and never guessed at, since "1.234,5" and "1,234.5" mean
/// different numbers to different users. A reason quotes the beginning of a long text.
Outcome<double> readTypedNumber(QStringView text);

} // namespace base
