// SPDX-License-Identifier: GPL-3.0-or-later
// Any text that is copied into a table or extracted as an experiment is read whole or refused with
// a reason; what is read holds each observation once, in its row, column and treatment.
#include "base/FieldLines.h"
#include "base/NumberText.h"
#include "base/TableText.h"
#include "experiment/CyclicSquareReading.h"
#include "experiment/ExperimentList.h"
#include "experiment/ExperimentSquare.h"
#include "fuzz/Fuzzing.h"
#include "grid/model/ClipboardNumbers.h"
#include "grid/model/EditHistory.h"
#include "grid/model/TableModel.h"
#include "square/extraction/TreatmentKey.h"

#include <QLocale>

#include <numeric>
#include <set>
#include <tuple>

using fuzzing::require;

namespace {

/// Row, column and treatment with what was observed there.
using Observed = std::multiset<std::tuple<QString, QString, QString, double>>;

/// What a reason has to be: at least a sentence, and one that fits in a message.
void checkReason(const QString& reason)
{
    constexpr qsizetype longestReason = 1500;
    require(reason.size() > 10 && reason.size() <= longestReason, "a reason can be read");
    require(reason.front().isUpper() && QStringLiteral(".?").contains(reason.back()),
            "a reason is made of sentences");
}

Observed observedIn(const experiment::Experiment& experiment)
{
    Observed observed;
    for (const experiment::Observation& one : experiment)
        observed.emplace(one.row, one.column, one.treatment, one.value);
    return observed;
}

Observed observedIn(const experiment::LatinSquare& square)
{
    Observed observed;
    for (int row = 0; row < square.order(); ++row) {
        for (int column = 0; column < square.order(); ++column) {
            const std::size_t place = square.place(column, row);
            observed.emplace(square.rows[row], square.columns[column],
                             square.treatments[square.layout[place]], square.values[place]);
        }
    }
    return observed;
}

void checkCyclic(const experiment::LatinSquare& square)
{
    const int n = square.order();
    const auto cells = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    require(n >= 2 && square.columns.size() == n && square.treatments.size() == n &&
                square.layout.size() == cells && square.values.size() == cells,
            "an arrangement is a square");
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column)
            require(square.layout[square.place(column, row)] == (column + row) % n,
                    "an arrangement is cyclic");
    }
}

/// A line of a list, tabs between its fields.
QString line(const QString& row, const QString& column, const QString& treatment, double value)
{
    return QStringList{row, column, treatment, base::fullText(value)}.join(QLatin1Char('\t')) +
           QLatin1Char('\n');
}

/// A square that is copied as a list under a header comes back as it is.
void checkReadAgain(const experiment::LatinSquare& square)
{
    QString text = QStringLiteral("Fila\tColumna\tTratamiento\tObservación\n");
    for (int row = 0; row < square.order(); ++row) {
        for (int column = 0; column < square.order(); ++column) {
            const std::size_t place = square.place(column, row);
            text += line(square.rows[row], square.columns[column],
                         square.treatments[square.layout[place]], square.values[place]);
        }
    }
    if (text.contains(QLatin1Char('"')))
        return;
    const auto again = experiment::readCyclicSquare(text);
    require(again.value.has_value(), "an arrangement can be copied");
    require(!again.value->rowsMoved && !again.value->columnsMoved &&
                again.value->square.treatments == square.treatments &&
                again.value->square.values == square.values,
            "an arrangement is its own");
}

/// The observations of the first reading of a table that gives a Latin square.
Observed observedIn(const QString& text)
{
    base::Outcome<base::TableText> table = base::tableIn(text);
    experiment::FieldLines lines;
    while (!table.value->rest.isEmpty())
        lines.push_back(base::takeFields(*table.value));
    const auto separators =
        table.value->byCommas ? experiment::Separators::Commas : experiment::Separators::Others;
    const auto readings = experiment::isExperimentList(lines)
                              ? std::vector{experiment::readExperimentList(lines, separators)}
                              : experiment::readExperimentSquare(lines);
    for (const auto& reading : readings) {
        if (reading.value && experiment::latinSquareOf(*reading.value).value)
            return observedIn(*reading.value);
    }
    return {};
}

void checkExtraction(const QString& text)
{
    const auto read = experiment::readCyclicSquare(text);
    require(read.value.has_value() == read.reason.isEmpty(), "what is refused has a reason");
    if (!read.value) {
        checkReason(read.reason);
        return;
    }
    const experiment::LatinSquare& square = read.value->square;
    checkCyclic(square);
    require(observedIn(square) == observedIn(text), "each observation is in the arrangement once");
    checkReadAgain(square);
    const QString key = square::treatmentKey(square.treatments);
    require(square::treatmentKey(square::treatmentsIn(key.toUtf8())) ==
                QString::fromUtf8(key.toUtf8()),
            "the key of the treatments can be read");
}

void checkTable(const QString& text)
{
    base::Outcome<base::TableText> table = base::tableIn(text);
    require(table.value.has_value() == table.reason.isEmpty(), "what is refused has a reason");
    if (!table.value) {
        checkReason(table.reason);
        return;
    }
    const qsizetype lines = table.value->lines;
    qsizetype longest = 0;
    for (qsizetype i = 0; i < lines; ++i)
        longest = std::max(longest, static_cast<qsizetype>(base::takeFields(*table.value).size()));
    require(table.value->rest.isEmpty(), "the lines are as many as told");
    // Where commas separate, a line of nothing else counts too.
    require(table.value->byCommas ? longest <= table.value->columns
                                  : longest == table.value->columns,
            "the columns are as many as told");
    require((lines == 0) == (longest == 0), "a table has a field");
}

std::vector<double> valuesOf(const record::SquareData& square)
{
    std::vector<double> values;
    grid::CellRange{1, 1, square.NrOfColumns(), square.NrOfRows()}.forEachCell(
        [&](int column, int row) { values.push_back(square.value(column, row)); });
    return values;
}

/// Pastes a block, copies it, and takes the step back and forth.
void checkPaste(grid::TableModel& model, const grid::NumberBlock& block, int column, int row)
{
    const std::vector<double> before = valuesOf(model.square());
    grid::EditHistory history(model);
    history.paste(block, column, row);
    const std::vector<double> after = valuesOf(model.square());
    const grid::CellRange range{column, row, block.columns, block.rows};
    std::size_t next = 0;
    range.forEachCell([&](int c, int r) {
        require(model.square().value(c, r) == block.values[next++], "a number is in its cell");
    });
    const auto copied = grid::readNumberBlock(grid::copiedText(model.square(), range),
                                              {model.square(), column, row});
    require(copied.value && copied.value->values == block.values,
            "what is copied is what was pasted");
    history.undo();
    require(valuesOf(model.square()) == before, "a paste can be taken back");
    history.redo();
    require(valuesOf(model.square()) == after, "and made again");
}

void checkNumbers(const QString& text, int order, int column, int row)
{
    grid::TableModel model;
    model.resize(order, order);
    grid::CellRange{1, 1, order, order}.forEachCell(
        [&](int c, int r) { model.setValue(c, r, c + 100.0 * r); });
    const grid::Room room{
        model.square(), column, row, [](int columns, int rows) {
            return QStringLiteral("suba el orden a %1").arg(std::max(columns, rows));
        }};
    const auto block = grid::readNumberBlock(text, room);
    require(block.value.has_value() == block.reason.isEmpty(), "what is refused has a reason");
    if (!block.value) {
        checkReason(block.reason);
        return;
    }
    require(block.value->columns >= 1 && block.value->columns <= room.columns() &&
                block.value->rows >= 1 && block.value->rows <= room.rows() &&
                block.value->values.size() ==
                    grid::CellRange{1, 1, block.value->columns, block.value->rows}.cells(),
            "a block has the size of its numbers and fits");
    for (const double value : block.value->values)
        require(std::isfinite(value), "a pasted number is finite");
    checkPaste(model, *block.value, column, row);
}

std::vector<int> anyOrder(FuzzedDataProvider& data, int n)
{
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t i = order.size() - 1; i > 0; --i)
        std::swap(order[i], order[data.ConsumeIntegralInRange<std::size_t>(0, i)]);
    return order;
}

/// Any text as a label that no other of its kind is and no separator is in.
QString anyLabel(FuzzedDataProvider& data, int number)
{
    const std::string bytes = data.ConsumeRandomLengthString(8);
    QString label = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    label.remove(QLatin1Char('"'));
    return (label + QStringLiteral("#%1").arg(number)).simplified();
}

/// A square that somebody has planted: cyclic, but for the order of its rows and columns, and what
/// treatment has which number.
void checkPlanted(FuzzedDataProvider& data)
{
    const int n = data.ConsumeIntegralInRange(2, 9);
    const bool asList = data.ConsumeBool();
    const std::vector<int> rows = anyOrder(data, n);
    const std::vector<int> columns = anyOrder(data, n);
    QStringList rowNames;
    QStringList columnNames;
    QStringList treatments;
    for (int i = 0; i < n; ++i) {
        rowNames += anyLabel(data, i);
        columnNames += anyLabel(data, i);
        treatments += asList ? anyLabel(data, i) : QString(QLatin1Char(static_cast<char>('A' + i)));
    }
    Observed planted;
    QString text =
        asList ? QStringLiteral("Fila\tColumna\tTratamiento\tObservación\n")
               : QLatin1Char('\t') + columnNames.join(QLatin1Char('\t')) + QLatin1Char('\n');
    for (int row = 0; row < n; ++row) {
        QStringList cells = {rowNames[row]};
        for (int column = 0; column < n; ++column) {
            const int number =
                (rows[static_cast<std::size_t>(row)] + columns[static_cast<std::size_t>(column)]) %
                n;
            const double value = fuzzing::anyFinite(data);
            planted.emplace(rowNames[row], columnNames[column], treatments[number], value);
            if (asList)
                text += line(rowNames[row], columnNames[column], treatments[number], value);
            cells += treatments[number] + QLatin1Char(' ') + base::fullText(value);
        }
        if (!asList)
            text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    const auto read = experiment::readCyclicSquare(text);
    require(read.value.has_value(), "a cyclic square is arranged, whatever its labels");
    checkCyclic(read.value->square);
    require(observedIn(read.value->square) == planted, "each observation is in its place");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const fuzzing::Stopwatch stopwatch;
    if (size == 0)
        return 0;
    // The first byte: the user's decimal sign, and the cell and the table that a text is pasted to.
    const int choice = bytes[0];
    QLocale::setDefault(
        QLocale(choice % 2 == 0 ? QStringLiteral("es_ES") : QStringLiteral("es_MX")));
    const QByteArray text(reinterpret_cast<const char*>(bytes) + 1,
                          static_cast<qsizetype>(size - 1));
    const QString copied = QString::fromUtf8(text);
    const int order = 2 + choice / 2 % 8;
    checkTable(copied);
    checkNumbers(copied, order, 1 + choice / 16 % 2, 1 + choice / 32 % 2);
    checkExtraction(copied);
    FuzzedDataProvider data(bytes, size);
    checkPlanted(data);
    return 0;
}
