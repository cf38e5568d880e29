// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QPalette;
class QTextBlock;
class QTextDocument;

namespace manual {

bool isHeading(const QTextBlock& block);

/// Gives a chapter its look: Markdown says what a piece of text is, and not how it looks.
///
/// @param space pixels between paragraphs
void formatChapter(QTextDocument& chapter, const QPalette& palette, qreal space);

} // namespace manual
