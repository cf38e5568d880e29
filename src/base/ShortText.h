// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace base {

/// A text for a message: cut where it is too long to be read there.
QString shortened(QStringView text);

} // namespace base
