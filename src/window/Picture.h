// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

} // namespace window
