// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class QMdiArea;

namespace shell {

/// Tiles the children each time the frame has become the active window of the desktop.
///
/// A click may be what made it so. It was aimed at what the user saw, and its press comes after the
/// activation: so the tiling waits a moment for such a press, and then until the click, and the
/// double click that it may become, is over. When the frame is activated for the first time nobody
/// has seen anything to click at, and the children are tiled at once.
class ActivationTiling : public QObject {
    Q_OBJECT

public:
    /// `area` must live as long.
    explicit ActivationTiling(QMdiArea& area, QObject* parent = nullptr);

    void frameActivated();
    /// The frame was left for another program before it came to tile.
    void frameLeft();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tileUnlessBusy();

    QMdiArea& m_area;
    QTimer m_wait;
    bool m_wasSeen = false;
};

} // namespace shell
