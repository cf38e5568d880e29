// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/Principal.h"
#include "shell/walk/FrameModel.h"

class QAction;

namespace walk {

/// What is otherwise in the frame than in the model, one line each; empty when all is as it must
/// be. Menus must be closed.
QStringList differences(const FrameModel& model, shell::TPrincipal& frame);

/// The part about menus: status tips, keys and mnemonics that could mean two things, keys that do
/// not reach their command.
QStringList menuDifferences(const FrameModel& model, shell::TPrincipal& frame);

/// A line where two things that must be equal are not.
void compare(QStringList& lines, const QString& what, const QString& actual, const QString& wanted);

} // namespace walk
