// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace monkey {

/// A square as its user knows it: its size, its title, what the headers are named after, and every
/// observation, those that a smaller size hides included. Columns and rows count from 1.
struct Table {
    static constexpr int most = 12; ///< Columns and rows that this monkey ever meets.

    int columns = 3;
    int rows = 3;
    QByteArray identifier;
    QString rowPrefix;
    QString columnPrefix;
    std::vector<double> store = std::vector<double>(std::size_t{most} * most, 0.0);

    double value(int column, int row) const { return store.at(place(column, row)); }
    void set(int column, int row, double value) { store.at(place(column, row)) = value; }

    bool operator==(const Table&) const = default;

private:
    static std::size_t place(int column, int row)
    {
        return static_cast<std::size_t>(row - 1) * most + static_cast<std::size_t>(column - 1);
    }
};

/// The observations of a square file, read by rules of its own: the counts, and the last fields of
/// each row's line. Nothing for what is no such file.
std::optional<Table> readSquare(const QByteArray& bytes);

/// A square file that some other program could have written.
QByteArray writtenElsewhere(const Table& table);

/// The number nearest to a value with as many digits as a file has.
double asInFile(double value);

/// Where two tables show different observations; empty where they do not.
QString difference(const Table& shown, const Table& wanted);

/// What a typed text means as a number; nothing for what is none. Decides alone only where `isSure`
/// says so: at the edges, such as "5.", either reading is right.
std::optional<double> typedNumber(const QString& text);
bool isSure(const QString& text);

} // namespace monkey
