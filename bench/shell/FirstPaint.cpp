// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FirstPaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <sys/resource.h>

#include <cstdio>
#include <fstream>
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
    std::printf("processor %.1f ms\n",
                milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime));

    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        long kilobytes = 0;
        if (std::sscanf(line.c_str(), "Pss: %ld kB", &kilobytes) == 1)
            std::printf("pss %ld kB\n", kilobytes);
        if (std::sscanf(line.c_str(), "Rss: %ld kB", &kilobytes) == 1)
            std::printf("rss %ld kB\n", kilobytes);
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
