// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/PrefixValidator.h"

#include "base/FileText.h"

namespace square {

namespace {

QString accepted(const QString& text)
{
    return base::withoutControlCharacters(text).remove(u'"');
}

} // namespace

QValidator::State PrefixValidator::validate(QString& input, int& cursor) const
{
    const QString beforeCursor = accepted(input.left(cursor));
    input = beforeCursor + accepted(input.mid(cursor));
    cursor = static_cast<int>(beforeCursor.size());
    return Acceptable;
}

} // namespace square
