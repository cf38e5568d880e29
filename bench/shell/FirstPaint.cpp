// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FirstPaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <sys/resource.h>

#include <fstream>
#include <iostream>
#include <string>

namespace {

double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) * 1e-3;
}

void printUsage()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::cout << "processor " << milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime)
              << " ms\n";

    std::ifstream rollup("/proc/self/smaps_rollup");
    std::string word;
    while (rollup >> word) {
        long kilobytes = 0;
        if (word == "Pss:" && rollup >> kilobytes)
            std::cout << "pss " << kilobytes << " kB\n";
        if (word == "Rss:" && rollup >> kilobytes)
            std::cout << "rss " << kilobytes << " kB\n";
    }
}

} // namespace

FirstPaint::FirstPaint(QWidget& widget)
    : QObject(&widget)
{
    widget.installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint)
        return false;
    watched->removeEventFilter(this);
    // Once the whole window is painted and has been handed to the screen.
    QMetaObject::invokeMethod(
        this,
        [] {
            printUsage();
            QCoreApplication::exit(); // asks no window
        },
        Qt::QueuedConnection);
    return false;
}
