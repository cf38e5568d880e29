// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FieldLines.h"

#include "base/NumberText.h"

#include <QRegularExpression>

#include <algorithm>

namespace base {

namespace {

constexpr QChar blank = QLatin1Char(' ');
constexpr QChar lineFeed = QLatin1Char('\n');
constexpr QChar carriageReturn = QLatin1Char('\r');
constexpr qsizetype longestQuote = 40;
constexpr qsizetype longestNumber = 2000;

Qt::SplitBehavior splitBehavior(QChar separator)
{
    return separator == blank ? Qt::SkipEmptyParts : Qt::KeepEmptyParts;
}

} // namespace

QStringView takeLine(QStringView& text)
{
    const qsizetype end = text.indexOf(lineFeed);
    QStringView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QStringView() : text.sliced(end + 1);
    if (line.endsWith(carriageReturn))
        line.chop(1);
    return line;
}

qsizetype lineCount(QStringView text)
{
    const bool lastIsOpen = !text.isEmpty() && !text.endsWith(lineFeed);
    return text.count(lineFeed) + (lastIsOpen ? 1 : 0);
}

QChar separatorOf(QStringView text)
{
    for (const QChar separator : {QLatin1Char('\t'), QLatin1Char(';')}) {
        if (text.contains(separator))
            return separator;
    }
    return blank;
}

std::vector<QStringView> fieldsOf(QStringView line, QChar separator)
{
    std::vector<QStringView> fields;
    for (const QStringView field : line.tokenize(separator, splitBehavior(separator)))
        fields.push_back(field.trimmed());
    return fields;
}

qsizetype fieldCount(QStringView line, QChar separator)
{
    qsizetype count = 0;
    for ([[maybe_unused]] const QStringView field :
         line.tokenize(separator, splitBehavior(separator)))
        ++count;
    return count;
}

Outcome<double> numberIn(QStringView field, qsizetype lineNumber, qsizetype fieldNumber)
{
    if (field.size() > longestNumber) {
        return Outcome<double>::refused(
            QStringLiteral("Línea %1, campo %2: «%3» tiene más de %4 caracteres, no es un número.")
                .arg(QString::number(lineNumber), QString::number(fieldNumber), shortened(field),
                     QString::number(longestNumber)));
    }
    Outcome<double> number = readTypedNumber(field);
    if (number.value)
        return number;
    const QString reason =
        field.size() > longestQuote ? readTypedNumber(shortened(field)).reason : number.reason;
    return Outcome<double>::refused(
        QStringLiteral("Línea %1, campo %2: %3").arg(lineNumber).arg(fieldNumber).arg(reason));
}

QString letterQuestion(QStringView text)
{
    static const QRegularExpression letterByDigit(QStringLiteral("[0-9][OolI]|[OolI][0-9]"));
    return letterByDigit.match(shortened(text)).hasMatch()
               ? QStringLiteral("¿Hay una letra O o l en lugar de un 0 o un 1?")
               : QString();
}

QString adviceOnObservation(QStringView text)
{
    const bool hasDigit =
        std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
    return hasDigit ? letterQuestion(text)
                    : QStringLiteral("Un cuadrado al que le faltan datos no se puede analizar: vea "
                                     "«Datos que faltan» en el manual (F1).");
}

QString counted(qsizetype count, const QString& singular)
{
    return QStringLiteral("%1 %2%3").arg(QString::number(count), singular,
                                         count == 1 ? QString() : QStringLiteral("s"));
}

QString shortened(QStringView text)
{
    if (text.size() <= longestQuote)
        return text.toString();
    return text.first(longestQuote).toString() + QStringLiteral("…");
}

} // namespace base
