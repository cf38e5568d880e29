// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Outcome.h"
#include "record/SquareData.h"

#include <QStringView>

#include <functional>

namespace grid {

/// What "Extract from Clpbrd" brings into a table.
struct Extraction {
    record::SquareData square; ///< Its identifier will be the one that the table has already.
    QString notice;            ///< For the status line.
};

/// Who knows what a copied experiment is: reads the text of the clipboard, or says for the user why
/// there is no experiment in it.
using Extractor = std::function<base::Outcome<Extraction>(QStringView text)>;

} // namespace grid
