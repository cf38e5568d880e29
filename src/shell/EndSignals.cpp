// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/EndSignals.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace shell {

namespace {

/// Where the handler writes the number of each signal: hardly anything else is safe in one.
std::atomic<int> handlersEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void passOn(int signal)
{
    const int before = errno;
    const auto number = static_cast<unsigned char>(signal);
    // A pipe that is full has told enough already.
    [[maybe_unused]] const ssize_t written = write(handlersEnd, &number, 1);
    errno = before;
}

} // namespace

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
{
    for (Handled& handled : m_handled)
        sigaction(handled.signal, nullptr, &handled.before);
    if (pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // they end the program as they did
    handlersEnd = m_pipe[1];
    auto* notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndSignals::tellWhatCame);

    struct sigaction action {};
    action.sa_handler = passOn;
    action.sa_flags = SA_RESTART; // no call that writes a file is to fail for it
    sigemptyset(&action.sa_mask);
    for (const Handled& handled : m_handled)
        if (handled.before.sa_handler != SIG_IGN)
            sigaction(handled.signal, &action, nullptr);
}

EndSignals::~EndSignals()
{
    for (const Handled& handled : m_handled)
        sigaction(handled.signal, &handled.before, nullptr);
    for (const int end : m_pipe)
        close(end);
}

void EndSignals::tellWhatCame()
{
    unsigned char number = 0;
    while (read(m_pipe[0], &number, 1) == 1)
        emit came(number);
}

} // namespace shell
