// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <array>
#include <csignal>

namespace shell {

/// SIGTERM, SIGINT and SIGHUP, told in the event loop, where everything may be done, instead of
/// ending the process where it stands. One at a time exists. UnchosenEnd.h says what
/// becomes of them.
///
/// What the process was started to ignore (SIGHUP under nohup) stays ignored. While the program
/// computes nothing is told; then each signal that came is told in its turn.
class EndSignals : public QObject {
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    /// From here on the signals end the process again.
    ~EndSignals() override;

signals:
    void came(int signal);

private:
    struct Handled {
        int signal;
        struct sigaction before;
    };

    void tellWhatCame();

    std::array<int, 2> m_pipe = {-1, -1};
    std::array<Handled, 3> m_handled = {{{SIGTERM, {}}, {SIGINT, {}}, {SIGHUP, {}}}};
};

} // namespace shell
