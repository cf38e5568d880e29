// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <ostream>

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Lets GoogleTest print what two unequal texts were.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
