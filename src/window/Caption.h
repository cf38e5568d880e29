// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace window {

/// The caption of a child that shows a file, "Editor - /home/ana/lote.asc", for setWindowTitle(),
/// which shows every character of the name.
QString fileCaption(const QString& kind, QString fileName);

/// What the user reads in such a caption, on one line.
QString readCaption(QString windowTitle);

} // namespace window
