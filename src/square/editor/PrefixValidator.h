// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QValidator>

namespace square {

/// Keeps out of an edit what a name of a square file cannot carry: double quotes, which would be
/// lost on the way through the file, and control characters. They are dropped from what is typed
/// or pasted; the rest goes in.
class PrefixValidator : public QValidator {
    Q_OBJECT

public:
    using QValidator::QValidator;

    State validate(QString& input, int& cursor) const override;
};

} // namespace square
