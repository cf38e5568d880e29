// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ShortText.h"

namespace base {

QString shortened(QStringView text)
{
    constexpr qsizetype longest = 40;
    if (text.size() <= longest)
        return text.toString();
    return text.first(longest).toString() + QStringLiteral("…");
}

} // namespace base
