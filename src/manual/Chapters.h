// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

/// The manual's chapters: docs/manual, compiled into the program.
///
/// A chapter is called as its file without the extension, such as "editor". A window names its own
/// in ChildWindow::manualChapter().
namespace manual {

/// The chapter that lists the others.
QString indexChapter();

/// Every chapter, the index first and the others in its order.
QStringList chapters();

/// The Markdown of a chapter; empty for one that there is not.
QString chapterText(const QString& chapter);

QUrl chapterUrl(const QString& chapter);

/// The chapter that a link leads to.
QString chapterOf(const QUrl& url);

/// How a link names a heading: in lower case, with hyphens for blanks and without punctuation.
QString anchorOf(const QString& heading);

} // namespace manual
