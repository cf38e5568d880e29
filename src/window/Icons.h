// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Picture.h"

#include <QIcon>

namespace window {

/// One of the program's icons: sharp at every size and scale, in the colours of the palette that it
/// is painted under, so that it is legible on light and dark alike.
QIcon icon(Picture picture);

} // namespace window
