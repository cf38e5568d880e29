// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ForeignMarks.h"
#include "experiment/LatinSquare.h"

#include <QStringView>

namespace experiment {

/// An experiment in the cyclic layout.
struct CyclicSquare {
    LatinSquare square;
    bool rowsMoved = false; ///< Not in the order of their first appearance in the text.
    bool columnsMoved = false;
    base::ForeignMarks foreignMarks; ///< Of the observations.
};

/// The whole way from a clipboard text, in either form, to the cyclic layout. A text of more than a
/// million characters is refused unread: it takes many times its size to read one.
base::Outcome<CyclicSquare> readCyclicSquare(QStringView text);

} // namespace experiment
