// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollBar>

namespace controls {

/// A horizontal scroll bar that can be reached with Tab, moves with the arrow keys and, while it
/// has the focus, with the wheel, and shows that it has the focus.
class LevelBar : public QScrollBar {
    Q_OBJECT

public:
    explicit LevelBar(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace controls
