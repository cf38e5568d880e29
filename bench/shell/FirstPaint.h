// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

/// Waits until a widget has been painted for the first time and is on the screen, prints what the
/// process has taken until then, and ends it:
///
///     processor 123.4 ms
///     pss 23456 kB
///     rss 34567 kB
///
/// Processor time is the user's and the system's of all threads since the process began; the
/// memory is that of /proc/self/smaps_rollup.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
