// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

namespace square {

/// "Tratamientos: 1 = A, 2 = B": the names of the treatments 1, 2, ..., on one line.
QString treatmentKey(const QStringList& treatments);

/// The names in an identifier that is such a key; none in any other.
QStringList treatmentsIn(const QByteArray& identifier);

} // namespace square
