// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/LateActivation.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace shell {

namespace {

QWidget* widgetOf(const QWindow* window)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == window)
            return widget;
    return nullptr;
}

} // namespace

LateActivation::LateActivation(QObject* parent)
    : QObject(parent)
{
    // Looked at once the present event, which may be what closes the pop-up, is over.
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &LateActivation::check,
            Qt::QueuedConnection);
}

void LateActivation::check()
{
    constexpr int untilThePopupIsGone = 50; // milliseconds, to look again
    const QWindow* focused = QGuiApplication::focusWindow();
    const QWidget* popup = QApplication::activePopupWidget();
    if (focused == nullptr || (popup != nullptr && popup->windowHandle() == focused))
        return;
    if (popup != nullptr) {
        QTimer::singleShot(untilThePopupIsGone, this, &LateActivation::check);
        return;
    }
    QWidget* window = widgetOf(focused);
    if (window != nullptr && window != QApplication::activeWindow())
        QApplication::setActiveWindow(window);
}

} // namespace shell
