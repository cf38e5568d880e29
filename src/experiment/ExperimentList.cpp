// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/ExperimentList.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"
#include "base/TableText.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

namespace experiment {

namespace {

enum Role : std::size_t { Row, Column, Treatment, Value, RoleCount };

/// The field, from 0, that holds each role.
using Places = std::array<std::size_t, RoleCount>;

constexpr Places usualPlaces = {0, 1, 2, 3};

bool isNumber(QStringView field)
{
    return base::readTypedNumber(field).value.has_value();
}

/// Lower case, without accents.
QString plainWord(QStringView field)
{
    QString word;
    for (const QChar c : field.toString().normalized(QString::NormalizationForm_D).toLower()) {
        if (!c.isMark())
            word += c;
    }
    return word;
}

/// The role that a header names, nothing for any other word.
std::optional<Role> roleNamed(QStringView field)
{
    static const std::array<QStringList, RoleCount> names = {
        QStringList{QStringLiteral("fila"), QStringLiteral("filas"), QStringLiteral("row")},
        QStringList{QStringLiteral("columna"), QStringLiteral("columnas"), QStringLiteral("col"),
                    QStringLiteral("column")},
        QStringList{QStringLiteral("tratamiento"), QStringLiteral("tratamientos"),
                    QStringLiteral("trat"), QStringLiteral("treatment")},
        QStringList{QStringLiteral("observacion"), QStringLiteral("observaciones"),
                    QStringLiteral("dato"), QStringLiteral("datos"), QStringLiteral("valor"),
                    QStringLiteral("respuesta"), QStringLiteral("observation"),
                    QStringLiteral("value")},
    };
    const QString word = plainWord(field);
    for (std::size_t role = 0; role < RoleCount; ++role) {
        if (names[role].contains(word))
            return static_cast<Role>(role);
    }
    return std::nullopt;
}

QString roleName(std::size_t role)
{
    switch (role) {
    case Row:
        return QStringLiteral("la fila");
    case Column:
        return QStringLiteral("la columna");
    case Treatment:
        return QStringLiteral("el tratamiento");
    default:
        return QStringLiteral("la observación");
    }
}

/// What the first line says about the places of the roles.
struct Header {
    bool present = false;
    bool complete = false; ///< Each role is named once.
    QString fault;         ///< What keeps the lines from being understood; mostly empty.
    Places places = usualPlaces;
    std::size_t width = RoleCount; ///< Fields in a line.
};

/// What is wrong with a header that does not name each role once, among more than four fields.
QString faultOf(const std::array<std::vector<QStringView>, RoleCount>& fieldsNaming)
{
    for (std::size_t role = 0; role < RoleCount; ++role) {
        const std::vector<QStringView>& fields = fieldsNaming[role];
        if (fields.size() > 1) {
            return QStringLiteral("La primera línea nombra dos veces %1: «%2» y «%3». Cambie el "
                                  "encabezado de la que no se debe leer.")
                .arg(roleName(role), fields[0].toString(), fields[1].toString());
        }
    }
    std::size_t role = 0;
    while (!fieldsNaming[role].empty())
        ++role;
    return QStringLiteral(
               "La primera línea no nombra %1. Con más de cuatro columnas hacen falta los "
               "nombres de las que se leen: Fila, Columna, Tratamiento y Observación.")
        .arg(roleName(role));
}

Header headerIn(const std::vector<QStringView>& firstLine)
{
    Header header;
    std::array<std::vector<QStringView>, RoleCount> fieldsNaming;
    Places named{};
    bool asUsual = true;
    for (std::size_t field = 0; field < firstLine.size(); ++field) {
        const std::optional<Role> role = roleNamed(firstLine[field]);
        if (!role)
            continue;
        named[*role] = field;
        fieldsNaming[*role].push_back(firstLine[field]);
        asUsual = asUsual && usualPlaces[*role] == field;
    }
    const auto countNamed = [&](std::size_t least, std::size_t most) {
        return std::count_if(fieldsNaming.begin(), fieldsNaming.end(), [&](const auto& fields) {
            return fields.size() >= least && fields.size() <= most;
        });
    };
    if (countNamed(1, 1) == RoleCount)
        return {true, true, {}, named, firstLine.size()};
    if (firstLine.size() == RoleCount) {
        header.present = !isNumber(firstLine[usualPlaces[Value]]);
        if (header.present && !asUsual) {
            header.fault = QStringLiteral(
                "La primera línea da los campos en otro orden. Nombre los cuatro (Fila, Columna, "
                "Tratamiento, Observación) o póngalos en este orden.");
        }
    } else if (firstLine.size() > RoleCount && countNamed(1, firstLine.size()) > 1) {
        header.fault = faultOf(fieldsNaming);
        header.width = firstLine.size();
    }
    return header;
}

base::Outcome<Observation> readObservation(const std::vector<QStringView>& fields,
                                           const Header& header, int line)
{
    using Result = base::Outcome<Observation>;
    const Places& places = header.places;
    if (fields.size() != header.width) {
        return Result::refused(
            header.width > RoleCount
                ? base::raggedLine(line, static_cast<qsizetype>(fields.size()),
                                   static_cast<qsizetype>(header.width))
                : QStringLiteral("La línea %1 no tiene cuatro campos (fila, columna, "
                                 "tratamiento y observación), sino %2.")
                      .arg(line)
                      .arg(fields.size()));
    }
    for (const Role role : {Row, Column, Treatment}) {
        if (fields[places[role]].isEmpty())
            return Result::refused(
                QStringLiteral("En la línea %1 falta %2.").arg(line).arg(roleName(role)));
    }
    const auto fieldNumber = static_cast<qsizetype>(places[Value]) + 1;
    const base::Outcome<double> number = base::numberIn(fields[places[Value]], line, fieldNumber);
    Observation observation{labelText(fields[places[Row]]),
                            labelText(fields[places[Column]]),
                            labelText(fields[places[Treatment]]),
                            number.value.value_or(0.0),
                            line,
                            fields[places[Value]].toString()};
    if (!number.value) {
        return Result::refused(
            number.reason + QLatin1Char(' ') +
            unreadableNotice(observation.row, observation.column, fields[places[Value]]));
    }
    return Result::of(std::move(observation));
}

bool isWholeNumber(QStringView field)
{
    return !field.isEmpty() && base::areDigits(field);
}

/// Whether what follows each observation may be its decimals: "24,5" for 24.5.
bool mayLackDecimals(const FieldLines& lines, const Header& header)
{
    const std::size_t value = header.places[Value];
    return header.width > RoleCount &&
           std::all_of(lines.begin() + 1, lines.end(), [value](const auto& fields) {
               return value + 1 < fields.size() && isWholeNumber(fields[value]) &&
                      isWholeNumber(fields[value + 1]);
           });
}

} // namespace

bool isExperimentList(const FieldLines& lines)
{
    const Header header = headerIn(lines.front());
    if (header.complete || header.width > RoleCount)
        return true;
    std::size_t withFourFields = 0;
    std::size_t withNumber = 0;
    for (const std::vector<QStringView>& fields : lines) {
        if (fields.size() != RoleCount)
            continue;
        ++withFourFields;
        withNumber += isNumber(fields[usualPlaces[Value]]) ? 1 : 0;
    }
    const std::size_t deciding = lines.size() > mostLinesOfASquare ? withFourFields : withNumber;
    return 2 * deciding > lines.size();
}

base::Outcome<Experiment> readExperimentList(const FieldLines& lines, Separators separators)
{
    const Header header = headerIn(lines.front());
    if (!header.fault.isEmpty())
        return base::Outcome<Experiment>::refused(header.fault);
    if (separators == Separators::Commas && mayLackDecimals(lines, header))
        return base::Outcome<Experiment>::refused(base::unclearCommas());
    Experiment experiment;
    for (std::size_t i = header.present ? 1 : 0; i < lines.size(); ++i) {
        base::Outcome<Observation> read =
            readObservation(lines[i], header, static_cast<int>(i) + 1);
        if (!read.value)
            return base::Outcome<Experiment>::refused(read.reason);
        experiment.push_back(*std::move(read.value));
    }
    return base::Outcome<Experiment>::of(std::move(experiment));
}

} // namespace experiment
