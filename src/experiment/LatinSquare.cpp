// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/LatinSquare.h"

#include "base/FieldLines.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <map>

namespace experiment {

namespace {

/// The labels of one kind in the order of their appearance, with how often each appears.
struct Labels {
    QStringList names;
    QHash<QString, int> places;
    std::vector<int> counts;

    int add(const QString& name)
    {
        if (!places.contains(name)) {
            places.insert(name, static_cast<int>(names.size()));
            names += name;
            counts.push_back(0);
        }
        const int place = places.value(name);
        ++counts[static_cast<std::size_t>(place)];
        return place;
    }
    qsizetype size() const { return names.size(); }
};

/// What the observations are about, each kind of label counted from 0.
struct Indexed {
    struct Place {
        int row;
        int column;
        int treatment;
    };
    Labels rows;
    Labels columns;
    Labels treatments;
    std::vector<Place> places; ///< As the observations.
};

Indexed indexed(const Experiment& experiment)
{
    Indexed result;
    for (const Observation& observation : experiment) {
        result.places.push_back({result.rows.add(observation.row),
                                 result.columns.add(observation.column),
                                 result.treatments.add(observation.treatment)});
    }
    return result;
}

/// Two observations of one cell; empty where there are none.
QString repeatedCell(const Experiment& experiment, const Indexed& index)
{
    std::map<std::pair<int, int>, int> lines;
    for (std::size_t i = 0; i < experiment.size(); ++i) {
        const auto [line, isNew] =
            lines.try_emplace({index.places[i].row, index.places[i].column}, experiment[i].line);
        if (!isNew) {
            return QStringLiteral("La fila «%1» y la columna «%2» tienen dos observaciones (líneas "
                                  "%3 y %4).")
                .arg(experiment[i].row, experiment[i].column, QString::number(line->second),
                     QString::number(experiment[i].line));
        }
    }
    return {};
}

/// Counts of rows, columns and treatments that differ, with a label of the kind that stands out:
/// the rarest where there are too many of them, the commonest where there are too few. Empty where
/// the counts agree.
QString unequalCounts(const Indexed& index)
{
    struct Kind {
        const Labels& labels;
        QString article;
    };
    const std::array<Kind, 3> kinds = {Kind{index.rows, QStringLiteral("la fila")},
                                       Kind{index.columns, QStringLiteral("la columna")},
                                       Kind{index.treatments, QStringLiteral("el tratamiento")}};
    std::array<qsizetype, 3> sizes{};
    std::transform(kinds.begin(), kinds.end(), sizes.begin(),
                   [](const Kind& kind) { return kind.labels.size(); });
    std::sort(sizes.begin(), sizes.end());
    if (sizes.front() == sizes.back())
        return {};
    const qsizetype usual = sizes[1];
    const auto odd = std::find_if(kinds.begin(), kinds.end(), [usual](const Kind& kind) {
        return kind.labels.size() != usual;
    });
    const std::vector<int>& counts = odd->labels.counts;
    const auto label = odd->labels.size() > usual ? std::min_element(counts.begin(), counts.end())
                                                  : std::max_element(counts.begin(), counts.end());
    return QStringLiteral("No es un cuadrado latino: hay %1, %2 y %3; %4 «%5» aparece %6.")
        .arg(base::counted(index.rows.size(), QStringLiteral("fila")),
             base::counted(index.columns.size(), QStringLiteral("columna")),
             base::counted(index.treatments.size(), QStringLiteral("tratamiento")), odd->article,
             odd->labels.names[label - counts.begin()],
             *label == 1 ? QStringLiteral("una sola vez") : QStringLiteral("%1 veces").arg(*label));
}

/// The first cell without observation; empty where there is none.
QString missingCell(const Indexed& index)
{
    const auto n = static_cast<std::size_t>(index.rows.size());
    // However many labels there are, one of the cells up to this one is free or all are taken.
    std::vector<bool> seen(std::min(n * n, index.places.size() + 1));
    for (const Indexed::Place& place : index.places) {
        const std::size_t cell =
            static_cast<std::size_t>(place.row) * n + static_cast<std::size_t>(place.column);
        if (cell < seen.size())
            seen[cell] = true;
    }
    const auto hole = std::find(seen.begin(), seen.end(), false);
    if (hole == seen.end())
        return {};
    const auto place = hole - seen.begin();
    return QStringLiteral("Falta la observación de la fila «%1» y la columna «%2». %3")
        .arg(index.rows.names[place / index.rows.size()],
             index.columns.names[place % index.rows.size()], base::adviceOnObservation({}));
}

/// A treatment that comes twice in a row or a column; empty where none does.
QString repeatedTreatment(const Indexed& index)
{
    const auto n = static_cast<std::size_t>(index.rows.size());
    std::vector<bool> inRow(n * n);
    std::vector<bool> inColumn(n * n);
    for (const Indexed::Place& place : index.places) {
        const auto treatment = static_cast<std::size_t>(place.treatment);
        const std::size_t rowPlace = static_cast<std::size_t>(place.row) * n + treatment;
        const std::size_t columnPlace = static_cast<std::size_t>(place.column) * n + treatment;
        if (inRow[rowPlace] || inColumn[columnPlace]) {
            const bool row = inRow[rowPlace];
            return QStringLiteral("No es un cuadrado latino: el tratamiento «%1» aparece dos veces "
                                  "en la %2 «%3».")
                .arg(index.treatments.names[place.treatment],
                     row ? QStringLiteral("fila") : QStringLiteral("columna"),
                     row ? index.rows.names[place.row] : index.columns.names[place.column]);
        }
        inRow[rowPlace] = true;
        inColumn[columnPlace] = true;
    }
    return {};
}

/// Why the observations are no Latin square; empty where they are one.
QString faultOf(const Experiment& experiment, const Indexed& index)
{
    QString fault = repeatedCell(experiment, index);
    if (fault.isEmpty())
        fault = unequalCounts(index);
    if (fault.isEmpty() && index.rows.size() < 2)
        fault = QStringLiteral("Un cuadrado latino tiene al menos dos filas, dos columnas y dos "
                               "tratamientos.");
    if (fault.isEmpty())
        fault = missingCell(index);
    if (fault.isEmpty())
        fault = repeatedTreatment(index);
    return fault;
}

} // namespace

base::Outcome<LatinSquare> latinSquareOf(const Experiment& experiment)
{
    const Indexed index = indexed(experiment);
    const QString fault = faultOf(experiment, index);
    if (!fault.isEmpty())
        return base::Outcome<LatinSquare>::refused(fault);

    LatinSquare square{index.columns.names, index.rows.names, index.treatments.names, {}, {}};
    square.layout.resize(experiment.size());
    square.values.resize(experiment.size());
    for (std::size_t i = 0; i < experiment.size(); ++i) {
        const std::size_t place = square.place(index.places[i].column, index.places[i].row);
        square.layout[place] = index.places[i].treatment;
        square.values[place] = experiment[i].value;
    }
    return base::Outcome<LatinSquare>::of(std::move(square));
}

} // namespace experiment
