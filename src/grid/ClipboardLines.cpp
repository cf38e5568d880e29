// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/ClipboardLines.h"

#include "base/NumberText.h"

namespace grid {

namespace {

constexpr QChar blank = QLatin1Char(' ');
constexpr QChar lineFeed = QLatin1Char('\n');
constexpr QChar carriageReturn = QLatin1Char('\r');
constexpr qsizetype longestQuote = 40;

} // namespace

std::vector<QStringView> linesOf(QStringView text)
{
    std::vector<QStringView> lines;
    while (!text.isEmpty()) {
        const qsizetype end = text.indexOf(lineFeed);
        QStringView line = end < 0 ? text : text.first(end);
        text = end < 0 ? QStringView() : text.sliced(end + 1);
        if (line.endsWith(carriageReturn))
            line.chop(1);
        lines.push_back(line);
    }
    return lines;
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
    const Qt::SplitBehavior behavior = separator == blank ? Qt::SkipEmptyParts : Qt::KeepEmptyParts;
    for (const QStringView field : line.tokenize(separator, behavior))
        fields.push_back(field.trimmed());
    return fields;
}

Outcome<double> numberIn(QStringView field, qsizetype lineNumber, qsizetype fieldNumber)
{
    const base::TypedNumber number = base::readTypedNumber(field);
    if (number.value)
        return Outcome<double>::of(*number.value);
    const QString reason = field.size() > longestQuote
                               ? base::readTypedNumber(shortened(field)).reason
                               : number.reason;
    return Outcome<double>::refused(
        QStringLiteral("Línea %1, campo %2: %3").arg(lineNumber).arg(fieldNumber).arg(reason));
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

} // namespace grid
