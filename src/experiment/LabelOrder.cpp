// SPDX-License-Identifier: GPL-3.0-or-later
#include "experiment/LabelOrder.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace experiment {

namespace {

/// A text whose order by code points is that of the label.
QString sortingKey(const QString& label)
{
    constexpr qsizetype longestNumber = 1000;
    const auto isDigit = [](QChar c) { return c.isDigit(); };
    const auto isZero = [](QChar c) { return c == QLatin1Char('0'); };
    QString key;
    for (const auto* c = label.begin(); c != label.end();) {
        const auto* const end = std::find_if_not(c, label.end(), isDigit);
        if (end == c) {
            key += (c++)->toCaseFolded();
            continue;
        }
        // Of two numbers the longer one is the larger.
        const auto* const first = std::find_if_not(c, end, isZero);
        key += QChar(static_cast<char16_t>(u'0' + std::min<qsizetype>(end - first, longestNumber)));
        key += QStringView(first, end);
        c = end;
    }
    return key;
}

} // namespace

std::vector<int> ranksOf(const QStringList& labels)
{
    const auto count = static_cast<std::size_t>(labels.size());
    QStringList keys;
    for (const QString& label : labels)
        keys += sortingKey(label);
    std::vector<int> sorted(count);
    std::iota(sorted.begin(), sorted.end(), 0);
    std::sort(sorted.begin(), sorted.end(), [&](int a, int b) {
        return keys[a] != keys[b] ? keys[a] < keys[b] : labels[a] < labels[b];
    });
    std::vector<int> ranks(count);
    for (std::size_t rank = 0; rank < count; ++rank)
        ranks[static_cast<std::size_t>(sorted[rank])] = static_cast<int>(rank);
    return ranks;
}

} // namespace experiment
