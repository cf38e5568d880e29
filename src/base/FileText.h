// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Text between the program and its files: written as UTF-8 without a mark, read as what it is.
namespace base {

/// The text of a piece of a file: UTF-8 where the bytes are valid UTF-8, otherwise Windows-1252.
///
/// The five bytes that Windows-1252 leaves undefined give the control characters of the same code.
QString decodedText(const QByteArray& bytes);

/// The text without control characters (Unicode category Cc), which no line of a file may carry.
QString withoutControlCharacters(const QString& text);

} // namespace base
