// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/EndSignals.h"

#include <QElapsedTimer>
#include <QTimer>

class QSessionManager;

namespace shell {

class TPrincipal;

/// The ends that the user did not choose in the program: a signal, the end of the session, a
/// display that goes.
///
/// A signal closes the frame as "Salir" does, with every question of that, as soon as no other
/// question is open. One more SIGTERM or SIGINT before they are answered ends the program without
/// them. Where the session ends the questions come first, and the session waits for the answers;
/// who cancels one keeps the session. Without a display nobody can be asked. A program that ends
/// unasked touches no file, says so on the standard error and has an exit status other than 0.
class UnchosenEnd : public QObject {
    Q_OBJECT

public:
    /// @param frame outlives this, which lives as long as the event loop runs
    explicit UnchosenEnd(TPrincipal& frame);
    ~UnchosenEnd() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
    void customEvent(QEvent* event) override;

private:
    void signalCame(int signal);
    void closeWhenNothingIsAsked();
    void sessionEnds(QSessionManager& session);
    void askForSession();

    TPrincipal& m_frame;
    EndSignals m_signals;
    QTimer m_retry;
    QElapsedTimer m_sinceFirst;   ///< Valid from the first signal until the frame has answered it.
    bool m_sessionMayEnd = false; ///< All that was to be asked for it has been answered.
};

} // namespace shell
