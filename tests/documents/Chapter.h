// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <stdexcept>
#include <vector>

/// A chapter of the manual as its reader has it: what stands in its blocks of code and its tables.
class Chapter {
public:
    using Table = std::vector<QStringList>; ///< Rows, the first one of headings.

    explicit Chapter(const char* name)
    {
        QFile file(QStringLiteral(CL_SOURCE_DIR "/docs/manual/%1.md").arg(QLatin1String(name)));
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error(file.fileName().toStdString());
        m_lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    }

    bool says(const QString& text) const { return m_lines.join(QLatin1Char(' ')).contains(text); }

    /// The blocks of code, line by line, without blanks at the ends of lines.
    std::vector<QStringList> blocks() const
    {
        std::vector<QStringList> found;
        bool inside = false;
        for (const QString& line : m_lines) {
            if (line.startsWith(QLatin1String("```"))) {
                inside = !inside;
                if (inside)
                    found.emplace_back();
            } else if (inside) {
                found.back() << withoutBlanksAtTheEnd(line);
            }
        }
        return found;
    }

    /// Whether a block of code holds these lines in a row.
    bool shows(const QStringList& lines) const
    {
        QStringList wanted;
        for (const QString& line : lines)
            wanted << withoutBlanksAtTheEnd(line);
        const QString text = wanted.join(QLatin1Char('\n'));
        for (const QStringList& block : blocks()) {
            if (block.join(QLatin1Char('\n')).contains(text))
                return true;
        }
        return false;
    }

    std::vector<Table> tables() const
    {
        std::vector<Table> found;
        bool inside = false;
        for (const QString& line : m_lines) {
            const bool row = line.startsWith(QLatin1Char('|'));
            if (row && !inside)
                found.emplace_back();
            inside = row;
            if (row && !line.startsWith(QLatin1String("|---")))
                found.back().push_back(cellsOf(line));
        }
        return found;
    }

    /// The table with this first row.
    Table table(const QStringList& headings) const
    {
        for (const Table& table : tables()) {
            if (table.front() == headings)
                return table;
        }
        throw std::runtime_error("no table " + headings.join(QLatin1Char('|')).toStdString());
    }

    static double number(QString text)
    {
        text.remove(QLatin1Char(' ')).replace(QLatin1Char(','), QLatin1Char('.'));
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        if (!isNumber)
            throw std::runtime_error("no number: " + text.toStdString());
        return value;
    }

private:
    static QString withoutBlanksAtTheEnd(QString line)
    {
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        return line;
    }
    static QStringList cellsOf(const QString& line)
    {
        QStringList cells;
        for (const QString& cell : line.mid(1, line.size() - 2).split(QLatin1Char('|')))
            cells << cell.trimmed();
        return cells;
    }

    QStringList m_lines;
};
