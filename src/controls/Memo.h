// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPlainTextEdit>

#include <optional>

namespace controls {

/// A text area that keeps what the program has found out: it can be selected and copied but not
/// changed, since what a stray key could alter is no evidence.
///
/// Its letters grow and shrink with Ctrl and the wheel, and with Ctrl and plus or minus; Ctrl and 0
/// gives them back their size. While it has the focus these keys, and those that select and copy
/// its text, are its own, whatever they are a shortcut for elsewhere in the window.
class Memo : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit Memo(const QString& text = {}, QWidget* parent = nullptr);

    /// Its lines; an empty text has one.
    QStringList lines() const;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void zoom(int steps);
    void unzoom();

    std::optional<QFont> m_usualFont; ///< Once the letters have another size.
    int m_turned = 0;                 ///< Of the wheel, less than a step, in eighths of a degree.
};

} // namespace controls
