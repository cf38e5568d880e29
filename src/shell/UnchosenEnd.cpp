// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/UnchosenEnd.h"

#include "shell/Principal.h"
#include "window/OpenQuestion.h"

#include <QApplication>
#include <QEvent>
#include <QSessionManager>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace shell {

namespace {

using namespace std::chrono_literals;

/// How soon after a question was answered the program asks about its end.
constexpr auto betweenTries = 50ms;

/// Signals that come closer together are one call: who ends a session or a group of processes may
/// send several at once.
constexpr std::chrono::milliseconds oneCall = 1s;

/// As a shell counts the end by a signal.
constexpr int statusOfSignal = 128;

std::atomic<bool> eventLoopRuns = false;

[[noreturn]] void endUnasked(const QString& why, int status)
{
    const QString told =
        QStringLiteral("Cuadrado Latino: %1. El programa termina sin preguntar: lo "
                       "que no estaba guardado se perdió, y los archivos quedan "
                       "como estaban.\n")
            .arg(why);
    std::fputs(qUtf8Printable(told), stderr);
    std::_Exit(status);
}

/// Qt and the libraries below it exit the process where the display goes, from within whatever was
/// being done: nothing of the program can be put away any more.
void endedFromBelow()
{
    if (eventLoopRuns)
        endUnasked(QStringLiteral("se perdió la conexión con la pantalla"), EXIT_FAILURE);
}

} // namespace

UnchosenEnd::UnchosenEnd(TPrincipal& frame)
    : m_frame(frame)
{
    std::signal(SIGPIPE, SIG_IGN); // a reader that goes is no reason to end
    m_retry.setInterval(betweenTries);
    connect(&m_retry, &QTimer::timeout, this, &UnchosenEnd::closeWhenNothingIsAsked);
    connect(&m_signals, &EndSignals::came, this, &UnchosenEnd::signalCame);
    // Whoever is told later could not answer the session any more.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &UnchosenEnd::sessionEnds,
            Qt::DirectConnection);
    eventLoopRuns = true;
    [[maybe_unused]] static const int registered = std::atexit(endedFromBelow);
}

UnchosenEnd::~UnchosenEnd()
{
    eventLoopRuns = false;
}

void UnchosenEnd::signalCame(int signal)
{
    if (!m_sinceFirst.isValid()) {
        m_sinceFirst.start();
        m_retry.start();
    } else if (signal != SIGHUP && m_sinceFirst.hasExpired(oneCall.count())) {
        endUnasked(QStringLiteral("se le pidió terminar por segunda vez"), statusOfSignal + signal);
    }
    window::showQuestion();
}

/// Nothing closes behind an open question, and who asks must not do so from within it.
void UnchosenEnd::closeWhenNothingIsAsked()
{
    if (window::isAsking())
        return;
    m_retry.stop();
    QWidget* popup = QApplication::activePopupWidget(); // it has the mouse and the keys
    while (popup != nullptr && popup->close())
        popup = QApplication::activePopupWidget();
    m_frame.close();
    m_sinceFirst.invalidate();
}

/// The frame stays open: the session may not end after all, and it tells when it does.
void UnchosenEnd::sessionEnds(QSessionManager& session)
{
    m_sessionMayEnd = false;
    if (!session.allowsInteraction())
        return;
    if (window::isAsking())
        window::showQuestion();
    else
        askForSession();
    if (!m_sessionMayEnd)
        session.cancel();
    if (m_sessionMayEnd)
        qApp->installEventFilter(this);
}

/// By way of an event, from which no error escapes: the libraries in between here and the event
/// loop would leave the session without an answer.
void UnchosenEnd::askForSession()
{
    QEvent asks(QEvent::User);
    QCoreApplication::sendEvent(this, &asks);
}

void UnchosenEnd::customEvent(QEvent*)
{
    m_sessionMayEnd = m_frame.mayClose();
}

/// What was answered for the session's end holds until it ends, or the user goes on with his work.
bool UnchosenEnd::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Quit:
        if (m_sessionMayEnd)
            m_frame.closeUnasked();
        break;
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        m_sessionMayEnd = false;
        break;
    default:
        return QObject::eventFilter(receiver, event);
    }
    qApp->removeEventFilter(this);
    return false;
}

} // namespace shell
