// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/ExperimentList.h"

#include "base/FieldLines.h"
#include "base/NumberText.h"

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

/// What the first line says about the places of the roles.
struct Header {
    bool present = false;
    bool understood = true; ///< False for names that contradict the usual places.
    Places places = usualPlaces;
};

Header headerIn(const std::vector<QStringView>& firstLine)
{
    Header header;
    if (firstLine.size() != RoleCount)
        return header;
    Places named{};
    std::array<int, RoleCount> timesNamed{};
    bool asUsual = true;
    for (std::size_t field = 0; field < RoleCount; ++field) {
        const std::optional<Role> role = roleNamed(firstLine[field]);
        if (!role)
            continue;
        named[*role] = field;
        ++timesNamed[*role];
        asUsual = asUsual && usualPlaces[*role] == field;
    }
    if (std::all_of(timesNamed.begin(), timesNamed.end(), [](int times) { return times == 1; }))
        return {true, true, named};
    header.present = !isNumber(firstLine[usualPlaces[Value]]);
    header.understood = !header.present || asUsual;
    return header;
}

QString roleName(Role role)
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

base::Outcome<Observation> readObservation(const std::vector<QStringView>& fields,
                                           const Places& places, int line)
{
    using Result = base::Outcome<Observation>;
    if (fields.size() != RoleCount) {
        return Result::refused(QStringLiteral("La línea %1 no tiene cuatro campos (fila, columna, "
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
    Observation observation{labelText(fields[places[Row]]), labelText(fields[places[Column]]),
                            labelText(fields[places[Treatment]]), number.value.value_or(0.0), line};
    if (!number.value) {
        return Result::refused(
            number.reason + QLatin1Char(' ') +
            unreadableNotice(observation.row, observation.column, fields[places[Value]]));
    }
    return Result::of(std::move(observation));
}

} // namespace

bool isExperimentList(const FieldLines& lines)
{
    const Places places = headerIn(lines.front()).places;
    std::size_t withFourFields = 0;
    std::size_t withNumber = 0;
    for (const std::vector<QStringView>& fields : lines) {
        if (fields.size() != RoleCount)
            continue;
        ++withFourFields;
        withNumber += isNumber(fields[places[Value]]) ? 1 : 0;
    }
    const std::size_t deciding = lines.size() > mostLinesOfASquare ? withFourFields : withNumber;
    return 2 * deciding > lines.size();
}

base::Outcome<Experiment> readExperimentList(const FieldLines& lines)
{
    const Header header = headerIn(lines.front());
    if (!header.understood) {
        return base::Outcome<Experiment>::refused(QStringLiteral(
            "La primera línea da los campos en otro orden. Nombre los cuatro (Fila, Columna, "
            "Tratamiento, Observación) o póngalos en este orden."));
    }
    Experiment experiment;
    for (std::size_t i = header.present ? 1 : 0; i < lines.size(); ++i) {
        base::Outcome<Observation> read =
            readObservation(lines[i], header.places, static_cast<int>(i) + 1);
        if (!read.value)
            return base::Outcome<Experiment>::refused(read.reason);
        experiment.push_back(*std::move(read.value));
    }
    return base::Outcome<Experiment>::of(std::move(experiment));
}

} // namespace experiment
