// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <ostream>

/// Lets GoogleTest print what two unequal texts were.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
