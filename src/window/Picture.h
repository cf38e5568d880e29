// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace window {

/// The pictures of the program's commands and windows, of message boxes, of file dialogs and of the
/// buttons in title bars.
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
    Error,
    Warning,
    Question,
    Folder,
    NewFolder,
    File,
    Computer,
    Back,
    Forward,
    Up,
    List,
    Details,
    Minimise,
    Maximise,
    Restore,
    Close,
};

} // namespace window
