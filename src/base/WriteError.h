// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace base {

/// Why a file could not be written, from the error number that the system gave: a whole sentence in
/// Spanish that does not name the file.
QString writeError(int error);

} // namespace base
