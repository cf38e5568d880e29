// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ActivationTiling.h"

#include "shell/Tiling.h"

#include <QApplication>
#include <QEvent>
#include <QMdiArea>
#include <QStyleHints>

namespace shell {

namespace {

/// Milliseconds between an activation and the press that caused it: a window manager sends one
/// right after the other.
constexpr int untilThePress = 100;

int doubleClickTime()
{
    return QGuiApplication::styleHints()->mouseDoubleClickInterval();
}

} // namespace

ActivationTiling::ActivationTiling(QMdiArea& area, QObject* parent)
    : QObject(parent)
    , m_area(area)
    , m_wait(this)
{
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, &ActivationTiling::tileUnlessBusy);
}

void ActivationTiling::frameActivated()
{
    if (!m_wasSeen) {
        m_wasSeen = true;
        tile(m_area);
        return;
    }
    qApp->installEventFilter(this);
    m_wait.start(untilThePress);
}

void ActivationTiling::frameLeft()
{
    m_wait.stop();
    qApp->removeEventFilter(this);
}

bool ActivationTiling::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_wait.stop();
        break;
    case QEvent::MouseButtonRelease:
        m_wait.start(doubleClickTime());
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ActivationTiling::tileUnlessBusy()
{
    const bool isBusy = QGuiApplication::mouseButtons() != Qt::NoButton ||
                        QApplication::activePopupWidget() != nullptr;
    if (isBusy) {
        m_wait.start(doubleClickTime());
        return;
    }
    qApp->removeEventFilter(this);
    tile(m_area);
}

} // namespace shell
