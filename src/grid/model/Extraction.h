// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "record/SquareData.h"

#include <QByteArray>
#include <QStringList>
#include <QStringView>

#include <functional>

namespace grid {

/// What "Extract from Clpbrd" brings into a table.
struct Extraction {
    record::SquareData square;
    QStringList treatments; ///< Names of 1, 2, ...
    QString notice;         ///< For the status line.
};

/// Who knows what a copied experiment is: reads the text of the clipboard for a table with this
/// identifier, or says for the user why there is no experiment in it.
using Extractor =
    std::function<base::Outcome<Extraction>(QStringView text, const QByteArray& identifier)>;

} // namespace grid
