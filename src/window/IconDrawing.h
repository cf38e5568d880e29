// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Picture.h"
#include "window/PixelCanvas.h"

class QPalette;

namespace window {

/// Draws one of the program's pictures in the colours that go with `palette`.
void drawPicture(PixelCanvas& canvas, Picture picture, const QPalette& palette);

} // namespace window
