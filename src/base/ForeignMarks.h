// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace base {

/// Numbers that their writer may have meant a thousand times larger, to tell him how they were
/// read.
///
/// By the one rule for typed numbers "1.250" is 1.25 for everybody. Where decimals follow a comma a
/// point with three digits behind it is also how thousands are set apart, and so is the comma of
/// "1,250" where decimals follow a point.
class ForeignMarks {
public:
    /// Looks at a text that readTypedNumber() has read as `value`.
    void look(QStringView typed, double value);

    /// "«1.250» se leyó como 1,25" of the first one, with the count of several; empty without any.
    QString notice() const;

private:
    QString m_first;
    qsizetype m_count = 0;
};

} // namespace base
