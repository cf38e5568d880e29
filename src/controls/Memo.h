// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

namespace controls {

/// A text area that keeps what the program has found out: it can be selected and copied but not
/// changed, since what a stray key could alter is no evidence.
class Memo : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit Memo(const QString& text = {}, QWidget* parent = nullptr);

    /// Its lines; an empty text has one.
    QStringList lines() const;
};

} // namespace controls
