// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <vector>

namespace experiment {

/// The rank of each label, from 0, in the order in which people sort labels: by their characters
/// whatever the case, the numbers inside them by their value, so that "T 9" comes before "T 10".
std::vector<int> ranksOf(const QStringList& labels);

} // namespace experiment
