// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/LateActivation.h"
#include "shell/SpanishTexts.h"

#include <QApplication>

namespace window {
class Dialogs;
}

namespace shell {

/// The application: Qt's own texts in Spanish, nothing remembered between sessions, an error box
/// for every error that escapes a handler, nothing past an open question, a second key to redo, and
/// a name for every part that can be named.
class Application : public QApplication {
    Q_OBJECT

public:
    /// `dialogs` must outlive the application.
    Application(int& argc, char** argv, window::Dialogs& dialogs);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    window::Dialogs& m_dialogs;
    SpanishTexts m_spanish;
    LateActivation m_lateActivation;
};

} // namespace shell
