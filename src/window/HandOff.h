// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace window {

/// What windows hand to each other through the frame. The frame owns the only instance and passes
/// it to the children that it creates.
struct HandOff {
    /// Request to the next editor: open a file on creation. The editor copies and clears it.
    bool openOnCreate = false;

    /// Set by an editor or analysis window during its creation: a file was chosen and accepted, or
    /// none was needed. The frame deletes the child at once when it is false.
    bool fileOpened = false;

    /// The file that "Guardar y Analizar" leaves for the next analysis window, which clears it
    /// before it reads the file; empty otherwise.
    QString pendingFileName;
};

} // namespace window
