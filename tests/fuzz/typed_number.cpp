// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever is typed or pasted as a number is the same number in every locale, the one that the C
// library reads, and comes back from each text that the program writes of it.
#include "base/FieldLines.h"
#include "base/ForeignMarks.h"
#include "base/NumberText.h"
#include "fuzz/Fuzzing.h"

#include <QLocale>
#include <QRegularExpression>

#include <optional>

using fuzzing::require;

namespace {

const QString tooLarge = QStringLiteral("demasiado grande");

/// The number that the C library reads, infinity among them; nothing where the text is not in the
/// one form of numbers.
std::optional<double> numberOfTheLibrary(const QString& text)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("[+-]?(?:[0-9]++[.,]?[0-9]*+|[.,][0-9]++)(?:[eE][+-]?[0-9]++)?")));
    QString plain = text.trimmed();
    if (!form.match(plain).hasMatch())
        return std::nullopt;
    return std::strtod(plain.replace(QLatin1Char(','), QLatin1Char('.')).toUtf8().constData(),
                       nullptr);
}

double readBack(const QString& text)
{
    const base::Outcome<double> read = base::readTypedNumber(text);
    require(read.value.has_value(), "what is written of a number is a number");
    return *read.value;
}

bool areNear(double one, double other, double tolerance)
{
    return std::abs(one - other) <= tolerance;
}

void checkTexts(double value)
{
    require(readBack(base::fullText(value)) == value, "the full text is the number");
    const QString general = base::generalText(value);
    // The general form of the largest doubles may be larger than these.
    if (const auto shown = base::readTypedNumber(general); shown.value) {
        require(areNear(*shown.value, value, std::abs(value) * 1e-14 + 1e-322),
                "the general text is the number to 15 digits");
        require(base::generalText(*shown.value) == general,
                "the general text is that of its number");
    } else {
        require(shown.reason.contains(tooLarge) && std::abs(value) > 1.797e308,
                "the general text is a number");
    }
    if (std::abs(value) < 1e15) {
        require(
            areNear(readBack(base::tableText(value)), value, 0.00501 + std::abs(value) * 5.01e-15),
            "the text of a table is the number to two decimals");
        for (const int decimals : {0, 2, 12}) {
            require(areNear(readBack(base::fixedText(value, decimals)), value,
                            0.501 * std::pow(10.0, -decimals) + std::abs(value) * 1e-15),
                    "the text of fixed decimals is the number to these");
        }
    }
    const QByteArray field = base::scientificField(value, 17).trimmed();
    require(base::readPlainNumber(field.toStdString()) == value,
            "the field of a file is the number");
}

/// A number that is told as doubtful reads as a thousand times as much without its mark.
void checkMarks(const QString& typed, double value)
{
    base::ForeignMarks marks;
    marks.look(typed, value);
    if (marks.notice().isEmpty())
        return;
    QString whole = typed;
    whole.remove(QLatin1Char('.')).remove(QLatin1Char(','));
    require(areNear(readBack(whole), 1000 * value, std::abs(value) * 1e-9),
            "a doubtful number may be a thousand times as large");
    require(marks.notice().contains(typed.trimmed()) &&
                marks.notice().contains(base::fullText(value)),
            "a doubtful number is told as it was written and as it was read");
}

/// A field of a table says of a text what a typed one says, and quotes no more of it than can be
/// read.
void checkField(const QString& typed, const base::Outcome<double>& number)
{
    constexpr qsizetype longestNumber = 2000;
    constexpr qsizetype longestReason = 300;
    const base::Outcome<double> field = base::numberIn(typed, 1, 2);
    if (typed.size() <= longestNumber)
        require(field.value == number.value, "a field is read as a typed number");
    require(field.value.has_value() == field.reason.isEmpty(), "what is refused has a reason");
    require(field.reason.size() <= longestReason, "a reason can be read");
    if (!number.value)
        require(field.reason.contains(tooLarge) == number.reason.contains(tooLarge),
                "a field that is too large is told as too large");
}

void checkTyped(const QString& typed)
{
    const base::Outcome<double> number = base::readTypedNumber(typed);
    const std::optional<double> expected = numberOfTheLibrary(typed);
    require(number.value.has_value() == number.reason.isEmpty(), "what is refused has a reason");
    require(number.value.has_value() == (expected && std::isfinite(*expected)),
            "the form of numbers is one");
    require(number.reason.contains(tooLarge) == (expected && std::isinf(*expected)),
            "what is too large is told as too large");
    checkField(typed, number);
    if (!number.value)
        return;
    require(*number.value == *expected && std::signbit(*number.value) == std::signbit(*expected),
            "a typed number is that of the library");
    QString otherSign = typed;
    otherSign.replace(QLatin1Char(','), QLatin1Char('.'));
    require(readBack(otherSign) == *number.value, "a comma is a point");
    otherSign.replace(QLatin1Char('.'), QLatin1Char(','));
    require(readBack(otherSign) == *number.value, "a point is a comma");
    checkTexts(*number.value);
    checkMarks(typed, *number.value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const fuzzing::Stopwatch stopwatch;
    FuzzedDataProvider data(bytes, size);
    const QByteArray text = QByteArray::fromStdString(data.ConsumeBytesAsString(size));
    for (const char* const locale : {"es_ES", "es_MX", "es_AR", "tr_TR", "C"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        checkTyped(QString::fromUtf8(text));
    }
    // The bits of any number.
    FuzzedDataProvider bits(bytes, size);
    checkTexts(fuzzing::anyFinite(bits));
    return 0;
}
