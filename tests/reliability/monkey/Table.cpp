// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/monkey/Table.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

#include <cmath>

namespace monkey {

namespace {

constexpr int digitsBehindPoint = 7; // of the eight that a file has

QByteArray field(double value)
{
    return QByteArray::number(value, 'e', digitsBehindPoint);
}

} // namespace

std::optional<Table> readSquare(const QByteArray& bytes)
{
    const QList<QByteArray> lines = bytes.split('\n');
    if (lines.size() < 5)
        return std::nullopt;
    Table table;
    table.identifier = lines[0].endsWith('\r') ? lines[0].chopped(1) : lines[0];
    table.columns = lines[1].split('\t').constFirst().toInt();
    table.rows = lines[2].split('\t').constFirst().toInt();
    const auto isKnown = [](int count) { return count >= 1 && count <= Table::most; };
    if (!isKnown(table.columns) || !isKnown(table.rows) || lines.size() < 5 + table.rows)
        return std::nullopt;
    for (int row = 1; row <= table.rows; ++row) {
        const QList<QByteArray> fields = lines[4 + row].split('\t');
        if (fields.size() < table.columns)
            return std::nullopt;
        for (int column = 1; column <= table.columns; ++column) {
            bool isNumber = false;
            const QByteArray text = fields[fields.size() - table.columns + column - 1].trimmed();
            table.set(column, row, text.toDouble(&isNumber));
            if (!isNumber)
                return std::nullopt;
        }
    }
    return table;
}

QByteArray writtenElsewhere(const Table& table)
{
    QByteArray bytes = table.identifier + "\r\n" + QByteArray::number(table.columns) + "\r\n" +
                       QByteArray::number(table.rows) + "\r\nFALSE FALSE FALSE\r\n\r\n";
    for (int row = 1; row <= table.rows; ++row) {
        for (int column = 1; column <= table.columns; ++column)
            bytes += '\t' + field(table.value(column, row));
        bytes += "\r\n";
    }
    return bytes;
}

double asInFile(double value)
{
    return field(value).toDouble();
}

QString difference(const Table& shown, const Table& wanted)
{
    if (shown.columns != wanted.columns || shown.rows != wanted.rows)
        return QStringLiteral("%1 x %2 instead of %3 x %4")
            .arg(shown.columns)
            .arg(shown.rows)
            .arg(wanted.columns)
            .arg(wanted.rows);
    for (int row = 1; row <= wanted.rows; ++row) {
        for (int column = 1; column <= wanted.columns; ++column) {
            if (shown.value(column, row) != wanted.value(column, row))
                return QStringLiteral("%1 instead of %2 in column %3, row %4")
                    .arg(shown.value(column, row), 0, 'g', 17)
                    .arg(wanted.value(column, row), 0, 'g', 17)
                    .arg(column)
                    .arg(row);
        }
    }
    return {};
}

std::optional<double> typedNumber(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)(e[+-]?\\d+)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString plain = text.trimmed().replace(u',', u'.');
    if (!number.match(plain).hasMatch())
        return std::nullopt;
    bool isNumber = false;
    const double value = QLocale::c().toDouble(plain, &isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool isSure(const QString& text)
{
    static const QRegularExpression plain(QStringLiteral("^-?\\d{1,15}([.,]\\d{1,15})?$"));
    return plain.match(text).hasMatch();
}

} // namespace monkey
