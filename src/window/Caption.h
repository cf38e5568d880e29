// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace window {

/// The caption of a child that shows a file, "Editor - /home/ana/lote.asc", for setWindowTitle(),
/// which shows every character of the name.
QString fileCaption(const QString& kind, QString fileName);

/// A text on one line: a blank for each control character that the name of a file may have.
QString onOneLine(QString text);

/// What the user reads in such a caption, on one line.
QString readCaption(QString windowTitle);

} // namespace window
