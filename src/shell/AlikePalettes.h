// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QPalette>

class QStyleOption;

namespace shell {

/// One palette for all that are alike.
///
/// Qt's style keeps the pictures of headers, scroll bars and buttons by the identity of the palette
/// that they are drawn with, and each window that has colours of its own, such as a table on paper,
/// has a palette of its own: every new one would be drawn anew and fill the memory for pictures.
class AlikePalettes {
public:
    /// The first of the palettes that are like this one.
    const QPalette& first(const QPalette& palette);

private:
    QList<QPalette> m_unlike;
    QHash<qint64, qsizetype> m_known; ///< Where the like of a palette is, by its identity.
};

/// An option that is drawn with the first of the palettes like its own, for as long as this lives.
class DrawnAlike {
public:
    DrawnAlike(const QStyleOption* option, AlikePalettes& palettes);
    ~DrawnAlike();
    DrawnAlike(const DrawnAlike&) = delete;
    DrawnAlike& operator=(const DrawnAlike&) = delete;

private:
    QStyleOption* m_option; ///< Null where there is none.
    QPalette m_own;
};

} // namespace shell
