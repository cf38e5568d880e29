// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileText.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace base {

namespace {

/// Windows-1252 from 0x80 to 0x9F; elsewhere it is Latin-1.
/// Source: Microsoft's cp1252 table, https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WINDOWS
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QString fromWindows1252(const QByteArray& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() <= 0x9F)
            c = QChar(windows1252[c.unicode() - 0x80U]);
    }
    return text;
}

} // namespace

QString decodedText(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    return utf8.hasError() ? fromWindows1252(bytes) : text;
}

QString withoutControlCharacters(const QString& text)
{
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](QChar c) { return c.category() != QChar::Other_Control; });
    return kept;
}

} // namespace base
