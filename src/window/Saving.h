// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Dialogs.h"

#include <QString>

#include <functional>
#include <optional>

namespace window {

/// What a window saves, and how it asks for the file's name.
struct Saving {
    FileRequest request;
    QString caption; ///< Of the box that tells why the file could not be written.

    /// Writes under a chosen name. @return nothing when it was written, otherwise the reason
    std::function<std::optional<QString>(const QString& chosen)> write;
};

/// Saves under a name that the user is asked for. Where the file cannot be written the user is told
/// why and asked again, the name at hand, until it is written or the user cancels: what is to be
/// saved always finds a place.
/// @param known tried first, without asking, where it is not empty
/// @return the chosen name; nothing when nothing was saved, and when `owner` is gone
std::optional<QString> save(Dialogs& dialogs, QWidget& owner, const Saving& saving,
                            const QString& known = {});

} // namespace window
