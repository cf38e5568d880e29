// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AlikePalettes.h"

#include <QStyleOption>

namespace shell {

const QPalette& AlikePalettes::first(const QPalette& palette)
{
    constexpr qsizetype mostKnown = 1000;
    constexpr qsizetype mostUnlike = 100; // a theme has a few
    if (const auto known = m_known.constFind(palette.cacheKey()); known != m_known.constEnd())
        return m_unlike.at(*known);
    if (m_unlike.size() >= mostUnlike)
        m_unlike.clear();
    if (m_unlike.isEmpty() || m_known.size() >= mostKnown)
        m_known.clear();
    qsizetype place = m_unlike.indexOf(palette);
    if (place < 0) {
        place = m_unlike.size();
        m_unlike.append(palette);
    }
    m_known.insert(palette.cacheKey(), place);
    return m_unlike.at(place);
}

/// A copy would have to know each kind of option. Nobody looks at the option while it is drawn but
/// who draws it.
DrawnAlike::DrawnAlike(const QStyleOption* option, AlikePalettes& palettes)
    : m_option(const_cast<QStyleOption*>(option))
{
    if (m_option == nullptr)
        return;
    m_own = m_option->palette;
    m_option->palette = palettes.first(m_own);
    // Not one of the things that palettes are alike in, nor a part of their identity.
    m_option->palette.setCurrentColorGroup(m_own.currentColorGroup());
}

DrawnAlike::~DrawnAlike()
{
    if (m_option != nullptr)
        m_option->palette = m_own;
}

} // namespace shell
