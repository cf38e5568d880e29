// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace window {

/// The pictures of the program's commands and windows.
enum class Picture {
    Program,
    Editor,
    Analysis,
    Power,
    Graph,
    Open,
    Save,
    SaveAndAnalyse,
    Export,
    Copy,
    Run,
    Cascade,
    Tile,
    About,
    Exit,
};

/// One of the program's icons: sharp at every size and scale, in the colours of the palette that it
/// is painted under, so that it is legible on light and dark alike.
QIcon icon(Picture picture);

} // namespace window
