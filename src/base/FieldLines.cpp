// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FieldLines.h"

#include "base/NumberText.h"
#include "base/ShortText.h"

#include <QRegularExpression>

namespace base {

namespace {

constexpr qsizetype longestNumber = 2000;

} // namespace

std::vector<QStringView> fieldsOf(QStringView line, QChar separator)
{
    std::vector<QStringView> fields;
    const Qt::SplitBehavior behavior =
        separator == QLatin1Char(' ') ? Qt::SkipEmptyParts : Qt::KeepEmptyParts;
    for (const QStringView field : line.tokenize(separator, behavior))
        fields.push_back(field.trimmed());
    return fields;
}

Outcome<double> numberIn(QStringView field, qsizetype lineNumber, qsizetype fieldNumber)
{
    Outcome<double> number = readTypedNumber(field);
    if (number.value && field.size() > longestNumber) {
        number = Outcome<double>::refused(
            QStringLiteral("«%1» tiene más de %2 caracteres, no es un número.")
                .arg(shortened(field), QString::number(longestNumber)));
    }
    if (!number.value) {
        number.reason =
            QStringLiteral("Línea %1, campo %2: %3")
                .arg(QString::number(lineNumber), QString::number(fieldNumber), number.reason);
    }
    return number;
}

QString letterQuestion(QStringView text)
{
    static const QRegularExpression letterByDigit(
        QStringLiteral("[0-9][.,]?[OolI]|[OolI][.,]?[0-9]"));
    return letterByDigit.match(shortened(text)).hasMatch()
               ? QStringLiteral("¿Hay una letra O o l en lugar de un 0 o un 1?")
               : QString();
}

QString adviceOnObservation(QStringView text)
{
    const QString notice = QStringLiteral("Sin ese dato no se puede analizar el cuadrado: vea "
                                          "«Datos que faltan» en el manual (F1).");
    const QString question = letterQuestion(text);
    return question.isEmpty() ? notice : question + QLatin1Char(' ') + notice;
}

QString noText()
{
    return QStringLiteral("El portapapeles no contiene ningún texto.");
}

QString emptyLine(qsizetype lineNumber)
{
    return QStringLiteral("La línea %1 está vacía.").arg(lineNumber);
}

QString raggedLine(qsizetype lineNumber, qsizetype fields, qsizetype fieldsOfFirst)
{
    return QStringLiteral("La línea %1 tiene %2 y la primera, %3: los datos no forman un "
                          "rectángulo.")
        .arg(QString::number(lineNumber), counted(fields, QStringLiteral("campo")),
             QString::number(fieldsOfFirst));
}

QString counted(qsizetype count, const QString& singular)
{
    return QStringLiteral("%1 %2%3").arg(QString::number(count), singular,
                                         count == 1 ? QString() : QStringLiteral("s"));
}

} // namespace base
