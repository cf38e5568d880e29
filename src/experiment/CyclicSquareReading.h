// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "experiment/LatinSquare.h"

#include <QStringView>

namespace experiment {

/// The whole way from a clipboard text, in either form, to the cyclic layout. A text of more than a
/// million characters is refused unread: it takes many times its size to read one.
base::Outcome<LatinSquare> readCyclicSquare(QStringView text);

} // namespace experiment
