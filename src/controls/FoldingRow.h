// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QBoxLayout;

namespace controls {

/// Two groups of controls: side by side where there is room for both, elsewhere one below the
/// other.
class FoldingRow : public QWidget {
    Q_OBJECT

public:
    explicit FoldingRow(QWidget* parent = nullptr);

    /// The controls of a group stand from left to right.
    QBoxLayout& first() { return *m_first; }
    QBoxLayout& second() { return *m_second; }

    /// Folded in its width.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fold();

    QBoxLayout* m_groups;
    QBoxLayout* m_first;
    QBoxLayout* m_second;
};

} // namespace controls
