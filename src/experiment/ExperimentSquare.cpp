// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/ExperimentSquare.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"
#include "base/ShortText.h"
#include "record/SquareData.h"

#include <algorithm>
#include <optional>
#include <set>

namespace experiment {

namespace {

constexpr QChar blank = QLatin1Char(' ');

/// What a square carries beside its cells.
struct Names {
    std::size_t lines;  ///< 1 where a line of column names comes first.
    std::size_t fields; ///< 1 where the first field of a line is the name of its row.
};
constexpr Names none = {0, 0};
constexpr Names both = {1, 1};

/// A cell taken apart.
struct Cell {
    QString treatment;
    double value = 0.0;
    QString number; ///< As it was written.
};

std::optional<double> number(QStringView text)
{
    return base::readTypedNumber(text).value;
}

/// Whether "head tail" may be one number with its thousands set apart: "1 024".
bool mayBeGrouped(QStringView head, QStringView tail)
{
    const qsizetype sign = head.startsWith(QLatin1Char('-')) ? 1 : 0;
    const QStringView thousands = head.sliced(sign);
    const qsizetype decimals =
        std::find_if(tail.begin(), tail.end(),
                     [](QChar c) { return c == QLatin1Char(',') || c == QLatin1Char('.'); }) -
        tail.begin();
    return !thousands.isEmpty() && thousands.size() <= 3 && base::areDigits(thousands) &&
           decimals == 3 && base::areDigits(tail.first(decimals));
}

bool startsWithSign(QStringView text)
{
    return text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'));
}

bool endsInSign(QStringView text)
{
    return text.endsWith(QLatin1Char('-')) || text.endsWith(QLatin1Char('+'));
}

/// "A 24" or "24 A", parts separated by single blanks.
///
/// Refused where a sign or thousands set apart by a blank would go to the treatment: "A - 5",
/// "A 1 024", "1 024 A".
std::optional<Cell> cellOfParts(QStringView text)
{
    const std::vector<QStringView> parts = base::fieldsOf(text, blank);
    const std::size_t last = parts.size() - 1;
    const std::optional<double> atStart = number(parts.front());
    const std::optional<double> atEnd = number(parts.back());
    if (atEnd && (!atStart || last == 1)) {
        const QStringView treatment = text.chopped(parts.back().size() + 1);
        if (endsInSign(treatment) || (last > 1 && mayBeGrouped(parts[last - 1], parts[last])))
            return std::nullopt;
        return Cell{treatment.toString(), *atEnd, parts.back().toString()};
    }
    if (atStart && !atEnd && !(last > 1 && mayBeGrouped(parts[0], parts[1])))
        return Cell{text.sliced(parts.front().size() + 1).toString(), *atStart,
                    parts.front().toString()};
    return std::nullopt;
}

/// "A24" or "24A": letters and number without a blank between. Refused where a dash may belong to
/// either: "A-24".
std::optional<Cell> cellOfLettersAndNumber(QStringView text)
{
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    const auto leading = std::find_if_not(text.begin(), text.end(), isLetter) - text.begin();
    if (leading > 0) {
        const QStringView behind = text.sliced(leading);
        const auto value = number(behind);
        if (value && !startsWithSign(behind))
            return Cell{text.first(leading).toString(), *value, behind.toString()};
        return std::nullopt;
    }
    const auto trailing = std::find_if_not(text.rbegin(), text.rend(), isLetter) - text.rbegin();
    if (trailing > 0) {
        const QStringView before = text.chopped(trailing);
        if (const auto value = number(before))
            return Cell{text.last(trailing).toString(), *value, before.toString()};
    }
    return std::nullopt;
}

std::optional<Cell> readCell(QStringView field)
{
    const QString text = labelText(field);
    return text.contains(blank) ? cellOfParts(text) : cellOfLettersAndNumber(text);
}

/// Line by line what each field is as a cell; nothing where it is none.
using Cells = std::vector<std::vector<std::optional<Cell>>>;

Cells cellsOf(const FieldLines& lines)
{
    Cells cells;
    cells.reserve(lines.size());
    for (const std::vector<QStringView>& fields : lines) {
        cells.emplace_back(fields.size());
        std::transform(fields.begin(), fields.end(), cells.back().begin(), readCell);
    }
    return cells;
}

/// Whether a treatment of the first line comes again below it. Names may look like cells ("Fila
/// 1"), but the treatments in a line of cells are those of the others.
bool firstLineSharesTreatments(const Cells& cells)
{
    std::set<QString> below;
    for (std::size_t line = 1; line < cells.size(); ++line) {
        for (std::size_t field = 1; field < cells[line].size(); ++field) {
            if (const std::optional<Cell>& cell = cells[line][field])
                below.insert(cell->treatment);
        }
    }
    return std::any_of(cells.front().begin() + 1, cells.front().end(),
                       [&](const auto& cell) { return cell && below.count(cell->treatment) != 0; });
}

/// The name at the start of a row or column, or where there is none the record's own.
QString nameOr(QStringView name, QString (*defaultName)(int), std::size_t number)
{
    return name.isEmpty() ? defaultName(static_cast<int>(number)) : labelText(name);
}

/// The ways in which lines of this shape can be read; a square of cells alone before one with
/// names.
std::vector<Names> possibleNames(const FieldLines& lines)
{
    const std::size_t height = lines.size();
    const std::size_t width = lines.back().size();
    const bool sameBelow = std::all_of(lines.begin() + 1, lines.end(), [width](const auto& fields) {
        return fields.size() == width;
    });
    // A first line without a field above the row names is one field short.
    if (sameBelow && height == width && lines.front().size() + 1 == width)
        return {both};
    if (height < 2 || !sameBelow || lines.front().size() != width)
        return {};
    if (height == width + 1)
        return {{1, 0}};
    if (height + 1 == width)
        return {{0, 1}};
    if (height != width)
        return {};
    if (lines.front().front().isEmpty())
        return {both};
    return {none, both};
}

/// The treatments of the cells that can be read, wherever they are.
std::set<QString> treatmentsIn(const Cells& cells)
{
    std::set<QString> treatments;
    for (const auto& line : cells) {
        for (const std::optional<Cell>& cell : line) {
            if (cell)
                treatments.insert(cell->treatment);
        }
    }
    return treatments;
}

/// Whether a field at the start of a line may be the name of its row: in a square that is not whole
/// the names are taken for cells.
bool mayBeRowName(QStringView field, const std::set<QString>& treatments)
{
    return !field.isEmpty() && treatments.count(labelText(field)) == 0 &&
           std::none_of(field.begin(), field.end(), base::isDigit);
}

/// What may be wrong with a field that should be the cell of this row and column.
QString adviceOn(QStringView field, bool startsLine, const QString& row, const QString& column,
                 const Cells& cells)
{
    const std::set<QString> treatments = treatmentsIn(cells);
    if (number(field))
        return treatments.empty() ? numbersArePasted() : QStringLiteral("Le falta el tratamiento.");
    if (startsLine && mayBeRowName(field, treatments))
        return QStringLiteral("Si es el nombre de la fila, sobra o falta una línea: copie tantas "
                              "filas como columnas, sin títulos, totales ni promedios.");
    const bool hasNumber = std::any_of(field.begin(), field.end(), base::isDigit);
    const QString form =
        hasNumber && base::letterQuestion(field).isEmpty()
            ? QStringLiteral("El número va sin unidades, signos sueltos ni separador de miles. ")
            : QString();
    return form + unreadableNotice(row, column, field);
}

base::Outcome<Experiment> readSquare(const FieldLines& lines, const Cells& cells, Names names)
{
    const std::size_t columnNameShift = lines.front().size() < lines.back().size() ? 1 : 0;

    Experiment experiment;
    for (std::size_t line = names.lines; line < lines.size(); ++line) {
        for (std::size_t field = names.fields; field < lines[line].size(); ++field) {
            const QStringView text = lines[line][field];
            const QStringView rowName = names.fields == 1 ? lines[line].front() : QStringView();
            const QStringView columnName =
                names.lines == 1 ? lines.front()[field - columnNameShift] : QStringView();
            const QString row = nameOr(rowName, record::defaultRowName, line + 1 - names.lines);
            const QString column =
                nameOr(columnName, record::defaultColumnName, field + 1 - names.fields);
            const std::optional<Cell>& cell = cells[line][field];
            if (!cell) {
                return base::Outcome<Experiment>::refused(
                    QStringLiteral("Línea %1, campo %2: «%3» no es un tratamiento con su "
                                   "observación, como «A 24». %4")
                        .arg(QString::number(line + 1), QString::number(field + 1),
                             base::shortened(text),
                             adviceOn(text, field == 0 && names.fields == 0, row, column, cells)));
            }
            experiment.push_back({row, column, cell->treatment, cell->value,
                                  static_cast<int>(line) + 1, cell->number});
        }
    }
    return base::Outcome<Experiment>::of(std::move(experiment));
}

} // namespace

std::vector<base::Outcome<Experiment>> readExperimentSquare(const FieldLines& lines)
{
    std::vector<Names> ways = possibleNames(lines);
    if (ways.empty())
        return {};
    const Cells cells = cellsOf(lines);
    if (ways.size() > 1 && lines.size() > 2 && !firstLineSharesTreatments(cells))
        std::reverse(ways.begin(), ways.end());
    std::vector<base::Outcome<Experiment>> readings;
    readings.reserve(ways.size());
    for (const Names names : ways)
        readings.push_back(readSquare(lines, cells, names));
    return readings;
}

} // namespace experiment
