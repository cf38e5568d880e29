// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPalette;

namespace window {

/// Turns a palette into that of a sheet of paper: dark on white under every theme, pale where it is
/// selected. Tables, whose numbers have colours made for white, and reports are written on it, so
/// that what stands side by side looks alike.
void makePaper(QPalette& palette);

} // namespace window
