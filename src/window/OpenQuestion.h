// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QEvent;
class QObject;

/// What holds while a question is open: a dialog that must be answered before anything else.
///
/// The window that asks waits for the answer within its own handler, so nothing may close it in the
/// meantime, and no command may begin behind the question. Qt keeps the mouse and plain keys away
/// from the windows behind a modal dialog. It lets through shortcuts, which go to the window that
/// was active until the desktop has activated the dialog; closes and the end of the session; and
/// what assistive technology triggers.
namespace window {

/// Whether a question is open.
bool isAsking();

/// Whether an event would reach, past an open question, what stands behind it: a shortcut, a close
/// or the end of the program. Such an event is forgotten; the user answers the question first.
bool isBehindQuestion(const QObject& receiver, const QEvent& event);

/// Brings the open question to the front, for a user who asked for something else.
void showQuestion();

} // namespace window
